// Settings beside the lines of 'Tavrel环境.txt', in a file of their own: "name=value" lines in any order. A
// slice of the run state; start-up reads them, the options window writes them.
#pragma once

#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

struct added_settings {
    bool notify_after_task = true;     // tell the desktop when a long task has ended
    bool english = false;              // the windows speak English, from the next start on
    bool earlier_place_asked = false;  // whether to take over the files of an earlier place has been answered

    // Lines that this version does not know; they are written again as they stand.
    std::vector<std::string> unknown;
};

// A file that is missing or cannot be read gives the defaults, and so does a value that is none.
added_settings read_added_settings(file_system& files, const std::string& path);
// Replaces the file as a whole. On failure the old one stays.
outcome write_added_settings(file_system& files, const std::string& path, const added_settings& values);

}  // namespace corvane
