// The pairs of a name check as rows of ListView1. Used by the three name checks; list_mode says which view
// stands: 3 file names, 4 directory names.
#pragma once

namespace corvane {

class Tavrel;

// Sets the list up for the pairs in result_file1 and result_file2, 1 to result_count, and fills it. Without a
// pair the list stays as it is, and the user is told. Unlocks the tasks at either way out.
void show_same_names(Tavrel& form);
void show_same_directory_names(Tavrel& form);

// Fills the rows for the current list_mode. While same_fresh_flag is set every pair becomes a row, else the
// pairs of which both paths exist; where the first path is gone, the second takes its place in the pairs that
// follow.
void fill_name_rows(Tavrel& form);

}  // namespace corvane
