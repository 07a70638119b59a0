// What Windows tells of one entry: whether it is a link, who it is, when it changed. Used by all of
// platform/windows that looks at files.
#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/file_system.h"
#include "platform/windows/handle.h"

namespace corvane {

// True for a symbolic link or a junction: another name of something else. Other reparse points (a file that
// is compressed, deduplicated or kept in a cloud) are the file itself.
constexpr bool is_link_tag(DWORD attributes, DWORD tag) {
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && (tag & 0x2000'0000) != 0;
}

constexpr bool has_attribute(DWORD attributes, DWORD which) {
    return (attributes & which) != 0;
}

// What has one of these may not be a file, or one that only an open handle tells of.
constexpr DWORD not_plain = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DEVICE;

constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Opens what the path is, not what it leads to, also a directory.
handle open_entry(const wchar_t* path, DWORD access);
// Opens what the path leads to, also a directory.
handle open_target(const wchar_t* path, DWORD access);

// False where the system does not tell.
bool link_tag(const handle& entry, DWORD attributes, bool& is_link);
// No directory, no link, no device. wide_path lets no path lead to a device; one that a disk has says so.
outcome check_regular(const handle& entry, DWORD attributes);
file_identity identity_of(const BY_HANDLE_FILE_INFORMATION& facts);

// 100 ns units since 1601.
constexpr std::uint64_t units_of_time(FILETIME time) {
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}
// In nanoseconds since 1970.
std::int64_t nanoseconds_of(std::uint64_t units);

}  // namespace corvane
