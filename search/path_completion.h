// How the beginning of a path that a user types goes on. Used by the box of paths.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

// The directories whose path begins with what was typed, each with its closing separator, in reading order;
// hidden ones where the beginning of the name says so. Letters fold their case. Names that cannot be typed
// are left out. Reads one directory, and of a very large one a part.
std::vector<std::string> path_completions(file_system& files, std::string_view typed, std::size_t most);

}  // namespace corvane
