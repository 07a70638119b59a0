// Paths as a user types them on a command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// The absolute path, relative to the working directory, in the bytes of the disk and without a closing
// separator but at the root of a drive. Links stay links, but a ".." leads up from where they lead to, where
// the system has it so. Nothing where the working directory has gone.
std::optional<std::string> absolute_raw_path(std::string_view typed);

}  // namespace corvane
