// The entries of the menu reprod that open something, and the boxes of the row panel.
#pragma once

#include <string>

namespace corvane {

class Tavrel;

// Opens a document or directory. A failure shows nothing, but where the desktop has nothing to open it with,
// one line says so.
void open_quietly(Tavrel& form, const std::string& path);

void open_same_file_Click(Tavrel& form);
void double_disp_Click(Tavrel& form);
void mnu_enter_dir_Click(Tavrel& form);
void disp_same_file_attr_Click(Tavrel& form);
void same_time_open_2file_Click(Tavrel& form);

// Ctrl with the left button on a box of the row panel: opens the directory of the path that `words` begins
// with.
void open_directory_of_box(Tavrel& form, const std::string& words);

}  // namespace corvane
