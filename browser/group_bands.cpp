#include "browser/group_bands.h"

#include <bit>
#include <utility>

#include "browser/list_views.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

std::uint64_t number_of(const char* entry) {
    return static_cast<std::uint64_t>(std::bit_cast<std::uintptr_t>(entry));
}

bool rows_are_result(const Tavrel& form) {
    const run_state& state = form.state;
    return state.result_file1.size() >= form.ListView1.row_count() &&
           state.result_file2.size() >= state.result_file1.size();
}

}  // namespace

walk_progress group_bands::renew(const Tavrel& form, std::int64_t most) {
    const list_revisions present = form.ListView1.revisions();
    if (taken_ == present) return walk_progress::unchanged;
    const bool goes_on = work_.at != stage::idle && work_.of == present;
    if (!goes_on) {
        work_ = {};
        work_.at = stage::signing;
        work_.of = present;
        work_.now.fill = present.fill;
        see_moves(present);
    }
    // The result may have lost its pairs without the list.
    if (work_.at == stage::counting && work_.counted.of_result &&
        (!rows_are_result(form) ||
         static_cast<std::size_t>(form.state.result_file1.size()) + 1 != work_.counted.stars.size()))
        begin_counting(form);
    if (work_.at == stage::signing) {
        if (!sign(form, most)) return walk_progress::on_its_way;
        if (work_.now == shown_) return finish(true);
        const bool same_texts = work_.now.fill == shown_.fill && work_.now.texts == shown_.texts;
        if (same_texts && known_.of_result)
            begin_banding(form);
        else
            begin_counting(form);
    }
    if (work_.at == stage::counting) {
        if (!count(form, most)) return walk_progress::on_its_way;
        begin_banding(form);
    }
    return band(form, most) ? finish(false) : walk_progress::on_its_way;
}

void group_bands::give_up(const list_view& list) {
    work_ = {};
    see_moves(list.revisions());
}

void group_bands::see_moves(const list_revisions& present) {
    moved_ = moved_ || taken_.order != present.order || taken_.fill != present.fill;
}

walk_progress group_bands::finish(bool same) {
    taken_ = work_.of;
    const bool was_moved = std::exchange(moved_, false);
    if (!same) {
        shown_ = work_.now;
        if (work_.counts_anew) known_ = std::move(work_.counted);
        bands_ = std::move(work_.bands);
    }
    work_ = {};
    return same && !was_moved ? walk_progress::unchanged : walk_progress::renewed;
}

// A text that is set anew is another entry.
bool group_bands::sign(const Tavrel& form, std::int64_t& left) {
    const list_view& list = form.ListView1;
    const list_view_row& view = shown_view(form);
    if (!view.holds_copies || list.column_count() <= view.second_path) return true;
    signature& now = work_.now;
    for (; work_.next <= list.row_count() && left > 0; ++work_.next, --left) {
        const std::uint64_t first = number_of(list.text_entry(work_.next, view.first_path));
        const std::uint64_t second = number_of(list.text_entry(work_.next, view.second_path));
        now.texts += ((first * 0x9E3779B97F4A7C15u) ^ second) +
                     static_cast<std::uint64_t>(list.number_cell(work_.next, view.length_column));
        now.order = now.order * 0xFF51AFD7ED558CCDu + first + 1;
    }
    return work_.next > list.row_count();
}

void group_bands::begin_counting(const Tavrel& form) {
    work_.at = stage::counting;
    work_.next = 1;
    work_.counts_anew = true;
    copies& counted = work_.counted;
    counted = {};
    counted.pairs.assign(1, 0);
    if (work_.now.texts == 0 && work_.now.order == 0) return;
    counted.of_result = rows_are_result(form);
    const std::int32_t count =
        counted.of_result ? form.state.result_file1.size() : form.ListView1.row_count();
    counted.stars.assign(static_cast<std::size_t>(count) + 1, 0);
}

// Texts are looked at in the order of the store alone, side by side in memory, where all rows of a star stand
// together: what is sorted finds its star by numbers.
bool group_bands::count(const Tavrel& form, std::int64_t& left) {
    copies& counted = work_.counted;
    const run_state& state = form.state;
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    const auto first = [&](std::int32_t i) {
        return counted.of_result ? state.result_file1.entry(i) : list.text_entry(i, view.first_path);
    };
    const auto second = [&](std::int32_t i) {
        return counted.of_result ? state.result_file2[i] : list.text_cell(i, view.second_path);
    };
    const auto end = static_cast<std::int32_t>(counted.stars.size());
    for (std::int32_t& i = work_.next; i < end && left > 0; ++i, --left) {
        const std::string_view path = text_arena::text_at(first(i));
        const bool goes_on = i > 1 && (first(i) == first(i - 1) || path == text_arena::text_at(first(i - 1)));
        if (!goes_on) counted.pairs.push_back(0);
        counted.stars[static_cast<std::size_t>(i)] = static_cast<std::int32_t>(counted.pairs.size()) - 1;
        if (is_blank(path) || is_blank(second(i))) continue;
        counted.groups += counted.pairs.back() == 0;
        ++counted.pairs.back();
    }
    return work_.next >= end;
}

void group_bands::begin_banding(const Tavrel& form) {
    work_.at = stage::banding;
    work_.next = 1;
    work_.bands.reserve(static_cast<std::size_t>(form.ListView1.row_count()));
}

bool group_bands::band(const Tavrel& form, std::int64_t& left) {
    if (work_.now.texts == 0 && work_.now.order == 0) return true;
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    const copies& known = present();
    for (std::int32_t& row = work_.next; row <= list.row_count() && left > 0; ++row, --left) {
        const std::int64_t number = known.of_result ? list.number_cell(row, number_column) : row;
        const bool has_star = number >= 1 && number < static_cast<std::int64_t>(known.stars.size());
        const std::int32_t star = has_star ? known.stars[static_cast<std::size_t>(number)] : 0;
        const bool follows = !work_.bands.empty() && work_.bands.back().star == star && star != 0;
        const bool second = !work_.bands.empty() && work_.bands.back().second != !follows;
        work_.bands.push_back({list.number_cell(row, view.length_column), star, second, !follows});
    }
    return work_.next > list.row_count();
}

bool group_bands::is_second(std::int32_t row) const {
    const auto at = static_cast<std::size_t>(row - 1);
    return !moved_ && at < bands_.size() ? bands_[at].second : row % 2 == 0;
}

group_bands::group_size group_bands::first_row(std::int32_t row) const {
    const auto at = static_cast<std::size_t>(row - 1);
    if (moved_ || at >= bands_.size() || !bands_[at].starts) return {};
    const auto star = static_cast<std::size_t>(bands_[at].star);
    const std::int32_t pairs = star < known_.pairs.size() ? known_.pairs[star] : 0;
    if (pairs == 0) return {};
    return {pairs + 1, static_cast<double>(bands_[at].length) * pairs};
}

}  // namespace corvane
