#include "browser/group_bands.h"

#include <bit>

#include "browser/list_views.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

std::uint64_t number_of(const char* entry) {
    return static_cast<std::uint64_t>(std::bit_cast<std::uintptr_t>(entry));
}

}  // namespace

bool group_bands::renew(const Tavrel& form) {
    const list_view& list = form.ListView1;
    if (cell_revision_ == list.cell_revision() && layout_revision_ == list.layout_revision()) return false;
    cell_revision_ = list.cell_revision();
    layout_revision_ = list.layout_revision();
    const list_view_row& view = shown_view(form);
    signature now;
    now.fill = list.fill_revision();
    if (view.holds_copies && list.column_count() > view.second_path) {
        // A text that is set anew is another entry.
        for (std::int32_t row = 1; row <= list.row_count(); ++row) {
            const std::uint64_t first = number_of(list.text_entry(row, view.first_path));
            const std::uint64_t second = number_of(list.text_entry(row, view.second_path));
            now.texts += ((first * 0x9E3779B97F4A7C15u) ^ second) +
                         static_cast<std::uint64_t>(list.number_cell(row, view.length_column));
            now.order = now.order * 0xFF51AFD7ED558CCDu + first + 1;
        }
    }
    if (now == shown_) return false;
    const bool same_texts = now.fill == shown_.fill && now.texts == shown_.texts;
    shown_ = now;
    if (!same_texts) renew_copies(form);
    renew_bands(form);
    return true;
}

void group_bands::renew_copies(const Tavrel& form) {
    counts_.clear();
    groups_ = 0;
    if (shown_.texts == 0 && shown_.order == 0) return;
    const run_state& state = form.state;
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    const bool of_result = state.result_file1.size() >= list.row_count() &&
                           state.result_file2.size() >= state.result_file1.size();
    const std::int32_t count = of_result ? state.result_file1.size() : list.row_count();
    counts_.resize(std::bit_ceil(2 * static_cast<std::size_t>(count) + 2));
    const auto first = [&](std::int32_t i) {
        return of_result ? state.result_file1.entry(i) : list.text_entry(i, view.first_path);
    };
    const auto second = [&](std::int32_t i) {
        return of_result ? state.result_file2[i] : list.text_cell(i, view.second_path);
    };
    // Of a path that stands in rows that lie side by side: all rows of a star in the order of the load.
    for (std::int32_t start = 1; start <= count;) {
        const char* entry = first(start);
        const std::string_view path = text_arena::text_at(entry);
        std::int32_t end = start;
        std::int32_t pairs = 0;
        for (; end <= count && (first(end) == entry || text_arena::text_at(first(end)) == path); ++end)
            pairs += !is_blank(path) && !is_blank(second(end));
        for (std::int32_t i = start; i < end; ++i)
            if (i == start || first(i) != first(i - 1)) counts_[place_of(first(i))] = {first(i), pairs};
        groups_ += pairs > 0;
        start = end;
    }
}

void group_bands::renew_bands(const Tavrel& form) {
    bands_.clear();
    rows_.clear();
    if (shown_.texts == 0 && shown_.order == 0) return;
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    bands_.reserve(static_cast<std::size_t>(list.row_count()));
    rows_.reserve(static_cast<std::size_t>(list.row_count()));
    const char* above = nullptr;
    bool second = true;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const char* entry = list.text_entry(row, view.first_path);
        const bool starts =
            above == nullptr || (entry != above && text_arena::text_at(entry) != text_arena::text_at(above));
        if (starts) second = !second;
        bands_.push_back({second, starts});
        rows_.push_back({entry, list.number_cell(row, view.length_column)});
        above = entry;
    }
}

std::size_t group_bands::place_of(const char* entry) const {
    const std::size_t mask = counts_.size() - 1;
    std::size_t place = (number_of(entry) * 0x9E3779B97F4A7C15u >> 20) & mask;
    while (counts_[place].entry != nullptr && counts_[place].entry != entry) place = (place + 1) & mask;
    return place;
}

bool group_bands::is_second(std::int32_t row) const {
    const auto at = static_cast<std::size_t>(row - 1);
    return at < bands_.size() ? bands_[at].second : row % 2 == 0;
}

group_bands::group_size group_bands::first_row(std::int32_t row) const {
    const auto at = static_cast<std::size_t>(row - 1);
    if (at >= bands_.size() || !bands_[at].starts || counts_.empty()) return {};
    const std::int32_t pairs = counts_[place_of(rows_[at].first)].pairs;
    if (pairs == 0) return {};
    return {pairs + 1, static_cast<double>(rows_[at].length) * pairs};
}

}  // namespace corvane
