#include "cleanup/delete_files.h"

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "browser/same_view.h"
#include "cleanup/last_copy.h"
#include "cleanup/recycle_batches.h"
#include "core/archive_entry.h"
#include "core/directory_filter.h"
#include "core/help.h"
#include "core/main_form.h"
#include "core/progress.h"
#include "core/text_file.h"
#include "core/text_format.h"

namespace corvane {

using namespace cell_colour;

namespace {

constexpr std::int32_t rows_per_status = 1000;
constexpr std::int32_t rows_per_clock = 100;

enum class road { recycle, direct };

// A file on its way to the recycle bin, with the cell that it came from.
struct queued_file {
    std::int32_t row;
    int column;
    std::string path;
    std::int64_t length;
};

// One run over the marked cells.
class deletion {
  public:
    deletion(Tavrel& form, road way) : form_(form), list_(form.ListView1), way_(way), copies_(form) {}

    // False: the program is closing.
    bool scan() {
        const std::int32_t rows = list_.row_count();
        for (std::int32_t row = 1; row <= rows; ++row) {
            form_.yield();
            if (form_.state.quit_requested) return false;
            for (const int column : {3, 4}) take_cell(row, column);
            show_progress(row);
        }
        return true;
    }

    // The list of archive entries is complete: the entries go.
    void finish_archive_list() {
        if (!archive_list_) return;
        // A list that could not be written is still that of an earlier run.
        if (archive_list_->finish())
            form_.run("delete_archive_entries");
        else
            form_.complain(form_.state.archive_del_path + "\r\n" + archive_list_->error());
    }

    void send_batches() {
        recycle_batches batches;
        for (const queued_file& file : queue_) batches.add(file.path);
        if (batches.batch_count() == 0) return;
        batches.send(form_, [this](std::size_t number) { return still_may_go(queue_[number]); });
        form_.state.force_protected = 0;
    }

    std::int32_t marked() const { return marked_; }
    std::int32_t deleted() const { return deleted_; }
    std::int32_t could_not() const { return could_not_; }
    double freed() const { return freed_; }

  private:
    void take_cell(std::int32_t row, int column) {
        if (column >= list_.column_count()) return;
        const std::uint32_t colour = list_.colour(row, column);
        if (colour != mark_red && !(colour == mark_blue && form_.state.force_protected)) return;
        ++marked_;
        std::string name = list_.cell(row, column);
        // Where case counts, blanks at the end do, too: without them it would be another file's name.
        if (form_.outside.files.ignores_case())
            while (!name.empty() && name.back() == ' ') name.pop_back();
        const std::int64_t length = parse_number(list_.cell(row, 2));
        if (is_blank(name)) return;
        if (is_archive_member(name)) return take_archive_entry(row, column, name, length);
        if (!path_exists(form_, name)) return;
        // What is no longer the row's file, or the last copy of it, is left alone with its attributes.
        if (!copies_.may_go(name, length, false)) return refuse(row, column);
        if (is_protected(name, colour)) return refuse(row, column);
        if (way_ == road::recycle)
            enqueue(row, column, name, length);
        else
            delete_now(row, column, name, length);
    }

    bool is_protected(const std::string& name, std::uint32_t colour) {
        std::string error;
        if (colour == mark_blue) form_.outside.files.clear_attributes(name, error);
        const path_attributes found = form_.outside.files.attributes(name);
        return found.read_only || found.hidden;
    }

    void refuse(std::int32_t row, int column) {
        ++could_not_;
        list_.set_colour(row, column, mark_blue);
    }

    void take_archive_entry(std::int32_t row, int column, const std::string& name, std::int64_t length) {
        if (!copies_.may_go(name, length, false)) return refuse(row, column);
        if (!archive_list_)
            archive_list_ = std::make_unique<line_writer>(form_.outside.files, form_.state.archive_del_path);
        archive_list_->line(name);
        ++form_.state.archive_mark_count;
        copies_.take(name);
        list_.set_text(row, column, {});
    }

    void enqueue(std::int32_t row, int column, const std::string& name, std::int64_t length) {
        queue_.push_back({row, column, name, length});
        copies_.take(name);
        freed_ += static_cast<double>(length);
        list_.set_text(row, column, {});
        ++deleted_;
    }

    // Time has passed since the scan: the file must still be the row's, and its keeper alive.
    bool still_may_go(const queued_file& file) {
        if (copies_.may_go(file.path, file.length, false)) return true;
        --deleted_;
        freed_ -= static_cast<double>(file.length);
        copies_.give_back(file.path);
        list_.set_text(file.row, file.column, file.path);
        refuse(file.row, file.column);
        return false;
    }

