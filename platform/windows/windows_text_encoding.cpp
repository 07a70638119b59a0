#include "platform/windows/windows_text_encoding.h"

#include <windows.h>

#include <cstddef>

namespace corvane {

namespace {

constexpr char16_t replacement = 0xFFFD;

char16_t convert(unsigned char lead, unsigned char trail) {
    const char pair[] = {static_cast<char>(lead), static_cast<char>(trail)};
    wchar_t units[4];
    // Both bytes in one go, and one character of them, which is none of those that users may define.
    if (MultiByteToWideChar(936, MB_ERR_INVALID_CHARS, pair, 2, units, 4) != 1) return replacement;
    const auto unit = static_cast<char16_t>(units[0]);
    return unit >= 0xE000 && unit <= 0xF8FF ? replacement : unit;
}

}  // namespace

char32_t windows_text_encoding::double_byte_936(unsigned char lead, unsigned char trail) {
    const std::size_t pair = static_cast<std::size_t>(lead) << 8 | trail;
    if (!known_[pair]) {
        characters_[pair] = convert(lead, trail);
        known_[pair] = true;
    }
    return characters_[pair];
}

}  // namespace corvane
