#include "browser/keep_rules.h"

#include <algorithm>
#include <cctype>

#include "core/archives/archive_entry.h"
#include "core/text/text_case.h"

namespace corvane {

namespace {

using copies_view = std::span<const rule_copy>;

std::size_t letters(std::string_view path) {
    return static_cast<std::size_t>(
        std::count_if(path.begin(), path.end(), [](char unit) { return (unit & 0xC0) != 0x80; }));
}

// What stays where a rule leaves several: the shortest path, then the first by code.
bool is_plainer(const rule_copy& a, const rule_copy& b) {
    const std::size_t length_a = letters(a.path);
    const std::size_t length_b = letters(b.path);
    return length_a != length_b ? length_a < length_b : a.path < b.path;
}

// The first by `before`, ties by the plainest path.
template <class Before>
const rule_copy* first_by(copies_view copies, Before before) {
    const rule_copy* first = nullptr;
    for (const rule_copy& each : copies)
        if (first == nullptr || before(each, *first) || (!before(*first, each) && is_plainer(each, *first)))
            first = &each;
    return first;
}

// Copies without a date stay: nobody can say that they are older or newer.
void keep_by_date(copies_view copies, std::vector<std::int32_t>& kept, bool newest) {
    const rule_copy* first = nullptr;
    for (const rule_copy& each : copies) {
        if (each.date == rule_copy::unknown_date) continue;
        const bool leads = first != nullptr && (newest ? each.date > first->date : each.date < first->date);
        if (first == nullptr || leads || (each.date == first->date && is_plainer(each, *first)))
            first = &each;
    }
    if (first == nullptr) return;
    for (const rule_copy& each : copies)
        if (&each == first || each.date == rule_copy::unknown_date) kept.push_back(each.member);
}

void keep_newest(const rule_input&, copies_view copies, std::vector<std::int32_t>& kept) {
    keep_by_date(copies, kept, true);
}

void keep_oldest(const rule_input&, copies_view copies, std::vector<std::int32_t>& kept) {
    keep_by_date(copies, kept, false);
}

void keep_shortest(const rule_input&, copies_view copies, std::vector<std::int32_t>& kept) {
    kept.push_back(first_by(copies, is_plainer)->member);
}

void keep_longest(const rule_input&, copies_view copies, std::vector<std::int32_t>& kept) {
    const auto longer = [](const rule_copy& a, const rule_copy& b) {
        return letters(a.path) > letters(b.path);
    };
    kept.push_back(first_by(copies, longer)->member);
}

void keep_fullest_folder(const rule_input&, copies_view copies, std::vector<std::int32_t>& kept) {
    const auto fuller = [](const rule_copy& a, const rule_copy& b) { return a.neighbours > b.neighbours; };
    kept.push_back(first_by(copies, fuller)->member);
}

void keep_by_folders(const rule_input& input, copies_view copies, std::vector<std::int32_t>& kept) {
    for (const std::string& folder : input.folders) {
        const rule_copy* first = nullptr;
        for (const rule_copy& each : copies)
            if (each.path.starts_with(folder) && (first == nullptr || is_plainer(each, *first)))
                first = &each;
        if (first == nullptr) continue;
        return kept.push_back(first->member);
    }
}

// Only what is named as a copy goes; where all are, one stays.
void keep_own_names(const rule_input& input, copies_view copies, std::vector<std::int32_t>& kept) {
    for (const rule_copy& each : copies)
        if (!is_named_as_copy(each.path, input.separator)) kept.push_back(each.member);
    if (kept.empty()) keep_shortest(input, copies, kept);
}

bool is_letter(char unit) {
    const auto code = static_cast<unsigned char>(unit);
    return code < 0x80 && std::isalnum(code) != 0;
}

bool holds_word(std::string_view text, std::string_view word) {
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1)) {
        const std::size_t end = at + word.size();
        if ((at == 0 || !is_letter(text[at - 1])) && (end == text.size() || !is_letter(text[end])))
            return true;
    }
    return false;
}

// "(1)" at its end; a year in brackets is none.
bool ends_with_number(std::string_view stem) {
    if (stem.empty() || stem.back() != ')') return false;
    const std::size_t open = stem.rfind('(');
    if (open == std::string_view::npos) return false;
    const std::string_view number = stem.substr(open + 1, stem.size() - open - 2);
    return !number.empty() && number.size() <= 3 &&
           std::all_of(number.begin(), number.end(), [](char unit) { return unit >= '0' && unit <= '9'; });
}

}  // namespace

std::span<const keep_rule> keep_rules() {
    static constexpr keep_rule rules[] = {
        {"keep_newest", "保留最新的", true, false, false, keep_newest},
        {"keep_oldest", "保留最旧的", true, false, false, keep_oldest},
        {"keep_shortest", "保留路径最短的", false, false, false, keep_shortest},
        {"keep_longest", "保留路径最长的", false, false, false, keep_longest},
        {"keep_fullest_folder", "保留同组最多的目录里的", false, false, true, keep_fullest_folder},
        {"keep_by_folders", "按目录次序保留", false, true, false, keep_by_folders},
        {"mark_copy_names", "标记名称像副本的", false, false, false, keep_own_names},
    };
    return rules;
}

bool is_named_as_copy(std::string_view path, char separator) {
    const bool is_entry = is_archive_member(path);
    if (is_entry) path = path.substr(archive_path_of(path).size() + 1);
    const std::size_t cut = is_entry ? path.find_last_of("/\\") : path.rfind(separator);
    std::string_view stem = cut == std::string_view::npos ? path : path.substr(cut + 1);
    const std::size_t dot = stem.rfind('.');
    if (dot != std::string_view::npos && dot > 0) stem = stem.substr(0, dot);
    while (stem.ends_with(' ')) stem.remove_suffix(1);
    if (ends_with_number(stem) || stem.find("副本") != std::string_view::npos) return true;
    const std::string upper = upper_case(stem);
    return holds_word(upper, "COPY") ||
           (holds_word(upper, "KOPIE") && upper.find("- KOPIE") != std::string::npos);
}

}  // namespace corvane
