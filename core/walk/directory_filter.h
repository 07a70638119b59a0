// skip_directory: the directories that no walk opens. Asked by tree_walk.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

class file_system;

// `directory` ends in the separator. True for a directory named in `excluded`, the entries in force as
// exclude_dir_text has them (a whole entry, in either case), and for the recycle directories of a volume.
bool skip_directory(file_system& files, std::string_view excluded, const std::string& directory);

}  // namespace corvane
