// The command line of the desktop program, after Qt has taken its own options.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace corvane {

struct start_arguments {
    // Both absolute, as the program's text, without a closing separator but at a root.
    std::string program_dir;  // empty: none
    std::vector<std::string> directories;
    bool help = false;
    bool version = false;
    bool wrong = false;
};

// `arguments` without the name of the program. Directories are relative to the working directory.
start_arguments read_start_arguments(std::span<const char* const> arguments);

// How the program is called.
extern const char start_usage[];

}  // namespace corvane
