// The result files of a comparison: the pairs and the files without a twin.
#pragma once

namespace corvane {

class Tavrel;

// Replaces 相同文件.txt by the pairs of same_pair, or removes it when there are none. False when it could not
// be written; the failure has been reported.
bool write_same_files(Tavrel& form);

// Replaces 不相同文件.txt: every entry without a twin, in column order. Sets different_count.
bool write_different_files(Tavrel& form);

}  // namespace corvane
