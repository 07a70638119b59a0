#include "browser/list_sort.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "browser/list_hint.h"
#include "browser/list_views.h"
#include "browser/rows_aside.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_sort.h"

namespace corvane {

using namespace cell_colour;

namespace {

// The rows in ascending order of a column; equal ones keep theirs. A column of numbers is ordered by their
// values, which is the order of texts padded with zeros.
std::vector<std::int32_t> ascending_rows(const list_view& list, int column) {
    const std::int32_t count = list.row_count();
    std::vector<std::int32_t> order;
    order.reserve(static_cast<std::size_t>(count));
    if (list.columns()[static_cast<std::size_t>(column)].content == cell_content::number) {
        for (std::int32_t row = 1; row <= count; ++row) order.push_back(row);
        std::stable_sort(order.begin(), order.end(), [&](std::int32_t a, std::int32_t b) {
            return list.number_cell(a, column) < list.number_cell(b, column);
        });
        return order;
    }
    std::vector<text_row> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (std::int32_t row = 1; row <= count; ++row) rows.push_back({list.text_entry(row, column), row});
    sort_rows_by_text(rows);
    for (const text_row& row : rows) order.push_back(row.row);
    return order;
}

// What a sort makes of the rows, told by their texts alone.
struct sorted_rows {
    list_view::gathered_rows rows;
    // In that order, where the view is coloured anew: of the first paths, and the rows whose second path lies
    // inside an archive.
    std::vector<std::uint32_t> first_colours;
    std::vector<std::int32_t> second_members;
};

// Gray for a first path that stands in the row above. Wipes red and blue from the first path, and from the
// second where the cell lies inside an archive; other marks of it stay. The difference is meant.
void find_colours(const list_view& list, const list_view_row& view, sorted_rows& sorted) {
    const bool archives = view.colours == sort_colours::repeats_gray_archives_own;
    sorted.first_colours.reserve(sorted.rows.order.size());
    std::string_view previous;
    std::int32_t place = 0;
    for (const std::int32_t row : sorted.rows.order) {
        ++place;
        const std::string_view path = list.text_cell(row, view.first_path);
        std::uint32_t colour = path == previous ? colour_gray : colour_text;
        previous = path;
        if (archives && is_archive_member(path)) colour = colour_archive;
        sorted.first_colours.push_back(colour);
        if (archives && is_archive_member(list.text_cell(row, view.second_path)))
            sorted.second_members.push_back(place);
    }
}

void take_over(list_view& list, const list_view_row& view, sorted_rows& sorted) {
    list.take_over(std::move(sorted.rows));
    if (!sorted.first_colours.empty()) list.set_colours(view.first_path, std::move(sorted.first_colours));
    for (const std::int32_t member : sorted.second_members)
        list.set_colour(member, view.second_path, colour_archive);
}

}  // namespace

void sort_by_column(Tavrel& form, int clicked) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    const list_view_row& view = shown_view(form);
    if (!view.sorts || clicked < 0 || clicked >= list.column_count()) return;
    const std::string header = list.columns()[static_cast<std::size_t>(clicked)].header;
    state.sort_descending = header == state.last_sort_column ? -1 : 0;
    if (view.columns[static_cast<std::size_t>(clicked)].sorts) {
        // Until they have their order the rows are nobody else's; marks may come meanwhile and move along.
        const task_scope task(form);
        sorted_rows sorted;
        look_at_rows_aside(form, [&, descending = state.sort_descending != 0] {
            std::vector<std::int32_t> order = ascending_rows(list, clicked);
            if (descending) std::reverse(order.begin(), order.end());
            sorted.rows = list.gather(std::move(order));
            if (view.colours != sort_colours::stay) find_colours(list, view, sorted);
        });
        if (state.quit_requested) return;
        const std::int32_t marked = list.marked_cells();
        take_over(list, view, sorted);
        note_cleared_marks(form, "排序", marked);
    }
    state.last_sort_column = state.sort_descending ? std::string() : header;
}

}  // namespace corvane
