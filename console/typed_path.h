// Paths as a user types them on the command line or in a script.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// As absolute_raw_path, in the program's text. Empty where the working directory has gone.
std::string absolute_path(std::string_view typed);

}  // namespace corvane
