// Pairs that a deletion has broken up, put back into the stored result once their files are there again. Used
// by restore_run.
#pragma once

#include <cstddef>
#include <set>

#include "cleanup/recycled_run.h"

namespace corvane {

class Tavrel;

// Adds the pairs of the run that one of these files (indices of run.files) belongs to, under the paths that
// restored files have now. Nothing comes back to the result of other directories. A pair comes back when both
// files have the length that it speaks of (a member of an archive is not asked for) and the stored result has
// it not. On failure the stored result is as it was.
outcome return_pairs(Tavrel& form, const recycled_run& run, const std::set<std::size_t>& restored);

}  // namespace corvane
