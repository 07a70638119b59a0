#include "core/text/decoded_text.h"

#include <algorithm>
#include <cstdint>

#include "core/text/utf8.h"

namespace corvane {

namespace {

constexpr char32_t replacement = 0xFFFD;

unsigned byte_at(std::string_view text, std::size_t place) {
    return static_cast<unsigned char>(text[place]);
}

// A control character that no text has.
bool is_binary_sign(char32_t sign) {
    return (sign < 0x20 && sign != '\t' && sign != '\n' && sign != '\r' && sign != '\f' && sign != 0x1B) ||
           sign == 0x7F;
}

// UTF-16 or UTF-32 from behind the mark on. A unit that is broken off at the end is left out.
std::string from_units(std::string_view bytes, std::size_t width, bool big_end) {
    std::string out;
    char32_t high = 0;  // the first half of a letter that takes two units
    for (std::size_t at = 0; at + width <= bytes.size(); at += width) {
        char32_t unit = 0;
        for (std::size_t i = 0; i < width; ++i)
            unit = unit << 8 | byte_at(bytes, at + (big_end ? i : width - 1 - i));
        const bool first = width == 2 && unit >= 0xD800 && unit < 0xDC00;
        const bool second = width == 2 && unit >= 0xDC00 && unit < 0xE000;
        if (high != 0 && !second) append_utf8(out, replacement);
        if (second)
            append_utf8(out, high != 0 ? 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00) : replacement);
        else if (!first)
            append_utf8(out, unit > 0x10FFFF || (unit >= 0xD800 && unit < 0xE000) ? replacement : unit);
        high = first ? unit : 0;
    }
    return out;
}

bool is_valid(std::string_view text, bool cut) {
    if (is_utf8(text)) return true;
    // The last letter may go on behind the head.
    for (std::size_t broken = 1; cut && broken < 4 && broken <= text.size(); ++broken)
        if (byte_at(text, text.size() - broken) >= 0xC0) return is_utf8(text.substr(0, text.size() - broken));
    return false;
}

std::string without_broken_letter(std::string_view text) {
    while (!text.empty() && !is_utf8(text)) text.remove_suffix(1);
    return std::string(text);
}

// `wrong` counts what is no letter.
std::string from_936(std::string_view bytes, bool cut, text_encoding& encodings, std::size_t& wrong) {
    std::string out;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const unsigned lead = byte_at(bytes, at);
        if (lead < 0x80) {
            out += static_cast<char>(lead);
            continue;
        }
        if (at + 1 == bytes.size()) {
            if (!cut) ++wrong;
            if (!cut) append_utf8(out, replacement);
            break;
        }
        const unsigned trail = byte_at(bytes, at + 1);
        // A letter of four bytes, which the code page itself does not have.
        if (lead >= 0x81 && lead <= 0xFE && trail >= 0x30 && trail <= 0x39) {
            if (at + 3 >= bytes.size()) break;
            const unsigned third = byte_at(bytes, at + 2), last = byte_at(bytes, at + 3);
            const bool whole = third >= 0x81 && third <= 0xFE && last >= 0x30 && last <= 0x39;
            const std::uint32_t place =
                (((lead - 0x90) * 10 + trail - 0x30) * 126 + third - 0x81) * 10 + last - 0x30;
            if (!whole) ++wrong;
            append_utf8(out, whole && lead >= 0x90 && place < 0x100000 ? 0x10000 + place : replacement);
            at += whole ? 3 : 0;
            continue;
        }
        const char32_t letter =
            encodings.double_byte_936(static_cast<unsigned char>(lead), static_cast<unsigned char>(trail));
        if (letter == replacement) ++wrong;
        append_utf8(out, letter);
        // A byte that begins no letter stands alone.
        if (letter != replacement || trail >= 0x80) ++at;
    }
    return out;
}

}  // namespace

decoded_text decode_text(std::string_view head, bool cut, text_encoding& encodings) {
    using namespace std::string_view_literals;
    struct mark {
        std::string_view bytes;
        const char* encoding;
        std::size_t width;
        bool big_end;
    };
    static constexpr mark marks[] = {{"\xFF\xFE\0\0"sv, "UTF-32LE", 4, false},
                                     {"\0\0\xFE\xFF"sv, "UTF-32BE", 4, true},
                                     {"\xFF\xFE"sv, "UTF-16LE", 2, false},
                                     {"\xFE\xFF"sv, "UTF-16BE", 2, true}};
    for (const mark& each : marks)
        if (head.starts_with(each.bytes))
            return {true, from_units(head.substr(each.bytes.size()), each.width, each.big_end),
                    each.encoding};
    if (head.starts_with("\xEF\xBB\xBF") && is_valid(head, cut))
        return {true, without_broken_letter(head.substr(3)), "UTF-8 BOM"};
    // Without a mark a few control characters are enough to tell that this is none.
    if (std::any_of(head.begin(), head.end(),
                    [](char sign) { return is_binary_sign(static_cast<unsigned char>(sign)); }))
        return {};
    if (is_valid(head, cut)) {
        const bool plain = std::all_of(head.begin(), head.end(),
                                       [](char sign) { return static_cast<unsigned char>(sign) < 0x80; });
        return {true, without_broken_letter(head), plain ? "ASCII" : "UTF-8"};
    }
    std::size_t wrong = 0;
    std::string text = from_936(head, cut, encodings, wrong);
    // Some letters may be damaged; of random bytes far more are none.
    if (wrong * 20 > head.size()) return {};
    return {true, std::move(text), "GB18030"};
}

std::string first_lines(std::string_view utf8, int most_lines, int longest, bool& shortened) {
    std::string out;
    int line = 1, letters = 0;
    for (std::size_t at = 0; at < utf8.size();) {
        const utf8_letter next = decode_utf8(utf8.substr(at));
        const std::size_t length = std::max<std::size_t>(next.length, 1);
        const bool line_end = utf8[at] == '\n' || utf8[at] == '\r';
        if (line_end) {
            const bool both = utf8[at] == '\r' && at + 1 < utf8.size() && utf8[at + 1] == '\n';
            at += both ? 2 : 1;
            if (++line > most_lines) {
                shortened = shortened || at < utf8.size();
                return out;
            }
            out += '\n';
            letters = 0;
            continue;
        }
        if (++letters > longest)
            shortened = true;
        else if (next.length == 1 && is_binary_sign(static_cast<unsigned char>(utf8[at])))
            out += ' ';
        else
            out.append(utf8.substr(at, length));
        at += length;
    }
    return out;
}

std::string hex_lines(std::string_view bytes) {
    constexpr char figures[] = "0123456789ABCDEF";
    constexpr std::size_t in_line = 16;
    std::string out;
    for (std::size_t from = 0; from < bytes.size(); from += in_line) {
        for (int shift = 28; shift >= 0; shift -= 4) out += figures[from >> shift & 15];
        out += "  ";
        const std::string_view line = bytes.substr(from, in_line);
        for (std::size_t i = 0; i < in_line; ++i) {
            if (i < line.size()) {
                out += figures[byte_at(line, i) >> 4];
                out += figures[byte_at(line, i) & 15];
            } else {
                out += "  ";
            }
            out += i == 7 ? "  " : " ";
        }
        out += ' ';
        for (const char sign : line) out += sign >= 0x20 && sign < 0x7F ? sign : '.';
        out += '\n';
    }
    return out;
}

}  // namespace corvane
