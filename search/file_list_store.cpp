#include "search/file_list_store.h"

#include <string>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr std::int32_t lines_per_status = 821;

bool write_list(Tavrel& form, const std::string& path, bool cut) {
    line_writer writer(form.outside.files, path);
    for (std::int32_t i = 1; i <= form.state.file_count; ++i) {
        writer.line(cut ? archive_path_of(form.state.file_list[i]) : form.state.file_list[i]);
        if (i % lines_per_status == 0) form.yield();
    }
    if (finish_file(form, writer)) return true;
    report_write_failure(form, path, writer.error());
    return false;
}

}  // namespace

bool write_file_list(Tavrel& form) {
    return write_list(form, form.data_path(data_file::file_list), false);
}
bool write_display_list(Tavrel& form) {
    return write_list(form, form.data_path(data_file::shown_file_list), true);
}

void List1_MouseDown(Tavrel& form) {
    if (form.list_event.button != list_pointer::right_button) return;
    const std::string path = form.data_path(data_file::shown_file_list);
    line_writer writer(form.outside.files, path);
    for (const list_box::row& row : form.List1.rows()) writer.line(row.text);
    if (!writer.finish()) report_write_failure(form, path, writer.error());
}

void Command21_Click(Tavrel& form) {
    if (help_mode_opens(form, 11)) return;
    run_state& state = form.state;
    state.base_time = state.task_start_time = form.outside.screen.seconds();
    form.StatusBar1.clear_figures();
    form.panel(7, "读暂存的文件清单");

    const std::string path = form.data_path(data_file::file_list);
    line_reader reader(form.outside.files, path);
    text_column lines;
    std::string_view line;
    bool full = false;
    while (reader.next(line)) {
        if (lines.size() >= state.limits.files) {
            full = true;
            break;
        }
        lines.push_back(line);
        if (lines.size() % lines_per_status == 0) form.panel(1, "总文件数:" + std::to_string(lines.size()));
        form.yield();
        if (state.quit_requested) return;
    }
    state.file_list = std::move(lines);
    state.file_count = state.file_list.size();
    form.panel(1, "总文件数:" + std::to_string(state.file_count));
    show_elapsed(form);
    if (full) form.inform("文件太多，清单只含前 " + std::to_string(state.file_count) + " 个文件。");

    if (state.file_count == 0) {
        form.complain("没有文件，请重新选择目录,重新搜索", 1009, true);
        form.call(handlers::choose_directories);
        return;
    }
    state.file_len.assign(state.file_count, 0);
    form.ListView1.visible = false;
    form.RichTextBox2.visible = true;
    form.RichTextBox2.load_file(path);
    state.list_sorted_flag = 0;
    form.pic_gressbar1.visible = false;
    form.panel(1, "文件数:" + std::to_string(state.file_count));
    scale_size(state.total_bytes, state.size_unit);
    form.panel(2, "字节:" + group_digits(state.total_bytes) + state.size_unit);
    show_elapsed(form);
}

}  // namespace corvane
