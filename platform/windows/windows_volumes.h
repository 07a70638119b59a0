// The volumes of a Windows machine: drive letters with name and free space, the home folder before them.
// Used by windows_file_system.
#pragma once

#include <vector>

#include "platform/file_system.h"

namespace corvane {

// A drive without a medium, and one on the network, which could let the program wait, stand without name and
// space.
std::vector<volume> windows_volumes();

}  // namespace corvane
