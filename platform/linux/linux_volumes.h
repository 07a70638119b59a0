// The places of a Linux machine where a search can start: the home directory and the mounts with files of the
// user. Used by linux_file_system.
#pragma once

#include <vector>

#include "platform/file_system.h"

namespace corvane {

// Home first where there is one, then the mounts by path. Never empty.
std::vector<volume> linux_volumes();

}  // namespace corvane
