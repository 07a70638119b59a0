// A failure of the desktop's services: our words, then the system's. Used by all that platform/desktop asks.
#pragma once

#include <gio/gio.h>

#include "platform/outcome.h"

namespace corvane {

// Takes the error over; it may be null.
outcome desktop_failure(const char* what, GError* error);

}  // namespace corvane
