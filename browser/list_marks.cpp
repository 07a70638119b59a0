#include "browser/list_marks.h"

#include <algorithm>
#include <string_view>

#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"

namespace corvane {

using namespace cell_colour;

namespace {

constexpr std::int32_t rows_per_status = 100;

bool has_column(const list_view& list, int column) {
    return column >= 1 && column < list.column_count();
}

void toggle_in_range(list_view& list, std::int32_t row, int column) {
    const std::uint32_t colour = list.colour(row, column);
    if (colour != colour_gray) list.set_colour(row, column, colour == mark_red ? colour_text : mark_red);
}

void clear_unless_gray(list_view& list, std::int32_t row, int column) {
    if (list.colour(row, column) != colour_gray) list.set_colour(row, column, colour_text);
}

int other_path_column(const list_view_row& view, int column) {
    return column == view.first_path ? view.second_path : view.first_path;
}

// The column that a range toggles; 0 where nothing is marked.
int range_column(const Tavrel& form) {
    const list_view_row& view = shown_view(form);
    if (view.marks == mark_rule::pairs) return form.state.clicked_column;
    return view.marks == mark_rule::single ? view.first_path : 0;
}

}  // namespace

std::uint32_t plain_colour(const list_view& list, std::int32_t row, int column) {
    return is_archive_member(list.text_cell(row, column)) ? colour_archive : colour_text;
}

void mark_range(Tavrel& form) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    const std::int32_t current = state.clicked_row;
    if (state.anchor_row == 0 || current == 0) return;
    // The anchor may stem from a longer list that has been loaded anew since.
    const std::int32_t first = std::min({state.anchor_row, current, list.row_count()});
    const std::int32_t last = std::min(std::max(state.anchor_row, current), list.row_count());
    if (first == last) return;
    state.anchor_row = first;
    state.base_time = form.outside.screen.seconds();
    const std::int32_t count = last - first + 1;
    const auto show_status = [&](std::int32_t row) {
        if (count > rows_per_status && (row - first + 1) % rows_per_status == 0) show_elapsed(form);
    };
    const int column = range_column(form);
    const list_view_row& view = shown_view(form);
    const int other = other_path_column(view, column);
    if (view.marks == mark_rule::pairs && has_column(list, other)) {
        for (std::int32_t row = first; row <= last; ++row) {
            clear_unless_gray(list, row, other);
            show_status(row);
        }
    }
    if (has_column(list, column)) {
        for (std::int32_t row = first; row <= last; ++row) {
            toggle_in_range(list, row, column);
            show_status(row);
        }
    }
    list.selected_row = 0;
    form.pic_gressbar1.visible = false;
    show_elapsed(form);
}

void mark_pair_cell(Tavrel& form) {
    list_view& list = form.ListView1;
    const std::int32_t row = form.state.clicked_row;
    const int column = form.state.clicked_column;
    const list_view_row& view = shown_view(form);
    const int first = view.first_path;
    const int second = view.second_path;
    // The two blanks of the second test are meant: it is not the same as the first.
    if (list.cell(row, first).compare(" ") <= 0 || list.cell(row, second).compare("  ") <= 0)
        return form.inform("两边不能都删除,须保留一个");
    const std::uint32_t colour = list.colour(row, column);
    if (colour != colour_gray)
        list.set_colour(row, column, colour == mark_red ? plain_colour(list, row, column) : mark_red);
    list.selected_row = 0;
    if (column == first)
        list.set_colour(row, second, plain_colour(list, row, second));
    else if (list.colour(row, first) != colour_gray)
        list.set_colour(row, first, plain_colour(list, row, first));
}

void mark_single_cell(Tavrel& form, int column) {
    list_view& list = form.ListView1;
    const std::int32_t row = form.state.clicked_row;
    if (has_column(list, column)) toggle_in_range(list, row, column);
    list.selected_row = 0;
}

void all_select_Click(Tavrel& form) {
    if (refuses_hidden_list(form)) return;
    run_state& state = form.state;
    list_view& list = form.ListView1;
    const list_view_row& view = shown_view(form);
    state.anchor_row = 1;
    if (!view.marks_all) return;
    const int first = view.first_path;
    if (view.marks == mark_rule::single) {
        if (!has_column(list, first)) return;
        for (std::int32_t row = 1; row <= list.row_count(); ++row) list.set_colour(row, first, mark_red);
        return;
    }
    const int second = view.second_path;
    if (state.clicked_column != first && state.clicked_column != second) return;
    const bool marks_first = state.clicked_column == first;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const bool gray = list.colour(row, first) == colour_gray;
        if (!gray) list.set_colour(row, first, marks_first ? mark_red : colour_text);
        list.set_colour(row, second, marks_first ? colour_text : mark_red);
    }
}

void all_not_select_Click(Tavrel& form) {
    if (refuses_hidden_list(form)) return;
    run_state& state = form.state;
    list_view& list = form.ListView1;
    const list_view_row& view = shown_view(form);
    state.anchor_row = 1;
    if (!view.marks_all) return;
    const bool pairs = view.marks == mark_rule::pairs;
    const int column = pairs ? state.clicked_column : view.first_path;
    if ((column != view.first_path && column != view.second_path) || !has_column(list, column)) return;
    for (std::int32_t row = 1; row <= list.row_count(); ++row)
        if (!pairs || column != view.first_path || list.colour(row, column) != colour_gray)
            list.set_colour(row, column, colour_text);
}

}  // namespace corvane
