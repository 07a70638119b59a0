#include "browser/pair_table.h"

#include <algorithm>

#include "browser/list_marks.h"
#include "browser/list_views.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

using namespace cell_colour;

namespace {

std::size_t at(std::int32_t number) {
    return static_cast<std::size_t>(number);
}

void note(pair_table::member_state& member, std::uint32_t colour) {
    member.red |= colour == mark_red;
    member.blue |= colour == mark_blue;
    member.marked = member.red || member.blue;
}

}  // namespace

pair_table::pair_table(const Tavrel& form, marks wanted)
    : groups_(at(std::max(form.ListView1.row_count(), form.state.result_file1.size()))) {
    add_rows(form);
    add_hidden(form);
    groups_.close();
    if (wanted == marks::known) renew_marks(form);
}

void pair_table::add_rows(const Tavrel& form) {
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    if (list.column_count() <= view.second_path) return;
    pairs_.reserve(at(list.row_count()));
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const char* first = list.text_entry(row, view.first_path);
        const char* second = list.text_entry(row, view.second_path);
        if (is_blank(text_arena::text_at(first)) || is_blank(text_arena::text_at(second))) {
            blank_cells_ = true;
            continue;
        }
        const pair_groups::members both = groups_.add(first, second);
        states_.resize(at(groups_.member_count()));
        const std::int64_t length = list.number_cell(row, view.length_column);
        states_[at(both.first)].length = states_[at(both.second)].length = length;
        pairs_.push_back({row, both});
    }
}

void pair_table::add_hidden(const Tavrel& form) {
    const run_state& state = form.state;
    const list_view& list = form.ListView1;
    const std::int32_t count = std::min(state.result_file1.size(), state.result_file2.size());
    if (list.row_count() >= count || list.column_count() <= number_column) return;
    std::vector<char> has_row(at(count) + 1);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::int64_t pair = list.number_cell(row, number_column);
        if (pair >= 1 && pair <= count) has_row[static_cast<std::size_t>(pair)] = 1;
    }
    for (std::int32_t i = 1; i <= count; ++i) {
        if (has_row[at(i)] != 0) continue;
        // What has gone under another filter may be what a shown row still names.
        if (is_blank(state.result_file1[i]) || is_blank(state.result_file2[i])) {
            blank_cells_ = true;
            continue;
        }
        const pair_groups::members both =
            groups_.add(state.result_file1.entry(i), state.result_file2.entry(i));
        states_.resize(at(groups_.member_count()));
        for (const std::int32_t member : {both.first, both.second}) {
            states_[at(member)].length = state.result_length[i];
            states_[at(member)].hidden = true;
        }
        ++hidden_pairs_;
    }
}

void pair_table::renew_marks(const Tavrel& form) {
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    for (member_state& each : states_) each.red = each.blue = each.marked = each.shown = false;
    for (const shown_pair& pair : pairs_) {
        const std::uint32_t first = list.colour(pair.row, view.first_path);
        const std::uint32_t second = list.colour(pair.row, view.second_path);
        member_state& of_first = states_[at(pair.both.first)];
        member_state& of_second = states_[at(pair.both.second)];
        note(of_first, first);
        note(of_second, second);
        of_first.shown |= first != colour_gray;
        of_second.shown |= second != colour_gray;
    }
}

void pair_table::mark(Tavrel& form, const std::vector<char>& chosen) const {
    list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    const auto take = [&](std::int32_t row, int column, std::int32_t member) {
        if (chosen[at(member)] != 0 && list.colour(row, column) != colour_gray)
            list.set_colour(row, column, mark_red);
    };
    for (const shown_pair& pair : pairs_) {
        take(pair.row, view.first_path, pair.both.first);
        take(pair.row, view.second_path, pair.both.second);
    }
}

void pair_table::unmark(Tavrel& form, const std::vector<char>& chosen) const {
    list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    const auto clear = [&](std::int32_t row, int column, std::int32_t member) {
        if (chosen[at(member)] != 0 && list.colour(row, column) == mark_red)
            list.set_colour(row, column, plain_colour(list, row, column));
    };
    for (const shown_pair& pair : pairs_) {
        clear(pair.row, view.first_path, pair.both.first);
        clear(pair.row, view.second_path, pair.both.second);
    }
}

void keep_one_of_each_group(Tavrel& form) {
    const pair_table table(form);
    const pair_groups& groups = table.groups();
    std::vector<char> chosen(at(groups.member_count()));
    bool any = false;
    for (std::int32_t number = 0; number < groups.group_count(); ++number) {
        const auto group = groups.group(number);
        const bool all = std::all_of(group.begin(), group.end(),
                                     [&](std::int32_t member) { return table.state(member).marked; });
        // A blue mark is the record of a refusal and stays.
        const auto red = std::find_if(group.begin(), group.end(), [&](std::int32_t member) {
            return table.state(member).red && !table.state(member).blue;
        });
        if (!all || red == group.end()) continue;
        chosen[at(*red)] = 1;
        any = true;
    }
    if (any) table.unmark(form, chosen);
}

}  // namespace corvane
