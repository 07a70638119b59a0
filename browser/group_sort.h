// Sorting the same-file view by what a group could free. Used by the table of handlers.
#pragma once

namespace corvane {

class Tavrel;

// The rows of the group that could free most come first, those of a group together. Marks stay, on the cells
// of their paths that are not gray now.
void sort_by_freed_Click(Tavrel& form);

// Tells group and freed bytes of the clicked row in panel 5.
void group_of_row_Click(Tavrel& form);

}  // namespace corvane
