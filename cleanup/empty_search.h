// The search for empty directories: walks the selected directories, writes those that hold nothing to
// spasedir.txt, one path a line in the order of the walk, and shows them.
#pragma once

namespace corvane {

class Tavrel;

// The task of Picture6 and the menu entry search_dir.
void Picture6_Click(Tavrel& form);
// The second entry to the same search.
void Command43_Click(Tavrel& form);

}  // namespace corvane
