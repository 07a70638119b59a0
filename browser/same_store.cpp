#include "browser/same_store.h"

#include <string>

#include "browser/list_views.h"
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
    const list_view_row& view = view_of(list_modes::same_files);
    bar_colours(form, 12632256, 4194368, 255);
    bar_scale(form, state.same_count);
    // One separator more is harmless.
    const std::string path = state.program_dir + form.outside.files.separator() + data_file::same_files;
    line_writer writer(form.outside.files, path);
    writer.line(padded_same_file_title());
    writer.number(state.same_count);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        const std::string_view path1 = list.text_cell(row, view.first_path);
        const std::string_view path2 = list.text_cell(row, view.second_path);
        if (!is_blank(path1) && !is_blank(path2)) {
            writer.line(list.cell(row, view.length_column));
            writer.line(path1);
            writer.line(path2);
        }
        if (row % rows_per_status == 0) form.pic_gressbar1.draw(row);
    }
    if (writer.finish()) return true;
    report_write_failure(form, path, writer.error());
    return false;
}

}  // namespace corvane
