// Open files of a Linux machine: readers of regular files, writers that replace or overwrite. Paths are raw
// bytes. Used by linux_file_system alone.
#pragma once

#include <string_view>

#include "platform/file_system.h"

namespace corvane {

// Fails for what is no regular file, too.
outcome_with<file_reader> open_linux_reader(const char* raw_path);
// Writes to a temporary file beside the place; commit flushes it and renames it over the place.
outcome_with<file_writer> open_replacing_writer(const char* raw_path);
// Truncates the file and writes in place.
outcome_with<file_writer> open_overwriting_writer(const char* raw_path);

// Writes the text over the start of the file, in place, and cuts the file to its length.
outcome put_linux_text(const char* raw_path, std::string_view text);

}  // namespace corvane
