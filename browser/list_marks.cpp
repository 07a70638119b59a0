#include "browser/list_marks.h"

#include <algorithm>
#include <string_view>

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

// Of a cell that is no longer marked.
std::uint32_t plain_colour(const list_view& list, std::int32_t row, int column) {
    return is_archive_member(list.cell(row, column)) ? colour_archive : colour_text;
}

void toggle_in_range(list_view& list, std::int32_t row, int column) {
    const std::uint32_t colour = list.colour(row, column);
    if (colour != colour_gray) list.set_colour(row, column, colour == mark_red ? colour_text : mark_red);
}

void clear_unless_gray(list_view& list, std::int32_t row, int column) {
    if (list.colour(row, column) != colour_gray) list.set_colour(row, column, colour_text);
}

int other_path_column(int column) {
    return column == 3 ? 4 : 3;
}

// The column that a range toggles; 0 where nothing is marked.
int range_column(const Tavrel& form) {
    switch (form.state.list_mode) {
        case 0:
            return form.state.clicked_column;
        case 1:
            return 2;
        case 2:
            return 4;
        default:
            return 0;
    }
}

}  // namespace

path_columns path_columns_of(const Tavrel& form) {
    return form.state.list_mode == 4 ? path_columns{2, 3} : path_columns{3, 4};
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
    const int other = other_path_column(column);
    if (state.list_mode == 0 && has_column(list, other)) {
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
    // The two blanks of the second test are meant: it is not the same as the first.
    if (list.cell(row, 3).compare(" ") <= 0 || list.cell(row, 4).compare("  ") <= 0)
        return form.inform("两边不能都删除,须保留一个");
    const std::uint32_t colour = list.colour(row, column);
    if (colour != colour_gray)
        list.set_colour(row, column, colour == mark_red ? plain_colour(list, row, column) : mark_red);
    list.selected_row = 0;
    if (column == 3)
        list.set_colour(row, 4, plain_colour(list, row, 4));
    else if (list.colour(row, 3) != colour_gray)
        list.set_colour(row, 3, plain_colour(list, row, 3));
}

void mark_single_cell(Tavrel& form, int column) {
    list_view& list = form.ListView1;
    const std::int32_t row = form.state.clicked_row;
    if (has_column(list, column)) toggle_in_range(list, row, column);
    list.selected_row = 0;
}

void all_select_Click(Tavrel& form) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    state.anchor_row = 1;
    const int column = state.clicked_column;
    if (state.list_mode == 0 && (column == 3 || column == 4)) {
        for (std::int32_t row = 1; row <= list.row_count(); ++row) {
            const bool gray = list.colour(row, 3) == colour_gray;
            if (!gray) list.set_colour(row, 3, column == 3 ? mark_red : colour_text);
            list.set_colour(row, 4, column == 3 ? colour_text : mark_red);
        }
    }
    if (state.list_mode == 1 && has_column(list, 2))
        for (std::int32_t row = 1; row <= list.row_count(); ++row) list.set_colour(row, 2, mark_red);
}

void all_not_select_Click(Tavrel& form) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    state.anchor_row = 1;
    int column = 0;
    if (state.list_mode == 0 && (state.clicked_column == 3 || state.clicked_column == 4))
        column = state.clicked_column;
    if (state.list_mode == 1) column = 2;
    if (!has_column(list, column)) return;
    for (std::int32_t row = 1; row <= list.row_count(); ++row)
        if (column != 3 || list.colour(row, 3) != colour_gray) list.set_colour(row, column, colour_text);
}

}  // namespace corvane
