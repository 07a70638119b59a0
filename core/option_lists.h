// The three option lists beside the program: directories that no walk enters, suffixes that are left out,
// suffixes that alone are taken. One entry a line, its first character "1" while it is in force.
#pragma once

namespace corvane {

class Tavrel;

// Each reads its file and sets its array, count and active string. A missing file is told and changes
// nothing; one that cannot be read is told with the system's words and changes nothing. Lines beyond the
// capacity of the list are left out and told once.
void 读不参加搜索的目录(Tavrel& form);
void 读不参加比较的文件类型(Tavrel& form);
void 读仅搜索的文件类型(Tavrel& form);

}  // namespace corvane
