#include "cleanup/empty_view.h"

#include <string>
#include <string_view>

#include "browser/list_views.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_file.h"
#include "core/text/text_sort.h"

namespace corvane {

namespace {

void show_captions(Tavrel& form) {
    const list_view_row& view = view_of(list_modes::empty_directories);
    form.labels[5]->caption = "删除选定的空目录";
    form.RichTextBox2.visible = false;
    form.state.base_time = form.outside.screen.seconds();
    form.StatusBar1.clear_figures();
    form.panel(1, "全部目录数");
    form.panel(3, "空目录数");
    form.panel(7, "显示空目录");
    form.ListView1.help_context = view.help_context;
    form.ListView1.tooltip = view.tooltip;
}

// The stored directories. False: the reason has been shown. `cut` tells that they did not all fit.
bool read_stored_list(Tavrel& form, bool& cut) {
    run_state& state = form.state;
    const std::string path = form.data_path(data_file::empty_directories);
    if (!path_exists(form.outside.files, path)) {
        form.inform(path + "  不存在,请运行查找空子目录");
        return false;
    }
    line_reader reader(form.outside.files, path);
    if (!reader.is_open()) {
        form.complain(path + "\r\n" + reader.error());
        return false;
    }
    form.pic_gressbar1.visible = true;
    // The rows on screen may share the texts: a fresh column leaves them theirs.
    text_column directories;
    std::string_view line;
    while (reader.next(line)) {
        cut = directories.size() >= state.limits.empty_directories;
        if (cut) break;
        directories.push_back(line);
    }
    state.empty_dirs = std::move(directories);
    state.empty_dir_count = state.empty_dirs.size();
    if (state.empty_dir_count > 0) return true;
    form.pic_gressbar1.visible = false;
    form.inform("没有空的子目录,不用整理");
    return false;
}

// False: the program is closing.
bool fill_rows(Tavrel& form) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    const int path_column = shown_view(form).first_path;
    list.share_texts(path_column, state.empty_dirs);
    for (std::int32_t i = 1; i <= state.empty_dir_count; ++i) {
        if (path_exists(form.outside.files, std::string(state.empty_dirs[i]))) {
            const std::int32_t row = list.add_row();
            list.set_number(row, 1, row);
            list.set_shared_text(row, path_column, state.empty_dirs.entry(i));
        }
        bar_draw(form, i);
        if (state.quit_requested) return false;
    }
    return true;
}

void show_directories(Tavrel& form) {
    run_state& state = form.state;
    list_view& list = form.ListView1;
    show_captions(form);
    const list_view_row& view = view_of(list_modes::empty_directories);
    bool cut = false;
    if (!read_stored_list(form, cut)) return;
    set_columns(list, view);
    state.list_mode = view.list_mode;
    sort_text_array(state.empty_dirs, 1, state.empty_dir_count);
    list.visible = false;
    bar_scale(form, state.empty_dir_count);
    if (!fill_rows(form)) return;
    list.visible = true;
    layout_list(form);
    form.pic_gressbar1.visible = false;
    if (list.row_count() > 0) {
        form.panel(1, "搜索出目录:" + std::to_string(state.empty_dir_count));
        form.panel(3, "空目录:" + std::to_string(list.row_count()));
    }
    if (!cut) return;
    std::string words = "空目录太多，只显示前 ";
    form.inform(words.append(std::to_string(state.empty_dir_count)).append(" 个。"));
}

}  // namespace

void Picture7_Click(Tavrel& form) {
    if (help_mode_opens(form, 39)) return;
    const task_scope task(form);
    show_directories(form);
}

}  // namespace corvane
