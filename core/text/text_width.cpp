#include "core/text/text_width.h"

#include <algorithm>

#include "core/text/utf8.h"

namespace corvane {

namespace {

struct letter_range {
    char32_t first;
    char32_t last;
    std::size_t columns;
};

// Ascending; what is in none of them takes one column.
constexpr letter_range ranges[] = {
    {0x0300, 0x036F, 0},   {0x1100, 0x115F, 2},   {0x200B, 0x200F, 0}, {0x20D0, 0x20F0, 0},
    {0x2E80, 0x303E, 2},   {0x3041, 0x33FF, 2},   {0x3400, 0x4DBF, 2}, {0x4E00, 0x9FFF, 2},
    {0xA000, 0xA4CF, 2},   {0xAC00, 0xD7A3, 2},   {0xF900, 0xFAFF, 2}, {0xFE00, 0xFE0F, 0},
    {0xFE30, 0xFE6F, 2},   {0xFF01, 0xFF60, 2},   {0xFFE0, 0xFFE6, 2}, {0x1F300, 0x1F64F, 2},
    {0x1F900, 0x1F9FF, 2}, {0x20000, 0x3FFFD, 2},
};

std::size_t width_of(char32_t letter) {
    const auto* const range =
        std::lower_bound(std::begin(ranges), std::end(ranges), letter,
                         [](const letter_range& each, char32_t wanted) { return each.last < wanted; });
    return range != std::end(ranges) && range->first <= letter ? range->columns : 1;
}

}  // namespace

std::size_t text_width(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        const utf8_letter next = decode_utf8(text);
        columns += next.length == 0 ? 1 : width_of(next.letter);
        text.remove_prefix(std::max<std::size_t>(next.length, 1));
    }
    return columns;
}

}  // namespace corvane
