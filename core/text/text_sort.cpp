#include "core/text/text_sort.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

namespace corvane {

namespace {

struct keyed_row {
    std::uint64_t key;  // eight bytes of the text at the current depth, big-endian, filled up with 0
    text_row row;
};

std::uint64_t key_at(const char* entry, std::size_t depth) {
    const std::string_view text = text_arena::text_at(entry);
    if (text.size() <= depth) return 0;
    const std::size_t rest = text.size() - depth;
    std::uint64_t key = 0;
    std::memcpy(&key, text.data() + depth, std::min<std::size_t>(rest, sizeof key));
    if constexpr (std::endian::native == std::endian::little) {
        key = ((key & 0x00000000FFFFFFFFu) << 32) | (key >> 32);
        key = ((key & 0x0000FFFF0000FFFFu) << 16) | ((key >> 16) & 0x0000FFFF0000FFFFu);
        key = ((key & 0x00FF00FF00FF00FFu) << 8) | ((key >> 8) & 0x00FF00FF00FF00FFu);
    }
    return key;
}

std::size_t common_prefix(std::span<const text_row> rows) {
    std::string_view prefix = text_arena::text_at(rows.front().entry);
    for (const text_row& row : rows) {
        const std::string_view text = text_arena::text_at(row.entry);
        if (text.starts_with(prefix)) continue;
        const auto differ = std::mismatch(prefix.begin(), prefix.end(), text.begin(), text.end()).first;
        prefix = prefix.substr(0, static_cast<std::size_t>(differ - prefix.begin()));
        if (prefix.empty()) break;
    }
    return prefix.size();
}

bool in_order(std::span<const text_row> rows) {
    for (std::size_t i = 1; i < rows.size(); ++i)
        if (text_arena::text_at(rows[i].entry) < text_arena::text_at(rows[i - 1].entry)) return false;
    return true;
}

void sort_small(std::span<text_row> rows) {
    std::stable_sort(rows.begin(), rows.end(), [](const text_row& a, const text_row& b) {
        return text_arena::text_at(a.entry) < text_arena::text_at(b.entry);
    });
}

struct pending_range {
    std::size_t first;
    std::size_t count;
    std::size_t depth;
};

// Sorts one range by the key at its depth and queues the runs that this leaves undecided. An explicit queue,
// because texts of many equal bytes would go as deep as they are long.
void sort_range(std::span<text_row> rows, std::size_t offset, std::size_t depth,
                std::vector<keyed_row>& keyed, std::vector<pending_range>& pending) {
    keyed.clear();
    for (const text_row& row : rows) keyed.push_back({key_at(row.entry, depth), row});
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const keyed_row& a, const keyed_row& b) { return a.key < b.key; });
    for (std::size_t start = 0; start < keyed.size();) {
        std::size_t end = start + 1;
        while (end < keyed.size() && keyed[end].key == keyed[start].key) ++end;
        if (end - start > 1) {
            // Texts that end within these eight bytes stand before those that go on, the shorter first.
            const auto length = [&](const keyed_row& a) { return text_arena::text_at(a.row.entry).size(); };
            const std::size_t stop = depth + sizeof(std::uint64_t);
            const auto first = keyed.begin() + static_cast<std::ptrdiff_t>(start);
            const auto last = keyed.begin() + static_cast<std::ptrdiff_t>(end);
            std::stable_sort(first, last, [&](const keyed_row& a, const keyed_row& b) {
                return std::min(length(a), stop + 1) < std::min(length(b), stop + 1);
            });
            const auto open = std::find_if(first, last, [&](const keyed_row& a) { return length(a) > stop; });
            if (last - open > 1)
                pending.push_back({offset + static_cast<std::size_t>(open - keyed.begin()),
                                   static_cast<std::size_t>(last - open), stop});
        }
        start = end;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = keyed[i].row;
}

}  // namespace

void sort_rows_by_text(std::span<text_row> rows) {
    if (rows.size() < 2 || in_order(rows)) return;
    std::vector<keyed_row> keyed;
    std::vector<pending_range> pending{{0, rows.size(), common_prefix(rows)}};
    keyed.reserve(rows.size());
    while (!pending.empty()) {
        const pending_range range = pending.back();
        pending.pop_back();
        const std::span<text_row> part = rows.subspan(range.first, range.count);
        if (range.count < 24) {
            sort_small(part);
            continue;
        }
        // A run of one directory shares far more than eight bytes.
        const std::size_t depth = std::max(range.depth, common_prefix(part));
        sort_range(part, range.first, depth, keyed, pending);
    }
}

void sort_text_array(text_column& array, double low, double high) {
    if (!(low < high)) return;
    const auto first = static_cast<std::int32_t>(low);
    const auto last = static_cast<std::int32_t>(high);
    std::vector<text_row> rows;
    rows.reserve(static_cast<std::size_t>(last - first + 1));
    for (std::int32_t i = first; i <= last; ++i) rows.push_back({array.entry(i), i});
    sort_rows_by_text(rows);
    for (std::int32_t i = first; i <= last; ++i)
        array.set_entry(i, rows[static_cast<std::size_t>(i - first)].entry);
}

namespace {

// (a + b) / 2 rounded to the nearest whole number, ties to even.
std::int32_t middle_of(std::int32_t a, std::int32_t b) {
    const std::int64_t sum = std::int64_t{a} + b;
    std::int64_t half = sum >> 1;
    if ((sum & 1) != 0 && (half & 1) != 0) ++half;
    return static_cast<std::int32_t>(half);
}

}  // namespace

search_result find_text(const text_column& column, std::string_view key, std::int32_t low,
                        std::int32_t high) {
    if (low > high) return {0, high};
    while (low <= high) {
        const std::int32_t middle = middle_of(low, high);
        const int order = key.compare(column[middle]);
        if (order == 0) return {middle, high};
        if (order < 0)
            high = middle - 1;
        else
            low = middle + 1;
    }
    return {-1, high};
}

search_result find_text_near(const text_column& column, std::string_view key, std::int32_t low,
                             std::int32_t high) {
    std::int32_t end = low;
    for (std::int64_t step = 1; end < high && key.compare(column[end]) > 0; step *= 2) {
        low = end + 1;
        end = static_cast<std::int32_t>(std::min<std::int64_t>(high, end + step));
    }
    return find_text(column, key, low, std::min(end, high));
}

}  // namespace corvane
