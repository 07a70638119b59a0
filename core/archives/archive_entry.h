// The text form of a file inside an archive: <archive path>*<entry name>*<CRC>*<size>. A "*" never stands in
// a name from the disk, so it tells an entry from a file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

// The CRC as eight upper-case hexadecimal digits, the size as plain decimal.
std::string archive_entry_text(std::string_view archive_path, std::string_view entry_name, std::uint32_t crc,
                               std::uint64_t size);

// Appends the same, the CRC given as its eight digits.
void append_archive_entry(std::string& text, std::string_view archive_path, std::string_view entry_name,
                          std::string_view crc_text, std::uint64_t size);

inline bool is_archive_member(std::string_view entry) {
    return entry.find('*') != std::string_view::npos;
}

// The text before the first "*"; a plain path as it is.
std::string_view archive_path_of(std::string_view entry);

// The folder of a path, closed by the separator; of a member that of its archive. Empty for a text without
// one.
inline std::string_view folder_of(std::string_view path, char separator) {
    const std::string_view file = archive_path_of(path);
    return file.substr(0, file.rfind(separator) + 1);
}

}  // namespace corvane
