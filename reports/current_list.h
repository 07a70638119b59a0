// The file list as the reports need it: whole, in the order of its paths. Used by every report.
#pragma once

namespace corvane {

class Tavrel;

// Reads the stored list back where there is none in memory, or where a comparison or a check of names has
// used it up. False: there is none, or the program ends.
bool hold_file_list(Tavrel& form);

}  // namespace corvane
