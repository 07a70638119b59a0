// Sorting ListView1 by a clicked heading, and what the new order does to the colours.
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "browser/list_acts.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/text_sort.h"

namespace corvane {

using namespace cell_colour;

namespace {

struct sort_key {
    int list_mode;
    const char* header;
    int column;
};

// A column of numbers is ordered by their values, which is the order of texts padded with zeros.
constexpr sort_key sort_keys[] = {
    {0, "序号", 1},       {0, "长度", 2},      {0, "重复文件1", 3}, {0, "重复文件2", 4},  {1, "序号", 1},
    {1, "空目录", 2},     {2, "长度", 2},      {2, "日期", 3},      {2, "不相同文件", 4}, {3, "序号", 1},
    {3, "同名文件名", 2}, {3, "同名文件1", 3}, {3, "同名文件2", 4},
};

// 0: this heading sorts nothing.
int key_column(int list_mode, const std::string& header) {
    for (const sort_key& key : sort_keys)
        if (key.list_mode == list_mode && header == key.header) return key.column;
    return 0;
}

// The rows in ascending order of a column; equal ones keep theirs.
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

// Gray for a first path that stands in the row above. Wipes red and blue from column 3, and from column 4
// where the cell lies inside an archive; other marks of column 4 stay. The difference is meant.
void recolour(list_view& list, bool archives) {
    std::string_view previous;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::string_view path = list.text_cell(row, 3);
        std::uint32_t colour = path == previous ? colour_gray : colour_text;
        previous = path;
        if (archives && is_archive_member(path)) colour = colour_archive;
        list.set_colour(row, 3, colour);
        if (archives && is_archive_member(list.text_cell(row, 4))) list.set_colour(row, 4, colour_archive);
    }
}

}  // namespace

void ListView1_ColumnClick(Tavrel& form) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    const int clicked = form.list_event.column;
    // A task that works on the rows, like a deletion, counts on their order.
    if (form.task_runs()) return;
    if (state.list_mode == 4 || clicked < 0 || clicked >= list.column_count()) return;
    const std::string header = list.columns()[static_cast<std::size_t>(clicked)].header;
    state.sort_descending = header == state.last_sort_column ? -1 : 0;
    const int column = key_column(state.list_mode, header);
    if (column > 0 && column < list.column_count()) {
        std::vector<std::int32_t> order = ascending_rows(list, column);
        if (state.sort_descending) std::reverse(order.begin(), order.end());
        list.reorder(order);
        if (state.list_mode == 0 || state.list_mode == 3) recolour(list, state.list_mode == 0);
    }
    state.last_sort_column = state.sort_descending ? std::string() : header;
}

}  // namespace corvane
