#include "core/language/translation.h"

#include <algorithm>
#include <cctype>

namespace corvane {

namespace {

constexpr std::string_view blanks = " \t";

// The text without its blanks at both ends; what they were stays with the caller.
std::string_view bare(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

struct text_hole {
    std::size_t at;
    std::size_t length;  // 0: there is none
    char kind;           // 0, 'n' or 't'
};

text_hole next_hole(std::string_view text) {
    for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
        const std::string_view rest = text.substr(at);
        if (rest.starts_with("{}")) return {at, 2, 0};
        if (rest.starts_with("{n}") || rest.starts_with("{t}")) return {at, 3, rest[1]};
    }
    return {text.size(), 0, 0};
}

bool is_figure(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789,.") == std::string_view::npos;
}

// The place of "(&X)" in a caption, before "..." or at its end; npos without one.
std::size_t letter_at(std::string_view caption) {
    if (caption.ends_with("...")) caption.remove_suffix(3);
    const bool there =
        caption.size() > 4 && caption.ends_with(")") && caption.substr(caption.size() - 4, 2) == "(&";
    return there ? caption.size() - 4 : std::string_view::npos;
}

// Marks the letter where the words have it, at the beginning of a word if they can.
std::string with_letter(std::string words, char letter) {
    const auto same = [letter](char unit) {
        return std::toupper(static_cast<unsigned char>(unit)) ==
               std::toupper(static_cast<unsigned char>(letter));
    };
    std::size_t found = std::string::npos;
    for (std::size_t at = 0; at < words.size(); ++at)
        if (same(words[at]) && (at == 0 || words[at - 1] == ' ')) {
            found = at;
            break;
        } else if (same(words[at]) && found == std::string::npos) {
            found = at;
        }
    if (found != std::string::npos) return words.insert(found, 1, '&');
    const std::string mark = std::string(" (&") + letter + ")";
    if (words.ends_with("...")) return words.insert(words.size() - 3, mark);
    return words + mark;
}

}  // namespace

bool holds_chinese(std::string_view text) {
    for (std::size_t at = 0; at + 2 < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        // U+3000 to U+9FFF, and U+FF00 on: three bytes of UTF-8.
        if ((byte >= 0xE3 && byte <= 0xE9) ||
            (byte == 0xEF && static_cast<unsigned char>(text[at + 1]) >= 0xBC))
            return true;
    }
    return false;
}

translation::translation(std::initializer_list<std::span<const translation_row>> tables) {
    for (const auto& table : tables)
        for (const translation_row& row : table) {
            if (next_hole(row.text).length == 0)
                whole_.emplace(row.text, row.translated);
            else
                add_pattern(row);
        }
    const auto fixed = [](const pattern& each) {
        std::size_t all = 0;
        for (const std::string_view piece : each.pieces) all += piece.size();
        return all;
    };
    std::stable_sort(patterns_.begin(), patterns_.end(), [&fixed](const pattern& a, const pattern& b) {
        const std::size_t first_a = a.pieces.front().size();
        const std::size_t first_b = b.pieces.front().size();
        return first_a != first_b ? first_a > first_b : fixed(a) > fixed(b);
    });
}

void translation::add_pattern(const translation_row& row) {
    pattern made;
    made.translated = row.translated;
    std::string_view rest = row.text;
    for (text_hole found = next_hole(rest); found.length != 0; found = next_hole(rest)) {
        made.pieces.push_back(rest.substr(0, found.at));
        made.holes.push_back(found.kind);
        rest.remove_prefix(found.at + found.length);
    }
    made.pieces.push_back(rest);
    patterns_.push_back(std::move(made));
}

bool translation::fit(const pattern& candidate, std::string_view words, std::string& out) const {
    const std::string_view first = candidate.pieces.front();
    const std::string_view last = candidate.pieces.back();
    if (!words.starts_with(first) || !words.ends_with(last) || words.size() < first.size() + last.size())
        return false;
    std::vector<std::string_view> caught;
    std::size_t at = first.size();
    const std::size_t end = words.size() - last.size();
    for (std::size_t piece = 1; piece + 1 < candidate.pieces.size(); ++piece) {
        const std::size_t found = words.find(candidate.pieces[piece], at);
        if (found == std::string_view::npos || found + candidate.pieces[piece].size() > end) return false;
        caught.push_back(words.substr(at, found - at));
        at = found + candidate.pieces[piece].size();
    }
    caught.push_back(words.substr(at, end - at));
    for (std::size_t hole = 0; hole < caught.size(); ++hole)
        if (candidate.holes[hole] == 'n' && !is_figure(caught[hole])) return false;
    std::string_view shape = candidate.translated;
    for (std::size_t hole = 0; hole < caught.size(); ++hole) {
        const text_hole place = next_hole(shape);
        out.append(shape.substr(0, place.at));
        if (place.kind != 't' || !translate_line(caught[hole], out)) out.append(caught[hole]);
        shape.remove_prefix(place.at + place.length);
    }
    out.append(shape);
    return true;
}

bool translation::translate_bare(std::string_view words, std::string& out) const {
    if (const auto found = whole_.find(words); found != whole_.end()) {
        out.append(found->second);
        return true;
    }
    if (const std::size_t letter = letter_at(words); letter != std::string_view::npos) {
        const std::string plain =
            std::string(words.substr(0, letter)) + std::string(words.substr(letter + 4));
        std::string caption;
        if (!translate_bare(plain, caption)) return false;
        out.append(with_letter(std::move(caption), words[letter + 2]));
        return true;
    }
    std::string made;
    for (const pattern& candidate : patterns_)
        if (fit(candidate, words, made)) {
            out.append(made);
            return true;
        }
    return false;
}

// Appends the line with the blanks around it; false leaves `out` as it was.
bool translation::translate_line(std::string_view line, std::string& out) const {
    const std::string_view words = bare(line);
    if (words.empty()) return false;
    const auto before = static_cast<std::size_t>(words.data() - line.data());
    std::string made(line.substr(0, before));
    if (!translate_bare(words, made)) return false;
    made.append(line.substr(before + words.size()));
    out.append(made);
    return true;
}

std::string translation::translated(std::string_view text) const {
    if (!holds_chinese(text)) return std::string(text);
    std::string out;
    if (const auto found = whole_.find(text); found != whole_.end()) return std::string(found->second);
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        std::string_view line = text.substr(at, end - at);
        const bool returns = line.ends_with('\r');
        if (returns) line.remove_suffix(1);
        if (!translate_line(line, out)) out.append(line);
        if (returns) out += '\r';
        if (end < text.size()) out += '\n';
        at = end + 1;
    }
    return out;
}

translation english() {
    return translation(
        {english_windows(), english_menus(), english_messages(), english_reports(), english_status()});
}

}  // namespace corvane
