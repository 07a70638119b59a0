#include "compare/compare_task.h"

#include <cmath>
#include <string>

#include "compare/column_order.h"
#include "compare/comparison.h"
#include "compare/history.h"
#include "compare/preparation.h"
#include "compare/result_store.h"
#include "core/model/main_form.h"
#include "core/tasks/environment.h"
#include "core/tasks/error_trail.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

// The list in memory, or the stored one. False: there is none, and the user has been told, or the program
// ends.
bool take_file_list(Tavrel& form) {
    run_state& state = form.state;
    if (!state.file_list_loaded) {
        form.panel(7, "查相同文件_读暂存文件清单");
        form.run("Command21_Click");
        form.panel(7, "查相同文件");
        // An empty list has been reported by the reader.
        if (state.file_count == 0) return false;
    }
    if (state.quit_requested) return false;
    if (state.file_count > 0) return true;
    form.complain("没有文件，请重新选择目录", 1009, true);
    form.run("Picture1_Click");
    return false;
}

// Up to the first file of the comparison. False when quit_requested was met.
bool prepare(Tavrel& form) {
    run_state& state = form.state;
    if (state.file_count > history_threshold) {
        if (!load_history(form)) return false;
    } else {
        state.history_count = 0;
    }
    form.RichTextBox2.visible = true;
    state.file_list_loaded = 0;
    form.panel(1, "文件数:" + std::to_string(state.file_count));
    form.panel(4, "");
    form.panel(7, "查相同文件_核对属性");
    bar_colours(form, 255, 0x6AC4C1, 0xCFCFCF);
    bar_scale(form, state.file_count - 1);
    size_columns(form);
    form.yield();

    bool members_seen = false;
    if (!refresh_attributes(form, members_seen)) return false;
    if (!state.list_sorted_flag) Command18_Click(form);
    state.list_sorted_flag = -1;
    if (members_seen) take_member_signatures(form);
    reuse_history(form);
    if (state.same_suffix_only) fill_suffix_column(form);
    return true;
}

void set_up_comparison(Tavrel& form) {
    run_state& state = form.state;
    form.panel(7, "计算特征码表");
    form.panel(3, "相同文件: 0");
    form.panel(4, "相同文件长度: 0");
    bar_colours(form, 255, 0xC080FF, 0xAAF0F0);
    bar_scale(form, state.file_count);
    state.base_time = form.outside.screen.seconds();
    form.Command28.caption = "取消[查相同文件]";
    form.Command28.visible = true;
    state.cancel_task = 0;
    form.List1.clear();
    if (state.show_run_filename) form.Label4.visible = true;
}

bool store_results(Tavrel& form) {
    run_state& state = form.state;
    form.Label4.visible = false;
    state.same_fresh_flag = -1;
    bool written = write_same_files(form) && write_different_files(form);
    if (written && state.file_count > history_threshold) written = merge_history(form);
    form.pic_gressbar1.visible = false;
    form.Command28.visible = false;
    return written;
}

void show_closing_message(Tavrel& form, std::int32_t files_checked, double elapsed) {
    const run_state& state = form.state;
    message box;
    box.title = "检查同内容文件完毕";
    box.text = "已　检　查:" + std::to_string(files_checked) +
               " 个文件 \r\n相同文件有:" + std::to_string(state.result_count) + "个,占用空间" +
               group_digits(state.same_bytes) + " 字节" + "  用时: " + format_elapsed(elapsed, 1);
    box.icon = box_icon::information;
    form.outside.screen.show_message(box);
}

}  // namespace

void Picture3_Click(Tavrel& form) {
    run_state& state = form.state;
    写Tavrel环境文件(form);
    if (help_mode_opens(form, 12)) return;
    if (state.shutdown_after_task && !state.chained_run_flag) ask_for_shutdown(form);
    state.base_time = form.outside.screen.seconds();
    if (!take_file_list(form)) return;

    blank_avoided_files(form);
    lock_tasks(form);
    if (!prepare(form)) return;
    set_up_comparison(form);
    const comparison_outcome outcome = compare_files(form);
    if (outcome.end == comparison_end::quit) return;
    if (!store_results(form)) return;

    const double elapsed = form.outside.screen.seconds() - state.base_time;
    const double base = state.base_time;
    show_elapsed(form);
    form.run("load_same_view");
    state.base_time = base;
    if (state.quit_requested) return;
    show_elapsed(form);
    form.panel(5, "");
    if (state.shutdown_after_task) {
        unlock_tasks(form);
        form.run("start_shutdown");
        return;
    }
    write_run_record(form, state.file_count, static_cast<std::int32_t>(std::floor(elapsed)));
    show_closing_message(form, outcome.files_checked, elapsed);
    unlock_tasks(form);
    form.find("debug_err")->value = 0;
    state.error_trail_on = 0;
}

void Command28_Click(Tavrel& form) {
    form.state.cancel_task = -1;
}

void Command18_Click(Tavrel& form) {
    // A view lays its rows over file_list, and before a comparison there are no columns: nothing to order
    // then.
    const run_state& state = form.state;
    const std::size_t size = static_cast<std::size_t>(state.file_count) + 1;
    if (state.file_list.size() == state.file_count && state.file_date_hi.size() == size &&
        state.file_len.size() == size)
        sort_by_length_and_name(form.state);
}

}  // namespace corvane
