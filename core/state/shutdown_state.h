// What the timed end of a session has come to. A slice of the run state.
#pragma once

#include <cstdint>
#include <string>

#include "core/text/flag.h"

namespace corvane {

struct shutdown_state {
    std::string shutdown_action_text;  // what the choice does, in words
    std::int32_t countdown_done = 0;   // seconds counted so far
    std::int32_t warn_done = 0;        // seconds that the last warning has counted
    flag warn_shown;                   // the last warning has been opened
    std::string warn_text;
    std::string unsaved;  // what could not be written while going down; the machine then stays up
    flag going_down;  // what runs is being brought to its end: a cancellable task that begins is cancelled at
                      // once
};

}  // namespace corvane
