#include "reports/export_spreadsheet.h"

#include <string>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/date_text.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"
#include "platform/file_time.h"
#include "reports/cell_text.h"
#include "reports/export_params.h"
#include "reports/text_viewer.h"

namespace corvane {

namespace {

constexpr std::int32_t most_rows = 65'534;  // of a sheet, beside heading and sum

// export_list as the parameters have it, cut at the size of a sheet. False: there is nothing to export, and
// the user knows.
bool prepare_list(Tavrel& form) {
    run_state& state = form.state;
    if (!take_file_list(form)) return false;
    read_export_params(form);
    if (state.export_skip_types.empty() && state.export_levels == 0)
        copy_export_list(form);
    else if (!filter_export_list(form))
        return false;
    if (state.export_count == 0) {
        form.inform("没有符合条件的文件,请重新搜索或重新选择导出参数");
        return false;
    }
    if (state.export_count >= most_rows) {
        form.inform("文件数＝" + std::to_string(state.export_count) +
                    " ,超过excel表的范围，只能转出前65534项");
        state.export_count = most_rows;
    }
    return true;
}

void start_progress(Tavrel& form) {
    const run_state& state = form.state;
    form.StatusBar1.clear_figures();
    bar_colours(form, 0xC0C0C0, 0x400040, 0xFF);
    bar_scale(form, state.export_count);
    form.panel(6, format_elapsed(0, 1));
    form.panel(7, "导出相同文件清单->Excel");
    if (state.export_rate_count > 0) {
        const double estimate = static_cast<double>(state.export_rate_time) /
                                static_cast<double>(state.export_rate_count) *
                                static_cast<double>(state.export_count);
        if (estimate > 0) form.panel(5, "预计:" + format_elapsed(estimate, 1));
    }
    offer_cancel(form, "导出文件清单");
}

// The rows of the sheet. A file that cannot be read repeats the figures of the row before.
class sheet {
  public:
    sheet(Tavrel& form, line_writer& writer) : form_(form), writer_(writer) {}

    void add(std::string_view path) {
        const file_facts facts = form_.outside.files.facts(path);
        if (facts.exists) {
            total_ += facts.length;
            size_ = scaled_size(facts.length, "B");
            date_ = date_text(
                form_.outside.screen.local_date(to_unix_seconds({facts.date_high, facts.date_low})));
            figures_.clear();
            append_size(figures_, size_);
        }
        row_.clear();
        append_cell(row_, path);
        row_.append(1, '\t').append(figures_).append(1, '\t').append(date_);
        writer_.line(row_);
    }
    // Below 1024 the unit of the last file stays.
    void add_total() {
        row_ = "空间总计\t";
        append_size(row_, scaled_size(total_, size_.unit));
        writer_.line(row_);
    }

  private:
    Tavrel& form_;
    line_writer& writer_;
    std::int64_t total_ = 0;
    size_text size_{0, ""};
    std::string figures_, date_, row_;
};

// False: the earlier file is as it was, and the user knows why or wanted it so.
bool write_sheet(Tavrel& form, const std::string& path) {
    run_state& state = form.state;
    const char separator = form.outside.files.separator();
    line_writer writer(form.outside.files, path);
    writer.line("名称\t大小\t创建日期");
    sheet rows(form, writer);
    for (std::int32_t i = 1; i <= state.export_count && !writer.failed(); ++i) {
        const std::string_view entry = state.export_list[i];
        if (!entry.ends_with(separator)) rows.add(entry);
        bar_draw(form, i);
        if (state.quit_requested || state.cancel_task) return false;
    }
    rows.add_total();
    if (finish_file(form, writer)) return true;
    report_write_failure(form, path, writer.error());
    return false;
}

}  // namespace

void Command33_Click(Tavrel& form) {
    task_scope task(form);
    if (!prepare_list(form)) return;
    start_progress(form);
    forget_viewer(form);
    const std::string path = form.data_path(data_file::spreadsheet);
    const bool written = write_sheet(form, path);
    task.close();
    if (written) show_in_viewer(form, path);
}

void open_excel_Click(Tavrel& form) {
    open_beside_program(form, data_file::spreadsheet);
}

}  // namespace corvane
