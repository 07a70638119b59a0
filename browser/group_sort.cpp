#include "browser/group_sort.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "browser/list_marks.h"
#include "browser/list_views.h"
#include "browser/pair_table.h"
#include "browser/rows_aside.h"
#include "core/model/main_form.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_format.h"

namespace corvane {

using namespace cell_colour;

namespace {

std::size_t at(std::int32_t number) {
    return static_cast<std::size_t>(number);
}

double freed_by(const pair_table& table, std::int32_t group) {
    const auto members = table.groups().group(group);
    return static_cast<double>(table.state(members.front()).length) * static_cast<double>(members.size() - 1);
}

// Each row's group, by row from 1 on; none for a row with a blank cell.
constexpr std::int32_t none = -1;
std::vector<std::int32_t> groups_of_rows(const Tavrel& form, const pair_table& table) {
    std::vector<std::int32_t> groups(at(form.ListView1.row_count()) + 1, none);
    const std::vector<std::int32_t>& numbers = table.groups().numbers();
    for (const pair_table::shown_pair& pair : table.pairs())
        groups[at(pair.row)] = numbers[at(pair.both.first)];
    return groups;
}

// The most first, what has no group last; in between as they stand.
std::vector<std::int32_t> order_by_freed(const Tavrel& form, const pair_table& table) {
    const std::vector<std::int32_t> groups = groups_of_rows(form, table);
    std::vector<double> freed;
    freed.reserve(at(table.groups().group_count()));
    for (std::int32_t group = 0; group < table.groups().group_count(); ++group)
        freed.push_back(freed_by(table, group));
    std::vector<std::int32_t> order;
    order.reserve(at(form.ListView1.row_count()));
    for (std::int32_t row = 1; row <= form.ListView1.row_count(); ++row) order.push_back(row);
    std::stable_sort(order.begin(), order.end(), [&](std::int32_t a, std::int32_t b) {
        const std::int32_t group_a = groups[at(a)];
        const std::int32_t group_b = groups[at(b)];
        if (group_a == none || group_b == none) return group_a != none && group_b == none;
        if (freed[at(group_a)] != freed[at(group_b)]) return freed[at(group_a)] > freed[at(group_b)];
        return group_a < group_b;
    });
    return order;
}

// The members whose first path is marked somewhere.
std::vector<char> marked_firsts(const Tavrel& form, const pair_table& table) {
    std::vector<char> marked(at(table.groups().member_count()));
    const int first = view_of(list_modes::same_files).first_path;
    for (const pair_table::shown_pair& pair : table.pairs())
        if (form.ListView1.colour(pair.row, first) == mark_red) marked[at(pair.both.first)] = 1;
    return marked;
}

// Gray for a first path that stands in the row above, its mark on the cell that is not gray. A cell that is
// gray no longer gets the colour of its path back. A row of which a file has gone keeps its mark.
void recolour(list_view& list, const std::vector<std::int32_t>& members, const std::vector<char>& marked) {
    const int first = view_of(list_modes::same_files).first_path;
    std::string_view previous;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::string_view path = list.text_cell(row, first);
        const std::int32_t member = members[at(row)];
        if (member != none) {
            const std::uint32_t colour = list.colour(row, first);
            const std::uint32_t own = colour == colour_gray ? plain_colour(list, row, first) : colour;
            const bool repeats = path == previous;
            list.set_colour(row, first, repeats ? colour_gray : marked[at(member)] != 0 ? mark_red : own);
        } else if (list.colour(row, first) == colour_gray && path != previous) {
            list.set_colour(row, first, plain_colour(list, row, first));
        }
        previous = path;
    }
}

}  // namespace

void sort_by_freed_Click(Tavrel& form) {
    if (refuses_hidden_list(form) || !shown_view(form).holds_copies) return;
    list_view& list = form.ListView1;
    // Until they have their order the rows are nobody else's; marks may come meanwhile and move along.
    const task_scope task(form);
    std::optional<pair_table> table;
    list_view::gathered_rows rows;
    std::vector<std::int32_t> moved(at(list.row_count()) + 1, none);  // the member of each row's first path
    look_at_rows_aside(form, [&] {
        table.emplace(form, pair_table::marks::unknown);
        rows = list.gather(order_by_freed(form, *table));
        std::vector<std::int32_t> members(moved);
        for (const pair_table::shown_pair& pair : table->pairs()) members[at(pair.row)] = pair.both.first;
        for (std::size_t place = 0; place < rows.order.size(); ++place)
            moved[place + 1] = members[at(rows.order[place])];
    });
    if (form.state.quit_requested) return;
    const std::vector<char> marked = marked_firsts(form, *table);
    list.take_over(std::move(rows));
    recolour(list, moved, marked);
    // No heading is the sorted one any more.
    form.state.last_sort_column.clear();
    form.state.sort_descending = 0;
}

void group_of_row_Click(Tavrel& form) {
    if (refuses_hidden_list(form) || !shown_view(form).holds_copies) return;
    const std::int32_t row = form.state.clicked_row;
    if (row < 1 || row > form.ListView1.row_count()) return;
    const pair_table table(form);
    const std::int32_t group = groups_of_rows(form, table)[at(row)];
    if (group == none) return;
    form.panel(5, "同组:" + std::to_string(table.groups().group(group).size()) + " 份, 可释放 " +
                      short_size(freed_by(table, group)));
}

}  // namespace corvane
