#include "core/text/shown_text.h"

#include "core/text/utf8.h"

namespace corvane {

namespace {

constexpr char lead_byte = '\xEF';
constexpr std::size_t character_length = 3;
constexpr char32_t first_mapped = 0xF001;
constexpr char32_t last_mapped = 0xF07F;
constexpr char32_t delete_sign = 0x7F;

constexpr bool is_control(char32_t sign) {
    return sign < 0x20 || sign == delete_sign;
}

constexpr char32_t picture_of(char32_t control) {
    return control == delete_sign ? 0x2421 : 0x2400 + control;
}

}  // namespace

void append_shown_text(std::string& out, std::string_view text) {
    for (std::size_t from = 0;;) {
        const std::size_t place = text.find(lead_byte, from);
        out.append(text, from, place - from);
        if (place == std::string_view::npos) return;
        const char32_t letter = decode_utf8(text.substr(place)).letter;
        if (letter >= first_mapped && letter <= last_mapped) {
            const char32_t sign = letter - 0xF000;
            append_utf8(out, is_control(sign) ? picture_of(sign) : sign);
            from = place + character_length;
        } else {
            out += lead_byte;
            from = place + 1;
        }
    }
}

std::string shown_text(std::string_view text) {
    std::string shown;
    shown.reserve(text.size());
    append_shown_text(shown, text);
    return shown;
}

std::string typed_as_shown(std::string_view typed) {
    std::string pictured;
    for (const char unit : typed) {
        const auto byte = static_cast<unsigned char>(unit);
        if (is_control(byte))
            append_utf8(pictured, picture_of(byte));
        else
            pictured += unit;
    }
    return shown_text(pictured);
}

}  // namespace corvane
