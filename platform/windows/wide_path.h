// A path of the program's text as the wide calls take it: with the prefix that lifts the limit of 260 and has
// every name taken as it stands, so that a name with a dot at its end is found and no name is a device.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// An absolute path: "C:\..." becomes "\\?\C:\...", "\\server\share\..." becomes "\\?\UNC\server\share\...";
// "C:" is the root of the drive. Empty, which the system refuses, for a text that no path maps to: one that
// is relative, holds a sign that no name has (a "*" marks an archive entry, a ":" would name a stream), or a
// "." or "..".
std::wstring wide_path(std::string_view text);
// The same path as the shell takes it, without the prefix. Empty where the name would be another one without
// it: a dot or a blank at its end would go, and what the shell then took is not this file.
std::wstring shell_path(std::string_view text);
// The way back, for what the system answers.
std::string text_of_path(std::wstring_view path);

// Of a path of the program's text: up to the last separator, which is not part of it, and what follows.
std::string_view directory_of(std::string_view path);
std::string_view name_of(std::string_view path);

// "C:\" for what lies on a drive, "\\server\share\" for what lies in a share; empty for anything else.
std::string_view volume_root(std::string_view text);

}  // namespace corvane
