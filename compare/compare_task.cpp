#include "compare/compare_task.h"

#include <cmath>
#include <functional>
#include <string>

#include "compare/column_order.h"
#include "compare/comparison.h"
#include "compare/history.h"
#include "compare/preparation.h"
#include "compare/result_store.h"
#include "compare/result_summary.h"
#include "compare/stored_contents.h"
#include "core/model/main_form.h"
#include "core/model/phase_words.h"
#include "core/settings/data_files.h"
#include "core/tasks/environment.h"
#include "core/tasks/error_trail.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr std::int32_t files_per_status = 813;

// The list in memory, or the stored one. False: there is none, and the user has been told, or the program
// ends.
bool take_file_list(Tavrel& form) {
    run_state& state = form.state;
    if (!state.file_list_loaded) {
        form.panel(7, "查相同文件_读暂存文件清单");
        form.call(handlers::read_file_list);
        form.panel(7, "查相同文件");
        // An empty list has been reported by the reader.
        if (state.file_count == 0) return false;
    }
    if (state.quit_requested) return false;
    if (state.file_count > 0) return true;
    form.complain("没有文件，请重新选择目录", 1009, true);
    form.call(handlers::choose_directories);
    return false;
}

bool keeps_history(const run_state& state) {
    return state.file_count > history_threshold && !state.history_off;
}

std::string contents_path(const Tavrel& form) {
    return form.state.program_dir + data_file::contents;
}

// Work at the program's own files. What is held in memory for want of a folder is no other thread's.
void work_at_files(Tavrel& form, const std::function<void()>& work) {
    if (form.state.program_dir_locked)
        work();
    else
        form.work_aside(work);
}

bool load_history(Tavrel& form) {
    const history_reading reading = {[&form](std::int32_t rows) {
                                         form.panel(7, "查相同文件_预处理");
                                         bar_colours(form, 128, 65535, 0xF5F9EC);
                                         bar_scale(form, rows);
                                         form.pic_gressbar1.visible = true;
                                     },
                                     [&form](std::int32_t row) {
                                         bar_draw(form, row);
                                         show_elapsed(form);
                                         form.yield();
                                         return !form.state.quit_requested;
                                     }};
    if (!read_history(form.outside.files, form.state, form.state.limits.files, reading)) return false;
    if (form.state.history_count > 0) form.pic_gressbar1.visible = false;
    return true;
}

void show_bytes(Tavrel& form) {
    form.panel(2, "字节:" + group_digits(form.state.total_bytes) + form.state.size_unit);
}

bool check_attributes(Tavrel& form, bool& members_seen) {
    run_state& state = form.state;
    const auto reaches = [&](std::int32_t i) {
        if (i % files_per_status == 0) {
            bar_draw(form, i);
            show_bytes(form);
            show_elapsed(form);
        }
        form.yield();
        return !state.quit_requested;
    };
    if (!refresh_attributes(form.outside.files, state, state, members_seen, reaches)) return false;
    form.panel(7, "核对属性完毕");
    scale_size(state.total_bytes, state.size_unit);
    show_bytes(form);
    return true;
}

// A file that cannot be written costs time, and nothing else.
void store_contents(Tavrel& form) {
    if (!keeps_history(form.state)) return;
    work_at_files(form, [&form] {
        static_cast<void>(write_contents(form.outside.files, contents_path(form), form.state));
    });
}

bool store_history(Tavrel& form) {
    run_state& state = form.state;
    // Forgets files that are gone, on about one run in sixty.
    if (form.outside.screen.now().second % 60 == 1)
        purge_history(form.outside.files, state, [&form] { form.yield(); });
    bar_colours(form, 128, 65535, 0xF5F9EC);
    bar_scale(form, state.file_count);
    std::string error;
    bool merged = false;
    work_at_files(form, [&] { merged = merge_history(form.outside.files, state, state, error); });
    if (merged) return true;
    report_write_failure(form, state.history_path, error);
    return false;
}

