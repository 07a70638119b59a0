// Single code points of UTF-8 and UTF-16. Used by the name mapping and the encoding of data files.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

constexpr bool is_high_half(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool is_low_half(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}
constexpr bool is_half(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}
constexpr char32_t no_code_point = 0xFFFF'FFFF;

// The code point at `at`, which moves behind it; a half of a pair that stands alone is itself.
inline char32_t next_code_point(std::wstring_view units, std::size_t& at) {
    const auto first = static_cast<char32_t>(static_cast<char16_t>(units[at++]));
    if (!is_high_half(first) || at == units.size()) return first;
    const auto second = static_cast<char32_t>(static_cast<char16_t>(units[at]));
    if (!is_low_half(second)) return first;
    ++at;
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

// The same of UTF-8, the shortest form alone; a half of a pair counts as one, in the three bytes that it
// would have. no_code_point, and one byte further, where there is none.
char32_t next_code_point(std::string_view bytes, std::size_t& at);

void append_code_point(std::string& out, char32_t point);
void append_code_point(std::wstring& out, char32_t point);

}  // namespace corvane
