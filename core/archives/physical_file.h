// Whether two paths lead to one file, so that removing either takes both. Asked by the comparison, which
// pairs no such paths, and by the deletion, for which neither of them keeps the other.
#pragma once

#include <string_view>

#include "platform/file_system.h"

namespace corvane {

// Each path is one of the disk, or <archive path>*<member>. True
// - for equal texts;
// - for one file of the disk by device and index, unless it has several links and the paths are two of them;
// - for a file and what a stack of mounts shows of it (file_facts::stacked), judged by length and both times,
//   and by the index where these could be chance;
// - for entries of one archive that is reached by two paths, whatever their names.
// A doubt is a yes. An entry and a file are two; entries with different names of one archive path, too. False
// when a path is not there. Costs a call per path, and two more for two links of one file.
bool same_physical_file(file_system& files, std::string_view a, std::string_view b);

// The same for two files of the disk whose facts are known.
bool same_physical_file(file_system& files, std::string_view a, const file_facts& facts_a, std::string_view b,
                        const file_facts& facts_b);

}  // namespace corvane
