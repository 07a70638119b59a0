#include "cleanup/empty_search.h"

#include <string>

#include "cleanup/empty_view.h"
#include "cleanup/empty_walk.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_file.h"

namespace corvane {

namespace {

constexpr int topic = 38;

void end_search(Tavrel& form) {
    form.pic_gressbar1.visible = false;
    form.Label4.visible = false;
}

// Writes the empty ones of the first `finished` directories and counts them into `found`. False: the program
// is closing, or the file could not be written and the user has been told.
bool store_empty(Tavrel& form, const empty_walk& walk, std::int32_t finished, std::int32_t& found) {
    text_column empty;
    for (std::int32_t k = 1; k <= finished; ++k) {
        if (walk.is_empty(k)) empty.push_back(walk.visited(k));
        bar_draw(form, k);
        if (form.state.quit_requested) return false;
    }
    found = empty.size();
    const std::string path = form.data_path(data_file::empty_directories);
    line_writer writer(form.outside.files, path);
    for (std::int32_t i = 1; i <= found; ++i) writer.line(empty[i]);
    if (writer.finish()) return true;
    end_search(form);
    report_write_failure(form, path, writer.error());
    return false;
}

void report_limit(Tavrel& form, std::int32_t visited) {
    std::string words = "目录太多，只查找了前 ";
    words.append(std::to_string(visited)).append(" 个目录。");
    form.inform(words);
}

void find_empty_directories(Tavrel& form) {
    run_state& state = form.state;
    form.RichTextBox2.visible = false;
    form.Label4.visible = false;
    state.base_time = form.outside.screen.seconds();
    form.StatusBar1.clear_figures();
    const task_scope task(form);
    form.panel(7, "查找空目录");
    state.walk_count = 0;
    if (state.selected_dir_count == 0) {
        form.complain("没有选定的目录，请在[目录选择]中选定目录");
        return;
    }
    offer_cancel(form, "查找空目录");
    if (state.show_run_filename) form.pic_gressbar1.visible = form.Label4.visible = true;

    empty_walk walk(form);
    const walk_course ending = walk.run();
    if (ending == walk_course::quit) return;
    form.Command28.visible = false;
    const bool cancelled = ending == walk_course::cancelled;
    const std::int32_t finished = walk.visited_count() - (cancelled ? 1 : 0);
    if (finished == 0) {
        if (!cancelled) form.complain("没有找到任何目录，请重新在[目录选择]中选定目录");
        return end_search(form);
    }
    bar_colours(form, 13619151, 255, 4210816);
    bar_scale(form, finished);
    std::int32_t found = 0;
    if (!store_empty(form, walk, finished, found)) return;
    form.panel(1, "搜索出目录:" + std::to_string(finished));
    form.panel(2, "空目录:" + std::to_string(found));
    show_elapsed(form);
    if (found > 0)
        Picture7_Click(form);
    else
        form.inform("没有空的子目录,不用整理");
    if (state.quit_requested) return;
    if (walk.limit_reached()) report_limit(form, walk.visited_count());
    end_search(form);
}

}  // namespace

void Picture6_Click(Tavrel& form) {
    if (!help_mode_opens(form, topic)) find_empty_directories(form);
}

// The disk is listed one name at a time on either road.
void Command43_Click(Tavrel& form) {
    if (!help_mode_opens(form, topic)) find_empty_directories(form);
}

}  // namespace corvane
