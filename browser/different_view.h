// The different-files view: the files that have no twin, with length and date, as rows of ListView1.
#pragma once

namespace corvane {

class Tavrel;

// The task of Picture11. Shows the files of the last comparison; without one in this run, those of the stored
// list.
void Picture11_Click(Tavrel& form);

}  // namespace corvane
