#include "cleanup/deletion_run.h"

#include "browser/list_views.h"
#include "cleanup/recycle_batches.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/text_format.h"

namespace corvane {

using namespace cell_colour;

namespace {

constexpr std::int32_t rows_per_status = 1000;
constexpr std::int32_t rows_per_clock = 100;

}  // namespace

deletion_run::deletion_run(Tavrel& form, deletion_road road, const char* words)
    : form_(form),
      list_(form.ListView1),
      view_(view_of(list_modes::same_files)),
      road_(road),
      words_(words),
      copies_(form) {}

bool deletion_run::scan() {
    const std::int32_t rows = list_.row_count();
    for (std::int32_t row = 1; row <= rows; ++row) {
        form_.yield();
        if (form_.state.quit_requested) return false;
        for (const int column : {view_.first_path, view_.second_path}) take_cell(row, column);
        show_progress(row);
    }
    return true;
}

void deletion_run::take_cell(std::int32_t row, int column) {
    if (column >= list_.column_count()) return;
    const std::uint32_t colour = list_.colour(row, column);
    if (colour != mark_red && !(colour == mark_blue && form_.state.force_protected)) return;
    ++marked_;
    taken_cell cell{row, column, list_.cell(row, column), parse_number(list_.cell(row, view_.length_column))};
    // Where case counts, blanks at the end do, too: without them it would be another file's name.
    if (form_.outside.files.ignores_case())
        while (!cell.path.empty() && cell.path.back() == ' ') cell.path.pop_back();
    if (is_blank(cell.path)) return;
    const bool is_entry = is_archive_member(cell.path);
    if (!is_entry && !path_exists(form_.outside.files, cell.path)) return;
    // What is no longer the row's file, or the last copy of it, is left alone with its attributes.
    if (!copies_.may_go(cell.path, cell.length, false)) return refuse(row, column);
    if (is_entry) return take_archive_entry(cell);
    if (is_protected(cell.path, colour)) return refuse(row, column);
    if (road_ == deletion_road::recycle)
        enqueue(cell);
    else
        delete_now(cell);
}

bool deletion_run::is_protected(const std::string& name, std::uint32_t colour) {
    if (colour == mark_blue) form_.outside.files.clear_attributes(name);
    const path_attributes found = form_.outside.files.attributes(name);
    return found.read_only || found.hidden;
}

void deletion_run::refuse(std::int32_t row, int column) {
    ++could_not_;
    list_.set_colour(row, column, mark_blue);
}

// A cell that was blanked too early.
void deletion_run::put_back(const taken_cell& cell) {
    copies_.give_back(cell.path);
    list_.set_text(cell.row, cell.column, cell.path);
    refuse(cell.row, cell.column);
}

void deletion_run::take_archive_entry(const taken_cell& cell) {
    if (!archive_list_)
        archive_list_ = std::make_unique<line_writer>(form_.outside.files, form_.state.archive_del_path);
    archive_list_->line(cell.path);
    ++form_.state.archive_mark_count;
    copies_.take(cell.path);
    list_.set_text(cell.row, cell.column, {});
    entries_.push_back(cell);
}

bool deletion_run::delete_in_archives() {
    if (!archive_list_) return true;
    if (!archive_list_->finish()) {
        // The list is still that of an earlier run.
        form_.complain(form_.state.archive_del_path + "\r\n" + archive_list_->error());
        for (const taken_cell& cell : entries_) put_back(cell);
        return true;
    }
    // What goes from an archive cannot be restored, so its twin is read.
    const archive_deletion done = delete_archive_entries(form_, [this](std::size_t number,
                                                                       const archive_member& member) {
        // The list is a file, which others can write to.
        if (number >= entries_.size()) return false;
        const taken_cell& cell = entries_[number];
        return member.length == static_cast<std::uint64_t>(cell.length) && copies_.may_go(cell.path, member);
    });
    if (form_.state.quit_requested) return false;
    for (const std::size_t number : done.left_alone)
        if (number < entries_.size()) put_back(entries_[number]);
    if (done.failed) {
        // The cell in hand is the last one of the list; there is nothing in it any more.
        list_.set_colour(entries_.back().row, entries_.back().column, mark_blue);
        if (road_ == deletion_road::direct) ++could_not_;
    }
    still_inside_ = done.still_inside;
    first_inside_ = done.first_inside;
    return true;
}

void deletion_run::enqueue(const taken_cell& cell) {
    queue_.push_back(cell);
    copies_.take(cell.path);
    freed_ += static_cast<double>(cell.length);
    list_.set_text(cell.row, cell.column, {});
    ++deleted_;
}

bool deletion_run::send_batches() {
    if (queue_.empty()) return true;
    send_in_batches(form_, queue_.size(), [this](std::size_t number) {
        const taken_cell& file = queue_[number];
        return still_may_go(file) ? &file.path : nullptr;
    });
    form_.state.force_protected = 0;
    return !form_.state.quit_requested;
}

// Time has passed since the scan: the file must still be the row's, and its keeper alive.
bool deletion_run::still_may_go(const taken_cell& file) {
    if (copies_.may_go(file.path, file.length, false)) return true;
    --deleted_;
    freed_ -= static_cast<double>(file.length);
    put_back(file);
    return false;
}

void deletion_run::delete_now(const taken_cell& cell) {
    file_system& files = form_.outside.files;
    const file_facts before = files.facts(cell.path);
    if (!copies_.may_go(cell.path, cell.length, true)) return refuse(cell.row, cell.column);
    const file_facts after = files.facts(cell.path);
    if (!after.exists || !same_state(before, after) || !files.remove_file(cell.path))
        return refuse(cell.row, cell.column);
    copies_.take(cell.path);
    freed_ += static_cast<double>(after.length);
    list_.set_text(cell.row, cell.column, {});
    ++deleted_;
}

void deletion_run::show_progress(std::int32_t row) {
    // All but every thousandth row: the test is meant this way round.
    if (row % rows_per_status != 0) {
        form_.panel(5, words_ + std::to_string(deleted_));
        show_elapsed(form_);
    }
    if (row % rows_per_clock == 0) show_elapsed(form_);
    form_.pic_gressbar1.draw(row);
}

}  // namespace corvane
