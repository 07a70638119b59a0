// The mounts of a Linux machine: the places where a search can start, which are the home directory and those
// with files of the user, and what each mount shows of its file system. Used by linux_file_system.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

// Home first where there is one, then the mounts by path. Never empty.
std::vector<volume> linux_volumes();

// What the mount table says, in its order; nothing where it cannot be read.
std::vector<mounted_tree> linux_mounts(const std::string& table = "/proc/self/mountinfo");

}  // namespace corvane
