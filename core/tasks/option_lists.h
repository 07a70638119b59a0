// The three option lists beside the program: directories that no walk enters, suffixes that are left out,
// suffixes that alone are taken. One entry a line, its first character "1" while it is in force.
#pragma once

#include <cstdint>
#include <string>

#include "core/text/column.h"

namespace corvane {

class Tavrel;

enum class option_list { left_out_directories, left_out_types, only_types };

// Where a list stands: the full path of its file, its array in the run state, how many entries that takes.
struct option_list_place {
    std::string path;
    column<std::string>& entries;
    std::int32_t capacity;
};
option_list_place place_of(Tavrel& form, option_list list);

// The entries, with their flags, become the array of the list; its count, active string and
// length follow. In the string every directory ends in the separator, also where the entry does not.
void take_entries(Tavrel& form, option_list list, column<std::string> entries);

// Each reads its file and sets its array, count and active string. A missing file is told and changes
// nothing; one that cannot be read is told with the system's words and changes nothing. Lines beyond the
// capacity of the list are left out and told once.
void 读不参加搜索的目录(Tavrel& form);
void 读不参加比较的文件类型(Tavrel& form);
void 读仅搜索的文件类型(Tavrel& form);

}  // namespace corvane
