// Open files of a Windows machine: readers of regular files, writers that replace or overwrite. Paths are
// those of wide_path. Used by windows_file_system alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/windows/handle.h"

namespace corvane {

// Fails for what is no regular file, too.
outcome_with<file_reader> open_windows_reader(const std::wstring& path);
// As file_system::read_start.
std::int64_t read_windows_start(const std::wstring& path, std::span<std::byte> buffer, std::size_t expected);
// Writes to a temporary file beside the place; commit flushes it and renames it over the place.
outcome_with<file_writer> open_replacing_writer(const std::wstring& path);
// Truncates the file and writes in place.
outcome_with<file_writer> open_overwriting_writer(const std::wstring& path);
// Writes the text over the start of the file, in place, and cuts the file to its length.
outcome put_windows_text(const std::wstring& path, std::string_view text);

// A path beside this one that no file has yet: made, empty, and gone with the handle where that is asked.
outcome open_new_file(const std::wstring& beside, bool goes_with_handle, std::wstring& path, handle& file);

}  // namespace corvane
