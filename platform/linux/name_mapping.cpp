#include "platform/name_mapping.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace corvane {

namespace {

constexpr unsigned char lead_byte = 0xEF;
constexpr std::size_t character_length = 3;
constexpr std::string_view escape = "\xEF\x80\x80";
constexpr int no_character = -1;

constexpr bool is_mapped(unsigned byte) {
    return (byte >= 0x01 && byte <= 0x1F) || byte == 0x7F || byte == '*';
}

unsigned byte_at(std::string_view text, std::size_t place) {
    return static_cast<unsigned char>(text[place]);
}

// The n of a character U+F000 + n, n up to 0xFF, at `place`; no_character when there is another.
int character_at(std::string_view text, std::size_t place) {
    if (text.size() < character_length || place > text.size() - character_length) return no_character;
    if (byte_at(text, place) != lead_byte) return no_character;
    const unsigned high = byte_at(text, place + 1);
    const unsigned low = byte_at(text, place + 2);
    if (high < 0x80 || high > 0x83 || low < 0x80 || low > 0xBF) return no_character;
    return static_cast<int>((high & 0x03) << 6 | (low & 0x3F));
}

bool starts_mapping(std::string_view raw, std::size_t place) {
    return is_mapped(byte_at(raw, place)) || character_at(raw, place) != no_character;
}

// The place of the next byte in text that to_raw does not take over as it is; the end when there is none.
std::size_t find_unmapping(std::string_view text, std::size_t from) {
    while (from < text.size()) {
        const void* found = std::memchr(text.data() + from, lead_byte, text.size() - from);
        if (found == nullptr) break;
        const auto place = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
        const int character = character_at(text, place);
        const bool escaping = character == 0 && character_at(text, place + character_length) != no_character;
        if (escaping || (character > 0 && is_mapped(static_cast<unsigned>(character)))) return place;
        from = place + 1;
    }
    return text.size();
}

// Whether one of eight bytes may start a mapping; ordinary names of ASCII letters and digits have none.
bool any_suspect(std::uint64_t bytes) {
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t highs = 0x8080808080808080;
    const auto below = [](std::uint64_t word, std::uint64_t limit) {
        return (word - ones * limit) & ~word & highs;
    };
    return (below(bytes, 0x20) | below(bytes ^ ones * 0x7F, 1) | below(bytes ^ ones * '*', 1) |
            below(bytes ^ ones * lead_byte, 1)) != 0;
}

// The place of the next byte in raw that to_text does not take over as it is; the end when there is none.
std::size_t find_mapping(std::string_view raw, std::size_t from) {
    while (from < raw.size()) {
        if (raw.size() - from >= 8) {
            std::uint64_t bytes;
            std::memcpy(&bytes, raw.data() + from, sizeof bytes);
            if (!any_suspect(bytes)) {
                from += 8;
                continue;
            }
        }
        const std::size_t end = from + std::min<std::size_t>(8, raw.size() - from);
        for (; from < end; ++from) {
            if (starts_mapping(raw, from)) return from;
        }
    }
    return raw.size();
}

}  // namespace

bool needs_mapping(std::string_view raw) {
    return find_mapping(raw, 0) != raw.size();
}

void append_text(std::string& out, std::string_view raw) {
    for (std::size_t from = 0;;) {
        const std::size_t place = find_mapping(raw, from);
        out.append(raw, from, place - from);
        if (place == raw.size()) return;
        const unsigned byte = byte_at(raw, place);
        if (is_mapped(byte)) {
            out += static_cast<char>(lead_byte);
            out += static_cast<char>(0x80 | byte >> 6);
            out += static_cast<char>(0x80 | (byte & 0x3F));
            from = place + 1;
        } else {
            out += escape;
            out.append(raw, place, character_length);
            from = place + character_length;
        }
    }
}

std::string to_text(std::string_view raw) {
    std::string text;
    text.reserve(raw.size());
    append_text(text, raw);
    return text;
}

bool needs_unmapping(std::string_view text) {
    return find_unmapping(text, 0) != text.size();
}

std::string to_raw(std::string_view text) {
    std::string raw;
    raw.reserve(text.size());
    for (std::size_t from = 0;;) {
        const std::size_t place = find_unmapping(text, from);
        raw.append(text, from, place - from);
        if (place == text.size()) return raw;
        const int character = character_at(text, place);
        from = place + character_length;
        if (character == 0) {
            raw.append(text, from, character_length);
            from += character_length;
        } else {
            raw += static_cast<char>(character);
        }
    }
}

}  // namespace corvane
