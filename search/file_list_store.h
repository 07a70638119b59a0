// The stored file list: 文件清单.txt, its display form temp.txt, and reading it back.
#pragma once

namespace corvane {

class Tavrel;

// One entry a line, in list order. False, after one message and with the tasks unlocked, when it cannot.
bool write_file_list(Tavrel& form);
// The same lines, each cut before its first "*"; for display only.
bool write_display_list(Tavrel& form);

// A right click on List1: its rows become the text "temp.txt".
void List1_MouseDown(Tavrel& form);

// Reads the stored list back into file_list. Leaves file_list_loaded as it is.
void Command21_Click(Tavrel& form);

}  // namespace corvane
