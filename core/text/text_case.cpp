#include "core/text/text_case.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>

#include "core/text/utf8.h"

namespace corvane {

namespace {

struct letter_range {
    char32_t first;
    char32_t last;
    std::uint8_t stride;
    std::int32_t delta;
};

constexpr letter_range upper_ranges[] = {
#include "upper_case_table.inc"
};
constexpr letter_range lower_ranges[] = {
#include "lower_case_table.inc"
};

constexpr char32_t apply(const letter_range& range, char32_t letter) {
    if ((letter - range.first) % range.stride != 0) return letter;
    return static_cast<char32_t>(static_cast<std::int32_t>(letter) + range.delta);
}

// Latin, Greek, Cyrillic and Armenian letters are looked up at once.
constexpr std::size_t direct_count = 0x0590;

template <std::size_t count>
constexpr std::array<char16_t, direct_count> direct_table(const letter_range (&ranges)[count]) {
    std::array<char16_t, direct_count> made{};
    for (std::size_t letter = 0; letter < direct_count; ++letter)
        made[letter] = static_cast<char16_t>(letter);
    for (const letter_range& range : ranges) {
        for (char32_t letter = range.first; letter <= range.last && letter < direct_count;
             letter += range.stride) {
            made[letter] = static_cast<char16_t>(apply(range, letter));
        }
    }
    return made;
}

constexpr auto direct_upper = direct_table(upper_ranges);
constexpr auto direct_lower = direct_table(lower_ranges);

struct case_mapping {
    std::span<const letter_range> ranges;
    const std::array<char16_t, direct_count>& direct;
    char first;  // the ASCII letters that change, from `first` on
    int shift;   // what is added to them

    char32_t operator()(char32_t letter) const {
        if (letter < direct_count) return direct[letter];
        // The Chinese, Japanese and Korean letters of most texts.
        if (letter >= 0x2E80 && letter < 0xA600) return letter;
        const auto range = std::lower_bound(
            ranges.begin(), ranges.end(), letter,
            [](const letter_range& candidate, char32_t value) { return candidate.last < value; });
        if (range == ranges.end() || letter < range->first) return letter;
        return apply(*range, letter);
    }
};

constexpr case_mapping to_upper{upper_ranges, direct_upper, 'a', 'A' - 'a'};
constexpr case_mapping to_lower{lower_ranges, direct_lower, 'A', 'a' - 'A'};

// The number of ASCII characters before the first other one.
std::size_t ascii_length(std::string_view utf8) {
    std::size_t length = 0;
    for (; utf8.size() - length >= 8; length += 8) {
        std::uint64_t word;
        std::memcpy(&word, utf8.data() + length, sizeof word);
        if ((word & 0x8080808080808080) != 0) break;
    }
    while (length < utf8.size() && static_cast<std::uint8_t>(utf8[length]) < 0x80) ++length;
    return length;
}

void append_ascii(std::string& out, std::string_view ascii, const case_mapping& mapping) {
    const std::size_t start = out.size();
    out += ascii;
    for (char* letter = out.data() + start; letter != out.data() + out.size(); ++letter) {
        const bool changes = *letter >= mapping.first && *letter <= mapping.first + ('z' - 'a');
        *letter = static_cast<char>(*letter + (changes ? mapping.shift : 0));
    }
}

void append_mapped(std::string& out, std::string_view utf8, const case_mapping& mapping) {
    while (!utf8.empty()) {
        if (const std::size_t length = ascii_length(utf8); length > 0) {
            append_ascii(out, utf8.substr(0, length), mapping);
            utf8.remove_prefix(length);
            continue;
        }
        const utf8_letter decoded = decode_utf8(utf8);
        const std::size_t length = std::max<std::size_t>(1, decoded.length);
        const char32_t mapped = mapping(decoded.letter);
        if (mapped == decoded.letter) {
            out += utf8.substr(0, length);
        } else {
            append_utf8(out, mapped);
        }
        utf8.remove_prefix(length);
    }
}

}  // namespace

char32_t upper_case(char32_t letter) {
    return to_upper(letter);
}

char32_t lower_case(char32_t letter) {
    return to_lower(letter);
}

void append_upper_case(std::string& out, std::string_view utf8) {
    append_mapped(out, utf8, to_upper);
}

void append_lower_case(std::string& out, std::string_view utf8) {
    append_mapped(out, utf8, to_lower);
}

std::string upper_case(std::string_view utf8) {
    std::string upper;
    upper.reserve(utf8.size());
    append_upper_case(upper, utf8);
    return upper;
}

std::string lower_case(std::string_view utf8) {
    std::string lower;
    lower.reserve(utf8.size());
    append_lower_case(lower, utf8);
    return lower;
}

}  // namespace corvane
