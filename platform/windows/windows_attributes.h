// Attributes of a path on Windows. Used by windows_file_system, whose interface says what each call does.
#pragma once

#include <string>

#include "platform/file_system.h"

namespace corvane {

path_attributes windows_attributes(const std::string& path);
outcome clear_windows_attributes(const std::string& path);
// What the owner can see of a file and set again: read-only, hidden, system, archive.
file_access windows_access(const std::string& path);
void restore_windows_access(const std::string& path, const file_access& access);

// True for a directory that belongs to the user of this process, or lies where nobody owns anything.
bool is_own_windows_directory(const std::string& path);

}  // namespace corvane
