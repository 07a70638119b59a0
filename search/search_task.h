// The file search and the road that chains it with the comparison.
#pragma once

namespace corvane {

class Tavrel;

// Walks the selected directories anew and writes 文件清单.txt.
void picture2_Click(Tavrel& form);

// The walk alone, without storing its list, then find same files.
void Command19_Click(Tavrel& form);

// Search, then find same files, without the user in between.
void search_check_m_Click(Tavrel& form);

}  // namespace corvane