    void delete_now(std::int32_t row, int column, const std::string& name, std::int64_t length) {
        const file_facts before = form_.outside.files.facts(name);
        if (!copies_.may_go(name, length, true)) return refuse(row, column);
        const file_facts after = form_.outside.files.facts(name);
        std::string error;
        const bool same = after.exists && after.identity == before.identity &&
                          after.length == before.length && after.date_high == before.date_high &&
                          after.date_low == before.date_low;
        if (!same || !form_.outside.files.remove_file(name, error)) return refuse(row, column);
        copies_.take(name);
        freed_ += static_cast<double>(after.length);
        list_.set_text(row, column, {});
        ++deleted_;
    }

    void show_progress(std::int32_t row) {
        const char* words = way_ == road::recycle ? "删除分析:" : "删除 :";
        // All but every thousandth row: the test is meant this way round.
        if (row % rows_per_status != 0) {
            form_.panel(5, words + std::to_string(deleted_));
            show_elapsed(form_);
        }
        if (row % rows_per_clock == 0) show_elapsed(form_);
        form_.pic_gressbar1.draw(row);
    }

    Tavrel& form_;
    list_view& list_;
    road way_;
    last_copy copies_;
    std::unique_ptr<line_writer> archive_list_;
    std::vector<queued_file> queue_;
    std::int32_t marked_ = 0;
    std::int32_t deleted_ = 0;
    std::int32_t could_not_ = 0;
    double freed_ = 0;
};

void tell_nothing_marked(Tavrel& form) {
    form.inform("没有要删除的文件\r\n请在文件1或文件2栏中选择要删除的文件", 1015);
}

// The test that both roads begin with. False: the reason has been shown.
bool has_result(Tavrel& form) {
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

// Report, store and the offer to take protected files on the next run.
void close_run(Tavrel& form, const deletion& run, const char* words) {
    run_state& state = form.state;
    std::string report =
        words + std::to_string(run.deleted()) + " 个文件\r\n 释放空间: " + group_digits(run.freed());
    if (state.archive_del_count > 0)
        report += "\r\n删除压缩包内文件:" + std::to_string(state.archive_del_count) + "个";
    if (run.deleted() > 0 || state.archive_del_count > 0) {
        state.same_count -= run.deleted() + state.archive_del_count;
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
    unlock_tasks(form);
}

}  // namespace

void delete_marked_recycle(Tavrel& form) {
    run_state& state = form.state;
    if (state.list_mode == 1) {
        form.run("Picture8_Click");
        return;
    }
    if (state.list_mode == 3) return form.inform("因文件内容不一定相同,请在资源管理器中选择删除");
    if (help_mode_opens(form, 20) || !has_result(form)) return;
    lock_tasks(form);
    if (!form.confirm("将所选定的文件放入回收站吗?\r\n    Y 放入回收站\r\n    N 直接删除"))
        return delete_marked_direct(form);
    state.base_time = form.outside.screen.seconds();
    start_bar(form);
    form.panel(5, "删除分析:0");
    state.archive_del_count = 0;
    deletion run(form, road::recycle);
    if (!run.scan()) return;
    form.ListView1.visible = true;
    run.finish_archive_list();
    if (run.marked() == 0 && state.archive_del_count == 0) {
        form.pic_gressbar1.visible = false;
        tell_nothing_marked(form);
        return unlock_tasks(form);
    }
    run.send_batches();
    if (state.quit_requested) return;
    form.panel(5, "已删除:" + std::to_string(run.deleted()));
    form.pic_gressbar1.visible = false;
    show_elapsed(form);
    close_run(form, run, "放入回收站:");
}

void delete_marked_direct(Tavrel& form) {
    run_state& state = form.state;
    if (state.list_mode != 0) {
        form.inform("非相同文件状态,不能删除");
        return unlock_tasks(form);
    }
    if (help_mode_opens(form, 20) || !has_result(form)) return unlock_tasks(form);
    lock_tasks(form);
    // The words speak of the recycle bin; what a Yes does is direct all the same.
    if (state.delete_prompt_on == 1 && !form.confirm("将所选定的文件放入回收站吗?"))
        return unlock_tasks(form);
    state.base_time = form.outside.screen.seconds();
    start_bar(form);
    form.panel(5, "删除 :0");
    state.archive_del_count = 0;
    deletion run(form, road::direct);
    if (!run.scan()) return;
    form.outside.screen.repaint();
    form.ListView1.visible = true;
    run.finish_archive_list();
    if (run.marked() == 0 && state.archive_del_count == 0) {
        form.pic_gressbar1.visible = false;
        tell_nothing_marked(form);
        return unlock_tasks(form);
    }
    state.force_protected = 0;
    form.panel(5, "已删除:" + std::to_string(run.deleted()));
    form.pic_gressbar1.visible = false;
    show_elapsed(form);
    close_run(form, run, "已删除:");
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
