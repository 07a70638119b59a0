// Rewriting the store from the list, and the parts of the view around its rows.
#include <algorithm>
#include <string>

#include "browser/same_view.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

bool rewrite_store(Tavrel& form) {
    constexpr std::int32_t rows_per_status = 101;
    run_state& state = form.state;
    const list_view& list = form.ListView1;
    bar_colours(form, 12632256, 4194368, 255);
    bar_scale(form, state.same_count);
    // One separator more is harmless.
    const std::string path = state.program_dir + form.outside.files.separator() + data_file::same_files;
    line_writer writer(form.outside.files, path);
    writer.line(padded_same_file_title());
    writer.number(state.same_count);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::string_view path1 = list.text_cell(row, 3);
        const std::string_view path2 = list.text_cell(row, 4);
        if (!is_blank(path1) && !is_blank(path2)) {
            writer.line(list.cell(row, 2));
            writer.line(path1);
            writer.line(path2);
        }
        if (row % rows_per_status == 0) form.pic_gressbar1.draw(row);
    }
    if (writer.finish()) return true;
    report_write_failure(form, path, writer.error());
    return false;
}

void layout_list(Tavrel& form) {
    list_view& list = form.ListView1;
    const int width = list.place.width;
    const auto set_width = [&list](int column, int twips) {
        if (column < list.column_count()) list.set_column_width(column, std::max(twips, 0));
    };
    switch (form.state.list_mode) {
        case 0:
            set_width(3, (width - 2100) / 2);
            set_width(4, (width - 2100) / 2);
            break;
        case 1:
            set_width(2, width - 1000);
            break;
        case 2:
            set_width(4, width - 3500 - 450 - 100);
            break;
        default:
            break;
    }
}

}  // namespace corvane
