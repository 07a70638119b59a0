// The directories of which nothing is ever marked or deleted. A slice of the run state; core/tasks reads,
// writes and asks them.
#pragma once

#include <cstdint>
#include <set>
#include <string>

namespace corvane {

struct protected_state {
    // As the user chose them, each closed by the separator.
    std::set<std::string> protected_folders;
    // The file of them is there and could not be understood: until they are chosen anew, everything counts as
    // protected.
    bool protection_unknown = false;
    std::uint64_t protection_revision = 0;  // changes with either
};

}  // namespace corvane
