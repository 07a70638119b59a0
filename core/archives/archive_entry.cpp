#include "core/archives/archive_entry.h"

namespace corvane {

std::string archive_entry_text(std::string_view archive_path, std::string_view entry_name, std::uint32_t crc,
                               std::uint64_t size) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string crc_text;
    for (int shift = 28; shift >= 0; shift -= 4) crc_text += digits[(crc >> shift) & 0xF];
    std::string text;
    append_archive_entry(text, archive_path, entry_name, crc_text, size);
    return text;
}

void append_archive_entry(std::string& text, std::string_view archive_path, std::string_view entry_name,
                          std::string_view crc_text, std::uint64_t size) {
    text.reserve(text.size() + archive_path.size() + entry_name.size() + 32);
    text.append(archive_path)
        .append(1, '*')
        .append(entry_name)
        .append(1, '*')
        .append(crc_text)
        .append(1, '*');
    text += std::to_string(size);
}

std::string_view archive_path_of(std::string_view entry) {
    return entry.substr(0, entry.find('*'));
}

}  // namespace corvane
