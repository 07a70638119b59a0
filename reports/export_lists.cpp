#include "reports/export_lists.h"

#include <string>
#include <vector>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/file_copy.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"
#include "reports/cell_text.h"
#include "reports/export_params.h"

namespace corvane {

namespace {

outcome copy_beside_events(Tavrel& form, file_reader& source, file_writer& target) {
    outcome copied = copy_bytes(source, target, [&form] { form.yield(); });
    if (!copied) return copied;
    form.work_aside([&target] { target.settle(); });
    return target.commit();
}

// The bytes of one file beside the program become those of another one. False: the failure has been told, and
// the target is as it was.
bool copy_beside_program(Tavrel& form, const std::string& from, const std::string& to) {
    file_system& files = form.outside.files;
    const outcome_with<file_reader> source = files.open_file(from);
    if (!source) {
        report_write_failure(form, from, source.reason);
        return false;
    }
    const outcome_with<file_writer> target = files.replace_file(to);
    const outcome copied =
        target ? copy_beside_events(form, *source, *target) : static_cast<const outcome&>(target);
    if (!copied) report_write_failure(form, to, copied.reason);
    return copied.ok;
}

bool write_paths(Tavrel& form, const std::string& path) {
    run_state& state = form.state;
    if (!filter_export_list(form)) return false;
    offer_cancel(form, "导出文件清单");
    line_writer writer(form.outside.files, path);
    std::string line;
    for (std::int32_t i = 1; i <= state.export_count && !writer.failed(); ++i) {
        line.clear();
        append_name(line, state.export_list[i]);
        writer.line(line);
        form.yield();
        if (state.quit_requested || state.cancel_task) return false;
    }
    if (finish_file(form, writer)) return true;
    report_write_failure(form, path, writer.error());
    return false;
}

void start_words(Tavrel& form, const char* task) {
    form.StatusBar1.clear_figures();
    form.panel(7, task);
}

}  // namespace

void 文件清单_M_Click(Tavrel& form) {
    task_scope task(form);
    start_words(form, "导出文本格式的文件清单");
    read_export_params(form);
    const std::string path = form.data_path(data_file::exported_paths);
    const bool as_stored = !is_blank(form.state.export_skip_types) && form.state.export_levels == 0;
    const bool written = as_stored ? copy_beside_program(form, form.data_path(data_file::file_list), path)
                                   : write_paths(form, path);
    task.close();
    if (written) open_beside_program(form, data_file::exported_paths);
}

void Command8_Click(Tavrel& form) {
    start_words(form, "察看相同文件清单文本");
    open_beside_program(form, data_file::same_files);
}

void Command9_Click(Tavrel& form) {
    start_words(form, "察看相同文件的xls清单");
    const std::string& store = form.state.same_file_path;
    if (!path_exists(form.outside.files, store)) return form.inform(store + "  不存在");
    if (copy_beside_program(form, store, form.data_path(data_file::same_files_spreadsheet)))
        open_beside_program(form, data_file::same_files_spreadsheet);
}

}  // namespace corvane
