#include "platform/windows/gb18030.h"

#include <windows.h>

#include <cstddef>
#include <optional>

#include "platform/windows/code_points.h"
#include "platform/windows/gb18030_tables.h"

namespace corvane {

namespace {

constexpr char32_t replacement = 0xFFFD;
constexpr UINT code_page = 936;
constexpr char32_t first_far_place = 189'000;  // of U+10000 among the codes of four bytes
constexpr char32_t far_count = 0x100000;

constexpr char byte(char32_t value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}
constexpr unsigned char at(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes[place]);
}

// The place of a code of two bytes in their row: 190 trail bytes a lead byte, without 0x7F.
constexpr char32_t place_of(char32_t code) {
    const char32_t lead = code >> 8, trail = code & 0xFF;
    return (lead - 0x81) * 190 + trail - (trail < 0x7F ? 0x40 : 0x41);
}

void append_double(std::string& out, char32_t place) {
    const char32_t trail = place % 190;
    out += byte(0x81 + place / 190);
    out += byte(trail + (trail < 0x3F ? 0x40 : 0x41));
}

void append_four(std::string& out, char32_t place) {
    out += byte(0x81 + place / 12'600);
    out += byte(0x30 + place / 1'260 % 10);
    out += byte(0x81 + place / 10 % 126);
    out += byte(0x30 + place % 10);
}

std::optional<char32_t> by_code_page(std::string_view bytes) {
    wchar_t units[4];
    if (MultiByteToWideChar(code_page, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                            units, 4) != 1)
        return {};
    return static_cast<char32_t>(static_cast<char16_t>(units[0]));
}

// The standard has given some codes that users may define in the code page to characters of its own.
char32_t double_point(std::string_view pair) {
    const char32_t place = place_of(char32_t{at(pair, 0)} << 8 | at(pair, 1));
    for (const code_run& run : double_byte_runs)
        if (place >= place_of(run.code) && place < place_of(run.code) + run.count)
            return run.point + (place - place_of(run.code));
    return by_code_page(pair).value_or(replacement);
}

char32_t four_point(std::string_view bytes) {
    const char32_t place = ((char32_t{at(bytes, 0)} - 0x81) * 10 + at(bytes, 1) - 0x30) * 1'260 +
                           (char32_t{at(bytes, 2)} - 0x81) * 10 + at(bytes, 3) - 0x30;
    if (place >= first_far_place)
        return place < first_far_place + far_count ? 0x10000 + place - first_far_place : replacement;
    for (const code_run& run : four_byte_runs)
        if (place >= run.code && place < char32_t{run.code} + run.count)
            return run.point + (place - run.code);
    return replacement;
}

constexpr bool is_lead(unsigned char unit) {
    return unit >= 0x81 && unit <= 0xFE;
}
constexpr bool is_digit(unsigned char unit) {
    return unit >= 0x30 && unit <= 0x39;
}

// The character at the start of the bytes, and how many bytes it takes.
char32_t first_point(std::string_view bytes, std::size_t& length) {
    length = 1;
    const unsigned char lead = at(bytes, 0);
    if (lead < 0x80) return lead;
    if (!is_lead(lead)) return by_code_page(bytes.substr(0, 1)).value_or(replacement);
    if (bytes.size() < 2) return replacement;
    const unsigned char second = at(bytes, 1);
    if (is_digit(second)) {
        if (bytes.size() < 4 || !is_lead(at(bytes, 2)) || !is_digit(at(bytes, 3))) return replacement;
        length = 4;
        return four_point(bytes.substr(0, 4));
    }
    if (second < 0x40 || second == 0x7F || second == 0xFF) return replacement;
    length = 2;
    return double_point(bytes.substr(0, 2));
}

// As the code page has it, where that comes back as the same character.
bool append_by_code_page(std::string& out, char32_t point) {
    if (point > 0xFFFF) return false;
    const auto unit = static_cast<wchar_t>(point);
    char bytes[4];
    BOOL is_lost = FALSE;
    const int count =
        WideCharToMultiByte(code_page, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes, 4, nullptr, &is_lost);
    if (count < 1 || is_lost) return false;
    const std::string_view made(bytes, static_cast<std::size_t>(count));
    std::size_t length = 0;
    if (first_point(made, length) != point || length != made.size()) return false;
    out += made;
    return true;
}

void append_point(std::string& out, char32_t point) {
    if (point < 0x80) {
        out += byte(point);
        return;
    }
    if (append_by_code_page(out, point)) return;
    if (point > 0xFFFF) return append_four(out, first_far_place + point - 0x10000);
    for (const code_run& run : double_byte_runs)
        if (point >= run.point && point < char32_t{run.point} + run.count)
            return append_double(out, place_of(run.code) + point - run.point);
    for (const code_run& run : four_byte_runs)
        if (point >= run.point && point < char32_t{run.point} + run.count)
            return append_four(out, char32_t{run.code} + point - run.point);
    append_point(out, replacement);
}

}  // namespace

void gb18030_files::append_bytes(std::string& out, std::string_view text) const {
    for (std::size_t place = 0; place < text.size();) {
        const char32_t point = next_code_point(text, place);
        append_point(out, point == no_code_point || is_half(point) ? replacement : point);
    }
}

void gb18030_files::append_text(std::string& out, std::string_view bytes) const {
    for (std::size_t length = 0; !bytes.empty(); bytes.remove_prefix(length)) {
        const char32_t point = first_point(bytes, length);
        append_code_point(out, is_half(point) ? replacement : point);
    }
}

}  // namespace corvane
