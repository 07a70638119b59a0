#include "reports/cell_text.h"

#include <algorithm>

#include "core/text/text_format.h"
#include "core/text/utf8.h"

namespace corvane {

namespace {

constexpr std::int64_t kilobyte = 1024;
constexpr unsigned char lead_of_mapped = 0xEF;
constexpr unsigned delete_byte = 0x7F;
// What stands in a text for the byte n of a name is the character first_mapped + n; before a character of
// this range that the name itself holds stands the first one.
constexpr char32_t first_mapped = 0xF000;
constexpr char32_t last_mapped = 0xF0FF;

constexpr bool is_control(unsigned byte) {
    return byte < 0x20 || byte == delete_byte;
}

bool is_suspect(char unit) {
    const auto byte = static_cast<unsigned char>(unit);
    return is_control(byte) || byte == lead_of_mapped;
}

void append_byte(std::string& out, unsigned byte) {
    if (byte == delete_byte)
        append_utf8(out, 0x2421);
    else if (is_control(byte))
        append_utf8(out, 0x2400 + byte);
    else
        out += static_cast<char>(byte);
}

// Appends the character at the start of `text`, and returns the bytes that it takes.
std::size_t append_character(std::string& out, std::string_view text) {
    const auto byte = static_cast<unsigned char>(text.front());
    const auto [letter, length] = decode_utf8(text);
    if (byte == lead_of_mapped && length > 0 && letter >= first_mapped && letter <= last_mapped) {
        const std::string_view behind = text.substr(length);
        const utf8_letter own = behind.empty() ? utf8_letter{0, 0} : decode_utf8(behind);
        if (letter == first_mapped && own.letter >= first_mapped && own.letter <= last_mapped) {
            out += behind.substr(0, own.length);
            return length + own.length;
        }
        const auto mapped = static_cast<unsigned>(letter - first_mapped);
        if (mapped != 0 && (is_control(mapped) || mapped == '*')) {
            append_byte(out, mapped);
            return length;
        }
    }
    append_byte(out, byte);
    return 1;
}

}  // namespace

void append_name(std::string& out, std::string_view text) {
    if (std::none_of(text.begin(), text.end(), is_suspect)) {
        out += text;
        return;
    }
    while (!text.empty()) text.remove_prefix(append_character(out, text));
}

void append_cell(std::string& out, std::string_view text) {
    if (!text.starts_with('"')) return append_name(out, text);
    std::string shown;
    append_name(shown, text);
    out += '"';
    for (const char unit : shown) {
        if (unit == '"') out += '"';
        out += unit;
    }
    out += '"';
}

size_text scaled_size(std::int64_t bytes, const char* unit) {
    if (bytes < kilobyte) return {bytes, unit};
    // The whole part of (bytes + 1) / 1024 + 0.5, without the rounding of a fraction.
    return {(bytes - kilobyte + 1 + kilobyte / 2) / kilobyte + 1, "KB"};
}

void append_size(std::string& out, const size_text& size) {
    out.append(group_digits(static_cast<double>(size.value))).append(1, ' ').append(size.unit);
}

}  // namespace corvane
