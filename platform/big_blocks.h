// How the process returns memory. Called once by each main, before anything big is allocated.
#pragma once

namespace corvane {

// The columns of a million files come and go. Left to itself the allocator learns from the first ones to keep
// what is freed, so that the next step's stand beside holes of the last one's. From now on every big block is
// returned.
void return_big_blocks();

}  // namespace corvane
