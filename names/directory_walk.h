// The walk of the check for directories of the same name: directories only, breadth first.
#pragma once

#include <cstdint>

namespace corvane {

class Tavrel;

// Fills dir_queue with the directories at and below the selected ones, each closed by the separator, without
// those that skip_directory names. A directory that is selected and lies in another selected one stands there
// twice. Links to directories come last, each place once. Runs to its end whatever cancel_task says. Returns
// the number of entries.
std::int32_t walk_directory_names(Tavrel& form);

}  // namespace corvane
