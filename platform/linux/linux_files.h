// Open files of a Linux machine: readers of regular files, writers that replace or overwrite. Paths are raw
// bytes. Used by linux_file_system alone.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

// Null, with the system's words in `error`, when the file cannot be opened or is not regular.
std::unique_ptr<file_reader> open_linux_reader(const char* raw_path, std::string& error);
// Writes to a temporary file beside the place; commit flushes it and renames it over the place.
std::unique_ptr<file_writer> open_replacing_writer(const char* raw_path, std::string& error);
// Truncates the file and writes in place.
std::unique_ptr<file_writer> open_overwriting_writer(const char* raw_path, std::string& error);

// Writes the text over the start of the file, in place, and cuts the file to its length.
bool put_linux_text(const char* raw_path, std::string_view text, std::string& error);

}  // namespace corvane
