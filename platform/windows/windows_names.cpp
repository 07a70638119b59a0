#include "platform/windows/windows_names.h"

#include "platform/name_mapping.h"
#include "platform/windows/code_points.h"

namespace corvane {

namespace {

constexpr char32_t first_private = 0xF000;
constexpr char32_t first_half = 0xF100;  // of the halves of pairs
constexpr char32_t last_private = 0xF8FF;

constexpr bool is_private(char32_t point) {
    return point >= first_private && point <= last_private;
}
constexpr bool is_mapped(char32_t point) {
    return (point >= 0x01 && point <= 0x1F) || point == 0x7F || point == '*';
}
constexpr bool stays(char32_t point) {
    return !is_mapped(point) && !is_private(point) && !is_half(point);
}

void append_mapped(std::string& out, char32_t point) {
    if (is_mapped(point)) return append_code_point(out, first_private + point);
    if (is_half(point)) return append_code_point(out, first_half + (point - 0xD800));
    if (is_private(point)) append_code_point(out, first_private);
    append_code_point(out, point);
}

// The code point that a text has at `at`, with its mapping undone; no_code_point where no name makes it.
char32_t next_unmapped(std::string_view text, std::size_t& at) {
    const char32_t point = next_code_point(text, at);
    // A half in a text of its own is no UTF-8.
    if (point == no_code_point || is_half(point)) return no_code_point;
    if (!is_private(point)) return point;
    if (point == first_private) {
        std::size_t behind = at;
        const char32_t literal = at < text.size() ? next_code_point(text, behind) : no_code_point;
        if (literal == no_code_point || !is_private(literal)) return point;
        at = behind;
        return literal;
    }
    if (point >= first_half) return 0xD800 + (point - first_half);
    return is_mapped(point - first_private) ? point - first_private : point;
}

}  // namespace

void append_text_of(std::string& out, std::wstring_view units) {
    for (std::size_t at = 0; at < units.size();) append_mapped(out, next_code_point(units, at));
}

std::string text_of(std::wstring_view units) {
    std::string text;
    text.reserve(units.size());
    append_text_of(text, units);
    return text;
}

bool units_of(std::string_view text, std::wstring& units) {
    units.clear();
    for (std::size_t at = 0; at < text.size();) {
        const char32_t point = next_unmapped(text, at);
        if (point == no_code_point) {
            units.clear();
            return false;
        }
        append_code_point(units, point);
    }
    return true;
}

std::wstring wide(std::string_view utf8) {
    std::wstring units;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t point = next_code_point(utf8, at);
        append_code_point(units, point == no_code_point ? U'\uFFFD' : point);
    }
    return units;
}

std::string narrow(std::wstring_view units) {
    std::string utf8;
    for (std::size_t at = 0; at < units.size();) {
        const char32_t point = next_code_point(units, at);
        append_code_point(utf8, is_half(point) ? U'\uFFFD' : point);
    }
    return utf8;
}

// The bytes that other programs get to see: UTF-8, and a half that stands alone in the three bytes that it
// would have.

bool needs_mapping(std::string_view raw) {
    for (std::size_t at = 0; at < raw.size();) {
        const char32_t point = next_code_point(raw, at);
        if (point != no_code_point && !stays(point)) return true;
    }
    return false;
}

void append_text(std::string& out, std::string_view raw) {
    for (std::size_t at = 0; at < raw.size();) {
        const std::size_t start = at;
        const char32_t point = next_code_point(raw, at);
        if (point == no_code_point)
            out.append(raw, start, at - start);
        else
            append_mapped(out, point);
    }
}

std::string to_text(std::string_view raw) {
    std::string text;
    text.reserve(raw.size());
    append_text(text, raw);
    return text;
}

bool needs_unmapping(std::string_view text) {
    return to_raw(text) != text;
}

std::string to_raw(std::string_view text) {
    std::string raw;
    raw.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t point = next_unmapped(text, at);
        if (point == no_code_point)
            raw.append(text, start, at - start);
        else
            append_code_point(raw, point);
    }
    return raw;
}

}  // namespace corvane
