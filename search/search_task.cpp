#include "search/search_task.h"

#include <string>

#include "core/model/main_form.h"
#include "core/model/phase_words.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_format.h"
#include "search/file_list_store.h"
#include "search/walker.h"

namespace corvane {

namespace {
// A list that held no more rows once; its remnant is shown still.
constexpr std::int32_t small_list_rows = 32'737;
}  // namespace

void picture2_Click(Tavrel& form) {
    if (help_mode_opens(form, 11)) return;
    run_state& state = form.state;
    state.task_start_time = tick_seconds(form);
    state.base_time = form.outside.screen.seconds();
    form.StatusBar1.clear_figures();
    form.panel(7, phase_words::searching);
    form.panel(1, "开始搜索:");
    form.pic_gressbar1.visible = false;
    form.ListView1.visible = false;
    if (state.selected_dir_count == 0) {
        form.complain("请选择要清理的目录", 1009, true);
        form.call(handlers::choose_directories);
        return;
    }
    task_scope task(form);
    state.walk_count = 0;
    state.file_count = 0;
    state.file_list_loaded = 0;
    state.walked_dirs = state.selected_dirs;
    form.yield();
    form.yield();
    list_files(form);
    if (state.quit_requested) return;
    if (state.file_count == 0) {
        form.complain(
            "没搜索到文件。\r\n请检查 [不参加比较的文件类型] 和 [不参加搜索的目录]。或看看目录选择的内容");
        return;
    }
    show_elapsed(form);
    if (!write_file_list(form)) return;
    show_elapsed(form);

    form.RichTextBox2.visible = true;
    if (state.scan_archives == 1) {
        if (!write_display_list(form)) return;
        form.RichTextBox2.load_file(form.data_path(data_file::shown_file_list));
    } else {
        form.RichTextBox2.load_file(form.data_path(data_file::file_list));
    }
    if (state.file_count >= small_list_rows) form.listleft.add("... ...");
    form.listleft.visible = true;
    form.panel(1, "搜索出:" + std::to_string(state.file_count));
    form.panel(2, "");
    scale_size(state.total_bytes, state.size_unit);
    show_elapsed(form);
    state.file_list_loaded = -1;
    state.list_sorted_flag = 0;
    task.close();
    pointer_glide(form, "Tavrel", "Picture3");
}

void Command19_Click(Tavrel& form) {
    // A walk that is refused leaves walk_count as it was; an old count does not fit a list since used up.
    task_scope task(form);
    form.state.walk_count = 0;
    form.state.file_count = 0;
    list_files(form);
    if (form.state.quit_requested) return;
    form.state.file_list_loaded = -1;
    form.state.list_sorted_flag = 0;
    // The comparison holds a scope of its own, which ends before it asks for a shutdown.
    task.close();
    form.call(handlers::find_same_files);
}

void search_check_m_Click(Tavrel& form) {
    run_state& state = form.state;
    if (help_mode_opens(form, 13)) return;
    if (state.shutdown_after_task == 1) {
        state.chained_run_flag = -1;
        ask_for_shutdown(form);
    }
    form.panel(7, "搜索和比对");
    const double start = form.outside.screen.seconds();
    picture2_Click(form);
    if (state.quit_requested || state.file_count <= 0 || !state.file_list_loaded) return;
    form.call(handlers::find_same_files);
    if (state.quit_requested) return;
    form.panel(6, format_elapsed(form.outside.screen.seconds() - start, 1));
    form.panel(7, "搜索和比对");
}

}  // namespace corvane
