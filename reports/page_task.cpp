#include "reports/page_task.h"

#include <functional>
#include <string>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "reports/result_page.h"

namespace corvane {

void write_and_open_page(Tavrel& form, const std::string& version) {
    if (help_mode_opens(form, 15)) return;
    run_state& state = form.state;
    if (state.program_dir_locked) return form.complain(state.program_dir + "\r\n程序目录不能写入。");
    const std::string path = form.data_path(data_file::result_page);
    {
        const task_scope task(form);
        form.panel(7, "报告网页");
        // What has gone since the comparison is no longer a copy of anything.
        const result_groups result = read_result_groups(
            form.outside.files, state.same_file_path, {},
            [&form](std::string_view entry) {
                form.yield();
                return !form.state.quit_requested &&
                       path_exists(form.outside.files, std::string(archive_path_of(entry)));
            },
            [&form](const std::function<void()>& work) { form.work_aside(work); });
        if (state.quit_requested) return;
        if (result.groups.empty()) return form.inform("没有相同文件");
        page_facts facts;
        facts.version = version;
        facts.made = page_moment(form.outside.screen.now());
        if (state.compared_files > 0) facts.files = state.compared_files;
        facts.separator = form.outside.files.separator();
        const translation table = english();
        if (state.speaks_english) facts.words = &table;
        // A page says itself that it is UTF-8.
        line_writer page(form.outside.files.replace_file(path));
        form.work_aside([&] { write_result_page(page, result, facts); });
        if (state.quit_requested) return;
        if (!finish_file(form, page)) return report_write_failure(form, path, page.error());
    }
    const outcome opened = form.outside.desktop.open_document(path);
    if (!opened) form.complain(opened.reason);
}

handler_table result_page_handlers(const std::string& version) {
    return {{"报告网页_M", [version](Tavrel& form) { write_and_open_page(form, version); }, starts_task}};
}

}  // namespace corvane
