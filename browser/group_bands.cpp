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
    if (!same_texts || !of_result_) renew_copies(form);
    renew_bands(form);
    return true;
}

// Texts are looked at in the order of the store alone, side by side in memory: what is sorted finds its star
// by numbers.
void group_bands::renew_copies(const Tavrel& form) {
    stars_.clear();
    pairs_.assign(1, 0);
    groups_ = 0;
    of_result_ = false;
    if (shown_.texts == 0 && shown_.order == 0) return;
    const run_state& state = form.state;
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    of_result_ = state.result_file1.size() >= list.row_count() &&
                 state.result_file2.size() >= state.result_file1.size();
    const std::int32_t count = of_result_ ? state.result_file1.size() : list.row_count();
    stars_.assign(static_cast<std::size_t>(count) + 1, 0);
    const auto first = [&](std::int32_t i) {
        return of_result_ ? state.result_file1.entry(i) : list.text_entry(i, view.first_path);
    };
    const auto second = [&](std::int32_t i) {
        return of_result_ ? state.result_file2[i] : list.text_cell(i, view.second_path);
    };
    // All rows of a star stand together there.
    for (std::int32_t start = 1; start <= count;) {
        const char* entry = first(start);
        const std::string_view path = text_arena::text_at(entry);
        std::int32_t end = start;
        std::int32_t pairs = 0;
        for (; end <= count && (first(end) == entry || text_arena::text_at(first(end)) == path); ++end) {
            pairs += !is_blank(path) && !is_blank(second(end));
            stars_[static_cast<std::size_t>(end)] = static_cast<std::int32_t>(pairs_.size());
        }
        pairs_.push_back(pairs);
        groups_ += pairs > 0;
        start = end;
    }
}

std::int32_t group_bands::star_of(const Tavrel& form, std::int32_t row) const {
    const std::int64_t number = of_result_ ? form.ListView1.number_cell(row, number_column) : row;
    return number >= 1 && number < static_cast<std::int64_t>(stars_.size())
               ? stars_[static_cast<std::size_t>(number)]
               : 0;
}

void group_bands::renew_bands(const Tavrel& form) {
    bands_.clear();
    if (shown_.texts == 0 && shown_.order == 0) return;
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    bands_.reserve(static_cast<std::size_t>(list.row_count()));
    std::int32_t above = -1;
    bool second = true;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::int32_t star = star_of(form, row);
        const bool starts = star != above || star == 0;
        if (starts) second = !second;
        bands_.push_back({list.number_cell(row, view.length_column), star, second, starts});
        above = star;
    }
}

bool group_bands::is_second(std::int32_t row) const {
    const auto at = static_cast<std::size_t>(row - 1);
    return at < bands_.size() ? bands_[at].second : row % 2 == 0;
}

group_bands::group_size group_bands::first_row(std::int32_t row) const {
    const auto at = static_cast<std::size_t>(row - 1);
    if (at >= bands_.size() || !bands_[at].starts) return {};
    const std::int32_t pairs = pairs_[static_cast<std::size_t>(bands_[at].star)];
    if (pairs == 0) return {};
    return {pairs + 1, static_cast<double>(bands_[at].length) * pairs};
}

}  // namespace corvane
