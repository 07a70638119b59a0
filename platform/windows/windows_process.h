// Programs on Windows: where they are, how they are started without a window. Used by windows_shell.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/shell.h"

namespace corvane {

// The full path of NAME.exe: in the folders of the search path, never in the current one, then where archive
// tools install themselves. Empty when there is none.
std::string find_windows_program(const std::string& name);
// As shell::start_process. The first argument is a path.
outcome_with<started_process> start_windows_process(const std::vector<std::string>& arguments);

// The full path of a program in the folder of Windows.
std::wstring system_program(std::wstring_view name);
// Starts a program with a command line as it stands, and leaves it to itself.
outcome start_line(const std::wstring& program, std::wstring line);
// The command line that a program takes apart into these arguments again.
std::wstring command_line_of(const std::vector<std::wstring>& arguments);

}  // namespace corvane
