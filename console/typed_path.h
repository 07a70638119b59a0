// Paths as a user types them on the command line or in a script.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// An absolute path of the program's text, relative to the working directory, without a closing separator.
std::string absolute_path(std::string_view typed);

}  // namespace corvane
