// Taking files of a run back from the recycle bin, each to its old place or beside what stands there. Used by
// the window that lists the runs.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cleanup/recycled_run.h"

namespace corvane {

class Tavrel;

enum class recycled_state {
    there,         // can be restored
    gone,          // the user has emptied the bin, or another program has taken it
    other,         // the bin's entry is another one now, or lies where no bin is
    out_of_reach,  // the volume of the bin is not mounted
    back,          // it stands at its old place
    restored,      // this program has restored it, to old_place or beside it
    not_found      // the run ended before its place in the bin was noted, and it is not there
};

// The words of a state, as the window shows them.
const char* state_words(recycled_state state);

// What became of each file that has gone; in the order of run.files, of which those that stayed count as
// `back`. Files whose place in the bin is not noted are looked for; what is found goes into the run and into
// its notes.
std::vector<recycled_state> states_of(Tavrel& form, recycled_run& run);

struct restore_tally {
    std::size_t restored = 0;
    std::size_t renamed = 0;    // of these, beside what stood at the old place
    std::string first_renamed;  // the new path
    std::size_t refused = 0;
    std::string first_refused;  // the old path with why
    std::string failure;        // of the notes or of the list: what could not be written
};

// Restores these files of the run, by their index in run.files, and notes it. Yields before each; ends early
// while the program closes. Pairs that the run has broken up come back to the stored result, as far as both
// files are there; a same-file view that is shown is read anew and keeps its marks.
restore_tally restore_files(Tavrel& form, recycled_run& run, const std::vector<std::size_t>& chosen);

}  // namespace corvane
