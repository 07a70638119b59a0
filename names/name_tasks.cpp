#include "names/name_tasks.h"

#include <cmath>
#include <string>

#include "core/model/main_form.h"
#include "core/tasks/error_trail.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/path_text.h"
#include "core/text/text_format.h"
#include "names/directory_walk.h"
#include "names/name_pairs.h"
#include "names/name_view.h"

namespace corvane {

namespace {

constexpr char file_task[] = "查相同_文件名";

struct closing_words {
    const char* title;
    const char* found;
};

constexpr closing_words files_closing = {"检查文件名相同完毕", "相同_文件名有:"};
constexpr closing_words directories_closing = {"检查目录相同完毕", "同名目录有:"};

void start_clock(Tavrel& form) {
    form.state.task_start_time = tick_seconds(form);
    form.state.base_time = form.outside.screen.seconds();
}

// From the keys to the pairs in the result columns. The cancel button is there and has no effect on the scan,
// which does not yield; this is intended. False when not all pairs fitted.
bool find_pairs(Tavrel& form, const text_column& paths, std::int32_t count, key_part part,
                const char* cancel_word) {
    run_state& state = form.state;
    build_name_keys(state, paths, count, part, form.outside.files.separator());
    sort_name_keys(state, 1, count);
    state.different_count = 0;
    form.yield();
    offer_cancel(form, cancel_word);
    form.pic_gressbar1.visible = true;
    const bool complete = scan_name_keys(form, paths, count);
    // Without a pair no view takes it back.
    state.same_fresh_flag = state.result_count > 0 ? -1 : 0;
    form.pic_gressbar1.visible = false;
    form.Command28.visible = false;
    show_elapsed(form);
    take_name_pairs(state, paths);
    return complete;
}

void close_task(Tavrel& form, const closing_words& words, std::int32_t checked, bool complete) {
    run_state& state = form.state;
    const double elapsed = form.outside.screen.seconds() - state.base_time;
    write_run_record(form, state.file_count, static_cast<std::int32_t>(std::floor(elapsed)));
    message box;
    box.title = words.title;
    box.text = "已　检　查:" + std::to_string(checked) + " 个文件 \r\n" + words.found +
               std::to_string(state.result_count) + "个" + "  用时: " + format_elapsed(elapsed, 1);
    box.icon = box_icon::information;
    form.outside.screen.show_message(box);
    if (!complete) form.inform("同名的太多，只显示前 " + std::to_string(state.result_count) + " 条。");
}

// The list as the search left it, or a new search. False: there is none, and the user knows, or the program
// ends.
bool take_searched_files(Tavrel& form) {
    run_state& state = form.state;
    if (!state.file_list_loaded) {
        const double start = state.base_time;
        form.call(handlers::search_files);
        state.base_time = start;
        form.panel(7, file_task);
        // A search that was refused has said why and leaves an old count.
        if (!state.file_list_loaded) return false;
    }
    if (state.quit_requested) return false;
    if (state.file_count > 0) return true;
    form.complain("没有文件，请重新选择目录", 1009, true);
    form.call(handlers::choose_directories);
    return false;
}

void check_file_names(Tavrel& form, key_part part) {
    if (help_mode_opens(form, 12)) return;
    run_state& state = form.state;
    start_clock(form);
    form.panel(7, file_task);
    if (!take_searched_files(form)) return;
    const task_scope task(form);
    state.file_list_loaded = 0;
    const std::int32_t count = state.file_count;
    form.panel(1, "文件数:" + std::to_string(count));
    bar_scale(form, count);
    const bool complete = find_pairs(form, state.file_list, count, part, file_task);
    if (state.quit_requested) return;
    show_same_names(form);
    if (state.quit_requested) return;
    show_elapsed(form);
    form.panel(5, "");
    close_task(form, files_closing, count, complete);
}

// Walks the selected directories. The number of directories found; 0: the task ends here, and the user knows.
std::int32_t find_directories(Tavrel& form) {
    run_state& state = form.state;
    if (state.selected_dir_count == 0) {
        form.complain("没有选定的目录，请在[目录选择]中选定目录");
        return 0;
    }
    offer_cancel(form, "查找同名目录");
    if (state.show_run_filename) {
        form.Label4.place.width = form.pic_gressbar1.place.width;
        form.Label4.visible = true;
    }
    std::int32_t count = walk_directory_names(form);
    form.Label4.visible = false;
    if (state.quit_requested) return 0;
    // The directory in work when the user cancelled does not count.
    if (state.cancel_task && count > 0) --count;
    if (count == 0) {
        form.Command28.visible = false;
        if (!state.cancel_task) form.complain("没有找到任何目录，请重新在[目录选择]中选定目录");
    }
    return count;
}

}  // namespace

void mnu_same_filename_Click(Tavrel& form) {
    check_file_names(form, file_name_of);
}

void check_same_1dir_filename_Click(Tavrel& form) {
    check_file_names(form, parent_and_file_name_of);
}

void search_repeat_dir_name_Click(Tavrel& form) {
    if (help_mode_opens(form, 38)) return;
    run_state& state = form.state;
    start_clock(form);
    const task_scope task(form);
    form.panel(7, "查找同名目录");
    const std::int32_t count = find_directories(form);
    if (state.quit_requested) return;
    if (count == 0) return;
    text_column directories;
    directories.reserve(count);
    for (std::int32_t k = 1; k <= count; ++k) directories.push_back(state.dir_queue[k]);
    bar_scale(form, count);
    const bool complete = find_pairs(form, directories, count, directory_name_of, "查同名目录");
    if (state.quit_requested) return;
    show_same_directory_names(form);
    if (state.quit_requested) return;
    close_task(form, directories_closing, count, complete);
}

}  // namespace corvane
