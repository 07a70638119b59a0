#include "cleanup/delete_files.h"

#include <string>
#include <utility>

#include "browser/list_views.h"
#include "browser/same_store.h"
#include "cleanup/deletion_run.h"
#include "cleanup/stake.h"
#include "core/model/main_form.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "core/tasks/task_scope.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

void tell_nothing_marked(Tavrel& form) {
    form.inform("没有要删除的文件\r\n请在文件1或文件2栏中选择要删除的文件", 1015);
}

// The test that both roads begin with. False: the reason has been shown.
bool has_result(Tavrel& form) {
    if (form.state.same_count != 0 && refuses_hidden_list(form)) return false;
    form.RichTextBox2.visible = false;
    form.panel(7, "删除内容相同文件");
    if (form.state.same_count != 0) return true;
    form.complain("没有选中的要删除的文件,请重选", 1015, true);
    return false;
}

void start_bar(Tavrel& form) {
    bar_colours(form, 16120300, 65535, 4194368);
    bar_scale(form, form.state.same_count);
    form.pic_gressbar1.visible = true;
}

// What stays because it is not proven that a copy of it is there.
std::string kept_words(const kept_files& kept) {
    std::string words = "\r\n保留 " + std::to_string(kept.count()) + " 个文件:";
    if (kept.last_copies > 0)
        words.append(" 最后一份 ").append(std::to_string(kept.last_copies)).append(" 个");
    if (kept.changed > 0) words.append(" 比对后已变化 ").append(std::to_string(kept.changed)).append(" 个");
    return words.append("\r\n  ").append(kept.first).append(kept.count() > 1 ? " 等" : "");
}

std::string protected_words(const kept_files& kept) {
    std::string words = "\r\n受保护,保留 " + std::to_string(kept.covered) + " 个文件:";
    return words.append("\r\n  ").append(kept.first_covered).append(kept.covered > 1 ? " 等" : "");
}

// Report, store and the offer to take protected files on the next run.
void close_run(Tavrel& form, const deletion_run& run, const char* words) {
    run_state& state = form.state;
    std::string report =
        words + std::to_string(run.deleted()) + " 个文件\r\n 释放空间: " + group_digits(run.freed());
    if (state.archive_del_count > 0)
        report += "\r\n删除压缩包内文件:" + std::to_string(state.archive_del_count) + "个";
    if (run.still_inside() > 0) {
        report.append("\r\n压缩包内仍有:").append(std::to_string(run.still_inside())).append("个 (");
        report.append(run.first_inside()).append(run.still_inside() > 1 ? " 等)" : ")");
    }
    if (run.kept().count() > 0) report += kept_words(run.kept());
    if (run.kept().covered > 0) report += protected_words(run.kept());
    if (run.not_taken() > 0)
        report.append("\r\n回收站未收下 ")
            .append(std::to_string(run.not_taken()))
            .append(" 个: ")
            .append(run.first_not_taken());
    if (run.deleted() > 0 || state.archive_del_count > 0) {
        state.same_count -= run.deleted() + run.further_cells() + state.archive_del_count - run.rows_of_two();
        rewrite_store(form);
    }
    form.pic_gressbar1.visible = false;
    if (run.could_not() == 0) {
        form.inform(report);
    } else {
        form.outside.screen.repaint();
        report += "\r\n无法删除:" + std::to_string(run.could_not()) + " 个文件 (隐藏或只读文件)";
        report += "\r\n如需删除隐藏或只读文件,请按 yes,并重新运行<删除内容相同文件>";
        if (form.confirm(report)) state.force_protected = -1;
    }
}

message question(const Tavrel& form, const char* words) {
    message box;
    box.text = words;
    box.detail = stake_words(stake_of(form));
    return box;
}

// Yes: the recycle bin, no: for good. A box that was left without an answer deletes nothing.
box_answer ask_for_road(Tavrel& form) {
    message box = question(form, "将所选定的文件放入回收站吗?\r\n    Y 放入回收站\r\n    N 直接删除");
    box.yes_words = "放入回收站";
    box.no_words = "直接删除";
    box.cancel_words = "取消";
    return form.ask(std::move(box));
}

// The words speak of the recycle bin; what a Yes does is direct all the same, and its button says so.
bool confirms_direct(Tavrel& form) {
    message box = question(form, "将所选定的文件放入回收站吗?");
    box.yes_words = "直接删除";
    box.no_words = "不删除";
    box.default_answer = box_answer::no;
    return form.ask(std::move(box)) == box_answer::yes;
}

// From the first row to the report. `words` begin the panel while the run scans, `report` the report.
void run_deletion(Tavrel& form, deletion_road road, const char* words, const char* report) {
    run_state& state = form.state;
    state.base_time = form.outside.screen.seconds();
    start_bar(form);
    form.panel(5, std::string(words) + "0");
    state.archive_del_count = 0;
    deletion_run run(form, road, words);
    if (!run.scan()) return;
    if (road == deletion_road::direct) form.outside.screen.repaint();
    form.ListView1.visible = true;
    if (!run.delete_in_archives()) return;
    if (run.marked() == 0 && state.archive_del_count == 0) {
        form.pic_gressbar1.visible = false;
        tell_nothing_marked(form);
        return;
    }
    if (road == deletion_road::direct) state.force_protected = 0;
    if (!run.send_batches()) return;
    form.panel(5, "已删除:" + std::to_string(run.deleted()));
    form.pic_gressbar1.visible = false;
    show_elapsed(form);
    close_run(form, run, report);
}

}  // namespace

void delete_marked_recycle(Tavrel& form) {
    const deletion_rule deletes = shown_view(form).deletes;
    if (deletes == deletion_rule::empty_directories) {
        form.call(handlers::delete_empty_directories);
        return;
    }
    if (help_mode_opens(form, 20)) return;
    if (deletes == deletion_rule::left_to_file_manager) return form.inform(names_are_not_contents);
    if (!has_result(form)) return;
    const task_scope task(form);
    const box_answer answer = ask_for_road(form);
    if (answer == box_answer::no) return delete_marked_direct(form);
    if (answer != box_answer::yes) return;
    run_deletion(form, deletion_road::recycle, "删除分析:", "放入回收站:");
}

void delete_marked_direct(Tavrel& form) {
    if (shown_view(form).deletes != deletion_rule::files) {
        form.inform("非相同文件状态,不能删除");
        return;
    }
    if (help_mode_opens(form, 20) || !has_result(form)) return;
    const task_scope task(form);
    if (form.state.delete_prompt_on == 1 && !confirms_direct(form)) return;
    run_deletion(form, deletion_road::direct, "删除 :", "已删除:");
}

void toggle_number_panel(Tavrel& form) {
    if (form.Frame1.visible) return close_number_panel(form);
    form.panel(7, "按序号删除");
    form.Frame1.place.top = form.listleft.place.top + 100;
    const rectangle& button = form.pictures[5]->place;
    form.Frame1.place.left = button.left + (button.width - form.Frame1.place.width) / 2;
    form.Frame1.visible = true;
}

void close_number_panel(Tavrel& form) {
    form.Frame1.visible = false;
    form.panel(7, "帮助");
}

}  // namespace corvane
