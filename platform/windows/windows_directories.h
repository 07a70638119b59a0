// Listing a directory of a Windows machine: one call for a buffer of entries, whose kinds stand in it. Used
// by windows_file_system.
#pragma once

#include <string>

#include "platform/file_system.h"

namespace corvane {

outcome_with<directory_reader> open_windows_directory(const std::string& path);

}  // namespace corvane
