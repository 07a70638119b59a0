#include "cleanup/deletion_run.h"

#include <string_view>
#include <unordered_set>

#include "browser/list_views.h"
#include "cleanup/recycle_batches.h"
#include "cleanup/recycle_notes.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/text_format.h"

namespace corvane {

using namespace cell_colour;

namespace {

constexpr std::int32_t rows_per_status = 1000;
constexpr std::int32_t rows_per_clock = 100;
constexpr std::int32_t rows_per_yield = 1000;

}  // namespace

deletion_run::deletion_run(Tavrel& form, deletion_road road, const char* words)
    : form_(form),
      list_(form.ListView1),
      view_(view_of(list_modes::same_files)),
      road_(road),
      words_(words),
      gate_(form) {}

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
    // Marked in another row, too: it goes once, and all its cells with it.
    if (gate_.is_taken(cell.path)) {
        blank(cell);
        again_.emplace(cell.path, cell);
        return;
    }
    const bool is_entry = is_archive_member(cell.path);
    if (!is_entry && !path_exists(form_.outside.files, cell.path)) return;
    // What is no longer the row's file, or the last copy of it, is left alone with its attributes.
    const gate_verdict verdict = gate_.looks_free(cell.path, cell.length);
    if (verdict != gate_verdict::may_go) return keep(cell.path, verdict);
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

// The mark stays: what is kept today may have a copy tomorrow.
void deletion_run::keep(const std::string& path, gate_verdict why) {
    if (why == gate_verdict::gone) return;
    if (why == gate_verdict::covered) {
        if (kept_.covered++ == 0) kept_.first_covered = path;
        return;
    }
    if (kept_.count() == 0) kept_.first = path;
    ++(why == gate_verdict::changed ? kept_.changed : kept_.last_copies);
}

void deletion_run::blank(const taken_cell& cell) {
    list_.set_text(cell.row, cell.column, {});
    blanked_.push_back(cell.row);
}

// Cells that were blanked too early get their path back, and are marked as before.
void deletion_run::put_back(const taken_cell& cell) {
    gate_.give_back(cell.path);
    list_.set_text(cell.row, cell.column, cell.path);
    const auto [first, last] = again_.equal_range(cell.path);
    for (auto each = first; each != last; ++each)
        list_.set_text(each->second.row, each->second.column, cell.path);
}

void deletion_run::take_archive_entry(const taken_cell& cell) {
    if (!archive_list_)
        archive_list_ = std::make_unique<line_writer>(form_.outside.files, form_.state.archive_del_path);
    archive_list_->line(cell.path);
    ++form_.state.archive_mark_count;
    blank(cell);
    entries_.push_back(cell);
    gate_.take(cell.path);
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
    const archive_deletion done =
        delete_archive_entries(form_, [this](std::size_t number, const archive_member& member) {
            // The list is a file, which others can write to.
            if (number >= entries_.size()) return false;
            const taken_cell& cell = entries_[number];
            if (member.length != static_cast<std::uint64_t>(cell.length)) {
                keep(cell.path, gate_verdict::changed);
                return false;
            }
            gate_.give_back(cell.path);
            const gate_verdict verdict = gate_.ask(cell.path, member);
            if (verdict == gate_verdict::may_go)
                gate_.take(cell.path);
            else
                keep(cell.path, verdict);
            return verdict == gate_verdict::may_go;
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
    gate_.take(cell.path);
    freed_ += static_cast<double>(cell.length);
    blank(cell);
    ++deleted_;
}

// The columns that the rows were filled from still hold the paths of the cells that the scan has blanked, and
// the pairs that a filter keeps from the list.
bool deletion_run::note_pairs(recycle_notes& notes) {
    if (form_.outside.bin == nullptr) return true;
    std::unordered_set<std::string_view> going;
    for (const taken_cell& file : queue_) going.insert(file.path);
    const result_state& result = form_.state;
    for (std::int32_t i = 1; i <= result.result_file1.size(); ++i) {
        if (i % rows_per_yield == 0) form_.yield();
        if (form_.state.quit_requested) return false;
        const std::string_view first = result.result_file1[i];
        const std::string_view second = result.result_file2[i];
        if (!is_blank(first) && !is_blank(second) && (going.contains(first) || going.contains(second)))
            notes.pair(result.result_length[i], first, second);
    }
    return true;
}

bool deletion_run::send_batches() {
    if (queue_.empty()) return true;
    recycle_notes notes(form_);
    if (!note_pairs(notes)) return false;
    send_in_batches(
        form_, queue_.size(), notes,
        [this](std::size_t number) {
            const taken_cell& file = queue_[number];
            return still_may_go(file) ? &file.path : nullptr;
        },
        [this](std::size_t number) { bin_refused(queue_[number]); });
    form_.state.force_protected = 0;
    return !form_.state.quit_requested;
}

bool deletion_run::still_may_go(const taken_cell& file) {
    gate_.give_back(file.path);
    const gate_verdict verdict = gate_.ask(file.path, file.length);
    if (verdict == gate_verdict::may_go) {
        gate_.take(file.path);
        return true;
    }
    --deleted_;
    freed_ -= static_cast<double>(file.length);
    // What has gone by itself meanwhile needs no cell, and counts nowhere.
    if (verdict == gate_verdict::gone) return false;
    put_back(file);
    keep(file.path, verdict);
    return false;
}

void deletion_run::bin_refused(const taken_cell& file) {
    --deleted_;
    freed_ -= static_cast<double>(file.length);
    if (not_taken_++ == 0) first_not_taken_ = file.path;
    put_back(file);
}

void deletion_run::delete_now(const taken_cell& cell) {
    file_system& files = form_.outside.files;
    const file_facts before = files.facts(cell.path);
    const gate_verdict verdict = gate_.ask(cell.path, cell.length);
    if (verdict != gate_verdict::may_go) return keep(cell.path, verdict);
    if (!files.remove_file(cell.path, before)) {
        if (!same_state(before, files.facts(cell.path))) return keep(cell.path, gate_verdict::changed);
        return refuse(cell.row, cell.column);
    }
    gate_.take(cell.path);
    freed_ += static_cast<double>(before.length);
    blank(cell);
    ++deleted_;
}

std::int32_t deletion_run::further_cells() const {
    std::int32_t count = 0;
    for (const auto& each : again_) count += gate_.is_taken(each.first);
    return count;
}

std::int32_t deletion_run::rows_of_two() const {
    // Both cells of a row are taken one after the other.
    std::int32_t count = 0;
    for (std::size_t i = 1; i < blanked_.size(); ++i)
        count += blanked_[i] == blanked_[i - 1] && list_.text_cell(blanked_[i], view_.first_path).empty() &&
                 list_.text_cell(blanked_[i], view_.second_path).empty();
    return count;
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
