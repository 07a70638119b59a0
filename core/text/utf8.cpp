#include "core/text/utf8.h"

#include <cstdint>

namespace corvane {

utf8_letter decode_utf8(std::string_view utf8) {
    const auto byte = [&](std::size_t place) { return static_cast<std::uint8_t>(utf8[place]); };
    std::size_t length;
    char32_t letter;
    char32_t least;
    if (byte(0) < 0x80) return {byte(0), 1};
    if ((byte(0) & 0xE0) == 0xC0) {
        length = 2;
        letter = byte(0) & 0x1F;
        least = 0x80;
    } else if ((byte(0) & 0xF0) == 0xE0) {
        length = 3;
        letter = byte(0) & 0x0F;
        least = 0x800;
    } else if ((byte(0) & 0xF8) == 0xF0) {
        length = 4;
        letter = byte(0) & 0x07;
        least = 0x10000;
    } else {
        return {0, 0};
    }
    if (utf8.size() < length) return {0, 0};
    for (std::size_t place = 1; place < length; ++place) {
        if ((byte(place) & 0xC0) != 0x80) return {0, 0};
        letter = letter << 6 | (byte(place) & 0x3F);
    }
    const bool surrogate = letter >= 0xD800 && letter <= 0xDFFF;
    if (letter < least || letter > 0x10FFFF || surrogate) return {0, 0};
    return {letter, length};
}

void append_utf8(std::string& out, char32_t letter) {
    const auto add = [&](char32_t byte) { out += static_cast<char>(byte); };
    if (letter < 0x80) {
        add(letter);
    } else if (letter < 0x800) {
        add(0xC0 | letter >> 6);
        add(0x80 | (letter & 0x3F));
    } else if (letter < 0x10000) {
        add(0xE0 | letter >> 12);
        add(0x80 | (letter >> 6 & 0x3F));
        add(0x80 | (letter & 0x3F));
    } else {
        add(0xF0 | letter >> 18);
        add(0x80 | (letter >> 12 & 0x3F));
        add(0x80 | (letter >> 6 & 0x3F));
        add(0x80 | (letter & 0x3F));
    }
}

bool is_utf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = decode_utf8(text).length;
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace corvane
