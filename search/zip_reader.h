// Lists the files of a ZIP archive from its central directory. Called by the walk.
#pragma once

#include <string>

namespace corvane {

class Tavrel;
class walk_output;

// Adds a member for each file of the archive, under state.current_path; `path` is opened and named in the
// report. Nothing is unpacked, and no header is checked: what the end record points to is the directory.
void read_zip(Tavrel& form, const std::string& path, walk_output& output);

}  // namespace corvane
