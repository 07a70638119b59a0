#include "reports/escaped_text.h"

#include <array>
#include <chrono>
#include <cstdio>

#include "core/text/utf8.h"

namespace corvane {

namespace {

constexpr char hex_digits[] = "0123456789ABCDEF";
constexpr char32_t replacement = 0xFFFD;
// Signs that the program puts in the place of single bytes lie above the first, up to the last.
constexpr char32_t first_mapped = 0xF000;
constexpr char32_t last_mapped = 0xF07F;

void append_hex(std::string& out, std::uint32_t number, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) out += hex_digits[number >> shift & 0xF];
}

// Shows nothing, or changes how what follows is shown: controls, marks of direction, breaks, blanks without
// width.
constexpr bool is_unseen(char32_t letter) {
    return letter < 0x20 || (letter >= 0x7F && letter <= 0x9F) || letter == 0xAD || letter == 0x61C ||
           (letter >= 0x200B && letter <= 0x200F) || (letter >= 0x2028 && letter <= 0x202E) ||
           (letter >= 0x2060 && letter <= 0x206F) || letter == 0xFEFF;
}

// Calls `use` with each letter, or with the byte and a length of 0 where there is none.
template <class Use>
void each_letter(std::string_view bytes, Use use) {
    while (!bytes.empty()) {
        const utf8_letter found = decode_utf8(bytes);
        const std::size_t length = found.length == 0 ? 1 : found.length;
        use(found.length == 0 ? static_cast<unsigned char>(bytes[0]) : found.letter, found.length,
            bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
}

void append_mark(std::string& out, const char* prefix, char32_t number, int digits) {
    out.append("<i>").append(prefix);
    append_hex(out, number, digits);
    out += "</i>";
}

}  // namespace

void append_json_text(std::string& out, std::string_view bytes) {
    out += '"';
    each_letter(bytes, [&out](char32_t letter, std::size_t length, std::string_view unit) {
        if (length == 0) {
            append_utf8(out, replacement);
        } else if (letter == '"' || letter == '\\') {
            out.append(1, '\\').append(unit);
        } else if (letter < 0x20) {
            out += "\\u";
            append_hex(out, letter, 4);
        } else {
            out += unit;
        }
    });
    out += '"';
}

void append_percent_text(std::string& out, std::string_view bytes) {
    constexpr std::string_view plain = "-._~/";
    for (const char unit : bytes) {
        const bool stays = (unit >= '0' && unit <= '9') || (unit >= 'A' && unit <= 'Z') ||
                           (unit >= 'a' && unit <= 'z') || plain.find(unit) != std::string_view::npos;
        if (stays) {
            out += unit;
        } else {
            out += '%';
            append_hex(out, static_cast<unsigned char>(unit), 2);
        }
    }
}

void append_csv_field(std::string& out, std::string_view bytes) {
    if (bytes.find_first_of(",\"\r\n") == std::string_view::npos) {
        out += bytes;
        return;
    }
    out += '"';
    for (const char unit : bytes) {
        if (unit == '"') out += '"';
        out += unit;
    }
    out += '"';
}

void append_html_text(std::string& out, std::string_view text) {
    each_letter(text, [&out](char32_t letter, std::size_t length, std::string_view unit) {
        const char32_t sign = letter > first_mapped && letter <= last_mapped ? letter - first_mapped : letter;
        if (length == 0 || (sign != letter && is_unseen(sign)))
            append_mark(out, "\\x", sign, 2);
        else if (is_unseen(letter))
            append_mark(out, "U+", letter, 4);
        else if (sign == '&')
            out += "&amp;";
        else if (sign == '<')
            out += "&lt;";
        else if (sign == '>')
            out += "&gt;";
        else if (sign == '"')
            out += "&quot;";
        else if (sign != letter)
            append_utf8(out, sign);
        else
            out += unit;
    });
}

std::string iso_time(std::int64_t nanoseconds) {
    using namespace std::chrono;
    // Rounded down, also before 1970.
    const sys_time<seconds> moment(floor<seconds>(std::chrono::nanoseconds(nanoseconds)));
    const sys_days day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(moment - day);
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text.data();
}

}  // namespace corvane
