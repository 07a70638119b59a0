// The time zone of the machine. Used by the front ends, which tell the program what time it is.
#pragma once

#include <cstdint>

#include "platform/user_interface.h"

namespace corvane {

// A moment in seconds since 1970-01-01 UTC as the clock on the wall shows it; the zero date where the system
// has no calendar for it.
local_time local_time_of(std::int64_t unix_seconds);

}  // namespace corvane