// Up to the first file of the comparison. False when quit_requested was met.
bool prepare(Tavrel& form) {
    run_state& state = form.state;
    if (keeps_history(state)) {
        if (!load_history(form)) return false;
    } else {
        state.history_count = 0;
    }
    form.RichTextBox2.visible = true;
    state.file_list_loaded = 0;
    state.compared_files = 0;
    form.panel(1, "文件数:" + std::to_string(state.file_count));
    form.panel(4, "");
    form.panel(7, phase_words::checking);
    bar_colours(form, 255, 0x6AC4C1, 0xCFCFCF);
    bar_scale(form, state.file_count - 1);
    size_columns(state, state);
    state.proven.clear();
    form.yield();

    bool members_seen = false;
    if (!check_attributes(form, members_seen)) return false;
    if (!state.list_sorted_flag) Command18_Click(form);
    state.list_sorted_flag = -1;
    if (members_seen) take_member_signatures(state);
    form.panel(7, "核对文件历史数据");
    form.work_aside([&state] { reuse_history(state, state); });
    if (keeps_history(state))
        work_at_files(form, [&] { read_contents(form.outside.files, contents_path(form), state); });
    if (state.same_suffix_only) fill_suffix_column(state);
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
    offer_cancel(form, "查相同文件");
    form.List1.clear();
    state.bytes_read = 0;
    state.cancelled_at = state.cancelled_of = 0;
    state.summary_words.clear();
    if (state.show_run_filename) form.Label4.visible = true;
}

bool store_results(Tavrel& form) {
    run_state& state = form.state;
    form.Label4.visible = false;
    // Without a pair there is no store, and one that could not be written is that of an earlier run.
    state.same_fresh_flag = 0;
    bool written = write_same_files(form) && write_different_files(form);
    state.compared_files = written ? state.file_count : 0;
    if (written) state.result_dirs = state.walked_dirs;
    if (written && keeps_history(state)) written = store_history(form);
    form.pic_gressbar1.visible = false;
    form.Command28.visible = false;
    if (written && state.result_count > 0) state.same_fresh_flag = -1;
    return written;
}

void show_closing_message(Tavrel& form, std::int32_t files_checked, double elapsed) {
    const run_state& state = form.state;
    message box;
    box.title = comparison_closing_title;
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
    if (state.shutdown_after_task == 1 && !state.chained_run_flag) ask_for_shutdown(form);
    state.base_time = form.outside.screen.seconds();
    if (!take_file_list(form)) return;

    blank_avoided_files(state, state);
    task_scope task(form);
    if (!prepare(form)) return;
    set_up_comparison(form);
    const comparison_outcome outcome = compare_files(form, [&form] { store_contents(form); });
    if (outcome.end == comparison_end::quit) return;
    if (outcome.end == comparison_end::cancelled) {
        state.cancelled_at = outcome.files_checked;
        state.cancelled_of = state.file_count;
    }
    // Nothing behind the comparison asks how the files stood; the proofs hold what was proven.
    state.file_place = {};
    state.file_changed = {};
    if (!store_results(form)) return;

    const double elapsed = form.outside.screen.seconds() - state.base_time;
    const double base = state.base_time;
    show_elapsed(form);
    form.call(handlers::show_same_files);
    state.base_time = base;
    if (state.quit_requested) return;
    show_elapsed(form);
    form.panel(5, "");
    summarize_result(form);
    if (state.quit_requested) return;
    if (state.shutdown_after_task == 1) {
        task.close();
        form.call(handlers::start_shutdown);
        return;
    }
    write_run_record(form, state.file_count, static_cast<std::int32_t>(std::floor(elapsed)));
    show_closing_message(form, outcome.files_checked, elapsed);
    task.close();
    form.find("debug_err")->value = 0;
    state.error_trail_on = 0;
}

void Command28_Click(Tavrel& form) {
    form.state.cancel_task = -1;
}

void Command18_Click(Tavrel& form) {
    // A list that is used up has been dropped, before a comparison there are no columns, and one whose result
    // could not be stored has given up some of them: nothing to order then.
    const run_state& state = form.state;
    if (state.file_list.size() == state.file_count && state.file_date_hi.size() == state.file_count &&
        state.file_len.size() == state.file_count && state.file_place.size() == state.file_count)
        form.work_aside([&form] { sort_by_length_and_name(form.state); });
}

}  // namespace corvane
