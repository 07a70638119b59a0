// The three name checks of the menu "相同名称". They look at names alone and open no file.
#pragma once

namespace corvane {

class Tavrel;

// Files that bear the same name, in either case, whatever their directories. Walks the disk unless the list
// in memory is as the search left it.
void mnu_same_filename_Click(Tavrel& form);

// The same with the name of the parent directory as part of the name.
void check_same_1dir_filename_Click(Tavrel& form);

// Directories below the selected ones that bear the same name. Walks the disk by itself.
void search_repeat_dir_name_Click(Tavrel& form);

}  // namespace corvane
