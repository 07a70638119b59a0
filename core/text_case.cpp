#include "core/text_case.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace corvane {

namespace {

struct letter_range {
    char32_t first;
    char32_t last;
    std::uint8_t stride;
    std::int32_t delta;
};

constexpr letter_range letter_ranges[] = {
#include "upper_case_table.inc"
};

constexpr char32_t apply(const letter_range& range, char32_t letter) {
    if ((letter - range.first) % range.stride != 0) return letter;
    return static_cast<char32_t>(static_cast<std::int32_t>(letter) + range.delta);
}

// Latin, Greek, Cyrillic and Armenian letters are looked up at once.
constexpr std::size_t direct_count = 0x0590;

constexpr auto direct = [] {
    std::array<char16_t, direct_count> made{};
    for (std::size_t letter = 0; letter < direct_count; ++letter)
        made[letter] = static_cast<char16_t>(letter);
    for (const letter_range& range : letter_ranges) {
        for (char32_t letter = range.first; letter <= range.last && letter < direct_count;
             letter += range.stride) {
            made[letter] = static_cast<char16_t>(apply(range, letter));
        }
    }
    return made;
}();

// A letter and the number of its bytes; 0 bytes when there is no valid one.
struct decoded_letter {
    char32_t letter;
    std::size_t length;
};

// `utf8` is not empty.
decoded_letter decode(std::string_view utf8) {
    const auto byte = [&](std::size_t place) { return static_cast<std::uint8_t>(utf8[place]); };
    std::size_t length;
    char32_t letter;
    char32_t least;
    if (byte(0) < 0x80) return {byte(0), 1};
    if ((byte(0) & 0xE0) == 0xC0) {
        length = 2;
        letter = byte(0) & 0x1F;
        least = 0x80;
    } else if ((byte(0) & 0xF0) == 0xE0) {
        length = 3;
        letter = byte(0) & 0x0F;
        least = 0x800;
    } else if ((byte(0) & 0xF8) == 0xF0) {
        length = 4;
        letter = byte(0) & 0x07;
        least = 0x10000;
    } else {
        return {0, 0};
    }
    if (utf8.size() < length) return {0, 0};
    for (std::size_t place = 1; place < length; ++place) {
        if ((byte(place) & 0xC0) != 0x80) return {0, 0};
        letter = letter << 6 | (byte(place) & 0x3F);
    }
    const bool surrogate = letter >= 0xD800 && letter <= 0xDFFF;
    if (letter < least || letter > 0x10FFFF || surrogate) return {0, 0};
    return {letter, length};
}

void append_letter(std::string& out, char32_t letter) {
    const auto add = [&](char32_t byte) { out += static_cast<char>(byte); };
    if (letter < 0x80) {
        add(letter);
    } else if (letter < 0x800) {
        add(0xC0 | letter >> 6);
        add(0x80 | (letter & 0x3F));
    } else if (letter < 0x10000) {
        add(0xE0 | letter >> 12);
        add(0x80 | (letter >> 6 & 0x3F));
        add(0x80 | (letter & 0x3F));
    } else {
        add(0xF0 | letter >> 18);
        add(0x80 | (letter >> 12 & 0x3F));
        add(0x80 | (letter >> 6 & 0x3F));
        add(0x80 | (letter & 0x3F));
    }
}

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

void append_ascii_upper_case(std::string& out, std::string_view ascii) {
    const std::size_t start = out.size();
    out += ascii;
    for (char* letter = out.data() + start; letter != out.data() + out.size(); ++letter) {
        const bool small = *letter >= 'a' && *letter <= 'z';
        *letter = static_cast<char>(*letter - (small ? 'a' - 'A' : 0));
    }
}

// Where two small letters share one upper case (the final sigma, the micro sign), the one that stands among
// its alphabet.
char32_t small_letter(char32_t upper) {
    const letter_range* home = nullptr;
    for (const letter_range& range : letter_ranges) {
        const std::int64_t small = static_cast<std::int64_t>(upper) - range.delta;
        if (small < range.first || small > range.last || (small - range.first) % range.stride != 0) continue;
        if (home == nullptr || range.last - range.first > home->last - home->first) home = &range;
    }
    return home ? static_cast<char32_t>(static_cast<std::int64_t>(upper) - home->delta) : upper;
}

}  // namespace

char32_t upper_case(char32_t letter) {
    if (letter < direct_count) return direct[letter];
    // The Chinese, Japanese and Korean letters of most texts.
    if (letter >= 0x2E80 && letter < 0xA600) return letter;
    const auto range = std::lower_bound(
        std::begin(letter_ranges), std::end(letter_ranges), letter,
        [](const letter_range& candidate, char32_t value) { return candidate.last < value; });
    if (range == std::end(letter_ranges) || letter < range->first) return letter;
    return apply(*range, letter);
}

void append_upper_case(std::string& out, std::string_view utf8) {
    while (!utf8.empty()) {
        if (const std::size_t length = ascii_length(utf8); length > 0) {
            append_ascii_upper_case(out, utf8.substr(0, length));
            utf8.remove_prefix(length);
            continue;
        }
        const decoded_letter decoded = decode(utf8);
        const std::size_t length = std::max<std::size_t>(1, decoded.length);
        const char32_t upper = upper_case(decoded.letter);
        if (upper == decoded.letter) {
            out += utf8.substr(0, length);
        } else {
            append_letter(out, upper);
        }
        utf8.remove_prefix(length);
    }
}

std::string lower_case(std::string_view utf8) {
    std::string lower;
    while (!utf8.empty()) {
        const decoded_letter decoded = decode(utf8);
        const std::size_t length = std::max<std::size_t>(1, decoded.length);
        const char32_t small = decoded.length == 0 ? decoded.letter : small_letter(decoded.letter);
        if (small == decoded.letter)
            lower += utf8.substr(0, length);
        else
            append_letter(lower, small);
        utf8.remove_prefix(length);
    }
    return lower;
}

std::string upper_case(std::string_view utf8) {
    std::string upper;
    upper.reserve(utf8.size());
    append_upper_case(upper, utf8);
    return upper;
}

}  // namespace corvane
