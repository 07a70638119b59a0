#include "compare/column_order.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <numeric>

#include "core/text/text_sort.h"

namespace corvane {

namespace {

// Puts the values of first.. in the order of `old_places`, counted from 0 at `first`.
template <class Values>
void reorder(Values& values, std::int32_t first, const std::vector<std::int32_t>& old_places) {
    const auto range = values.range(first, first + static_cast<std::int32_t>(old_places.size()) - 1);
    std::vector<typename decltype(range)::value_type> moved(old_places.size());
    for (std::size_t i = 0; i < old_places.size(); ++i)
        moved[i] = range[static_cast<std::size_t>(old_places[i])];
    std::copy(moved.begin(), moved.end(), range.begin());
}

// Its memory is wanted elsewhere.
template <class Values>
void give_back(Values& values) {
    values = Values();
}

bool is_identity(const std::vector<std::int32_t>& places) {
    for (std::size_t i = 0; i < places.size(); ++i)
        if (places[i] != static_cast<std::int32_t>(i)) return false;
    return true;
}

bool names_ascend(const text_column& names, std::int32_t first, std::int32_t last) {
    for (std::int32_t i = first + 1; i <= last; ++i)
        if (names[i] < names[i - 1]) return false;
    return true;
}

// The order of the names in the range, by old places counted from `first`.
std::vector<std::int32_t> places_by_name(const text_column& names, std::int32_t first, std::int32_t last) {
    std::vector<text_row> rows;
    rows.reserve(static_cast<std::size_t>(last - first + 1));
    for (std::int32_t i = first; i <= last; ++i) rows.push_back({names.entry(i), i - first});
    sort_rows_by_text(rows);
    std::vector<std::int32_t> places(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) places[i] = rows[i].row;
    return places;
}

// The decimal text of a signature as two numbers that compare as the text does.
struct signature_key {
    std::uint64_t high;
    std::uint32_t low;
    std::int32_t place;
};

signature_key key_of(std::int32_t signature, std::int32_t place) {
    std::array<char, 12> text{};
    std::to_chars(text.data(), text.data() + text.size(), signature);
    signature_key key{0, 0, place};
    for (std::size_t i = 0; i < 8; ++i) key.high = key.high << 8 | static_cast<unsigned char>(text[i]);
    for (std::size_t i = 8; i < 12; ++i) key.low = key.low << 8 | static_cast<unsigned char>(text[i]);
    return key;
}

}  // namespace

void sort_by_length_and_name(file_columns& files) {
    const std::int32_t count = files.file_count;
    if (count < 2) return;
    std::vector<std::int32_t> by_name;  // empty when the names ascend already
    if (!names_ascend(files.file_list, 1, count)) by_name = places_by_name(files.file_list, 1, count);
    const auto place_at = [&](std::int32_t rank) {
        return by_name.empty() ? rank : by_name[static_cast<std::size_t>(rank)];
    };
    // In name order already, so that a stable sort by length leaves names ascending within a length.
    std::vector<std::pair<std::int64_t, std::int32_t>> ranks(static_cast<std::size_t>(count));
    for (std::int32_t rank = 0; rank < count; ++rank)
        ranks[static_cast<std::size_t>(rank)] = {files.file_len[place_at(rank) + 1], rank};
    std::stable_sort(ranks.begin(), ranks.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    files.file_rank.resize(count);
    std::vector<std::int32_t> places(ranks.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        files.file_rank[static_cast<std::int32_t>(i) + 1] = ranks[i].second + 1;
        places[i] = place_at(ranks[i].second);
    }
    give_back(ranks);
    give_back(by_name);

    if (is_identity(places)) return;
    reorder(files.file_list, 1, places);
    reorder(files.file_len, 1, places);
    reorder(files.file_date_hi, 1, places);
    reorder(files.file_date_lo, 1, places);
    reorder(files.file_ok, 1, places);
    reorder(files.file_place, 1, places);
    reorder(files.file_changed, 1, places);
}

std::vector<std::int32_t> sort_group(file_columns& files, std::int32_t first, std::int32_t last) {
    const auto count = static_cast<std::size_t>(last - first + 1);
    std::vector<signature_key> keys;
    keys.reserve(count);
    if (names_ascend(files.file_list, first, last)) {
        for (std::int32_t place = 0; place <= last - first; ++place)
            keys.push_back(key_of(files.file_crc[first + place], place));
    } else {
        for (const std::int32_t place : places_by_name(files.file_list, first, last))
            keys.push_back(key_of(files.file_crc[first + place], place));
    }
    std::stable_sort(keys.begin(), keys.end(), [](const signature_key& a, const signature_key& b) {
        return a.high != b.high ? a.high < b.high : a.low < b.low;
    });
    std::vector<std::int32_t> places(count);
    for (std::size_t i = 0; i < count; ++i) places[i] = keys[i].place;
    if (is_identity(places)) return places;
    reorder(files.file_list, first, places);
    reorder(files.file_date_hi, first, places);
    reorder(files.file_date_lo, first, places);
    reorder(files.file_crc, first, places);
    reorder(files.file_bad, first, places);
    reorder(files.file_ok, first, places);
    reorder(files.file_place, first, places);
    reorder(files.file_changed, first, places);
    if (!files.file_rank.empty()) reorder(files.file_rank, first, places);
    if (!files.contents_known.numbers.empty()) reorder(files.contents_known.numbers, first, places);
    if (!files.file_start_crc.empty()) reorder(files.file_start_crc, first, places);
    return places;
}

std::vector<std::int32_t> places_by_rank(const file_columns& files) {
    if (files.file_rank.size() != files.file_count) return {};
    std::vector<std::int32_t> places(static_cast<std::size_t>(files.file_count));
    for (std::int32_t i = 1; i <= files.file_count; ++i)
        places[static_cast<std::size_t>(files.file_rank[i] - 1)] = i - 1;
    return places;
}

namespace {

// The ranks are those of the entries with all their fields: the texts of an archive's members are cut since.
// Of a path that is listed twice they do not tell the order either.
bool ascends_strictly(const text_column& names, const std::vector<std::int32_t>& places) {
    for (std::size_t i = 1; i < places.size(); ++i)
        if (names[places[i] + 1] <= names[places[i - 1] + 1]) return false;
    return !places.empty();
}

}  // namespace

void sort_by_name(file_columns& files) {
    if (files.file_count < 2) return;
    std::vector<std::int32_t> places = places_by_rank(files);
    if (!ascends_strictly(files.file_list, places))
        places = places_by_name(files.file_list, 1, files.file_count);
    give_back(files.file_rank);
    if (is_identity(places)) return;
    reorder(files.file_list, 1, places);
    reorder(files.file_len, 1, places);
    reorder(files.file_date_hi, 1, places);
    reorder(files.file_date_lo, 1, places);
    reorder(files.file_crc, 1, places);
    if (!files.file_start_crc.empty()) reorder(files.file_start_crc, 1, places);
}

}  // namespace corvane
