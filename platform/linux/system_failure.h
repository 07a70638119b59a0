// A failure in the system's own words. Used wherever platform/linux asks the system.
#pragma once

#include <errno.h>

#include <cstring>

#include "platform/outcome.h"

namespace corvane {

inline outcome system_failure(int error = errno) {
    outcome failed = outcome::failure(std::strerror(error));
    failed.number = error;
    return failed;
}

}  // namespace corvane
