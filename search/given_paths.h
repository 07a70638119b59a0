// Directories out of a text that was typed, pasted or dropped: paths and file URLs, a line each. Used by the
// directory window and by the main form's drops and pastes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

struct given_paths {
    std::vector<std::string> paths;   // absolute, without a closing separator but for a root; each once
    std::vector<std::string> others;  // lines that are no path of this machine, as they were given
    bool cut = false;                 // there were more lines than are read
};

// The bytes are those of the system: a path may be in quotes, several of them on one line, begin with "~", or
// be a URL with percent escapes. Nothing is asked of the disk but where home is.
given_paths read_given_paths(file_system& files, std::string_view text);

struct given_directories {
    std::vector<std::string> directories;
    std::vector<std::string> others;  // also paths that are no directory
};

// The same held against the disk. At most `most` directories are looked for.
given_directories find_given_directories(file_system& files, std::string_view text, std::size_t most);

// At most a few of `others`, a line each, for a box.
std::string others_words(const std::vector<std::string>& others);

}  // namespace corvane
