#include "core/archive_entry.h"

namespace corvane {

std::string archive_entry_text(std::string_view archive_path, std::string_view entry_name, std::uint32_t crc,
                               std::uint64_t size) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(archive_path.size() + entry_name.size() + 32);
    text.append(archive_path).append(1, '*').append(entry_name).append(1, '*');
    for (int shift = 28; shift >= 0; shift -= 4) text += digits[(crc >> shift) & 0xF];
    text += '*';
    return text += std::to_string(size);
}

std::string_view archive_path_of(std::string_view entry) {
    return entry.substr(0, entry.find('*'));
}

}  // namespace corvane
