// skip_directory: the directories that no walk opens. Shared by the file search and the directory tasks.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

class Tavrel;

// `directory` ends in the separator. True for a directory named in exclude_dir_text (a whole entry, in either
// case) and for the recycle directories of a volume.
bool skip_directory(Tavrel& form, const std::string& directory);

// Appends the separator if it is missing.
std::string with_separator(Tavrel& form, std::string_view directory);

// True when the path exists, as a file, a directory or anything else.
bool path_exists(Tavrel& form, const std::string& path);

}  // namespace corvane
