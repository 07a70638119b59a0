// The empty-directory view: the directories of spasedir.txt that are still there, as rows of ListView1.
#pragma once

namespace corvane {

class Tavrel;

// The task of Picture7 and the menu entry disp_dir; also shows what a search has found.
void Picture7_Click(Tavrel& form);

}  // namespace corvane
