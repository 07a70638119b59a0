#include "cleanup/recycle_notes.h"

#include <cstdio>
#include <span>

#include "cleanup/recycled_run.h"
#include "core/model/main_form.h"
#include "core/settings/data_files.h"

namespace corvane {

namespace {

constexpr std::size_t block = 64 * std::size_t{1024};  // bytes of pairs that are handed on at once

std::string two_digits(int number) {
    const std::string digits = std::to_string(number);
    return digits.size() < 2 ? "0" + digits : digits;
}

std::string date_of(const local_time& time) {
    return std::to_string(time.year) + "-" + two_digits(time.month) + "-" + two_digits(time.day);
}

std::string clock_of(const local_time& time) {
    return two_digits(time.hour) + ":" + two_digits(time.minute) + ":" + two_digits(time.second);
}

// A name that sorts by its time; two runs of one second get two.
std::string free_path(Tavrel& form, const local_time& time) {
    std::string stem = form.data_path(data_file::recycled_runs);
    stem += form.outside.files.separator() + date_of(time) + " ";
    stem += two_digits(time.hour) + two_digits(time.minute) + two_digits(time.second);
    for (int number = 1;; ++number) {
        std::string path = stem;
        path.append(" ").append(two_digits(number)).append(".txt");
        if (!path_exists(form.outside.files, path)) return path;
    }
}

}  // namespace

std::string note_line(const char* letter, std::initializer_list<std::string_view> values) {
    std::string line = letter;
    for (const std::string_view value : values) line.append("\t").append(value);
    return line.append("\t.");
}

recycle_notes::recycle_notes(Tavrel& form) : form_(form), bin_(form.outside.bin) {}

void recycle_notes::open() {
    if (file_ || !failure_.empty()) return;
    const local_time time = form_.outside.screen.now();
    const outcome made = form_.outside.files.make_directory(form_.data_path(data_file::recycled_runs));
    path_ = free_path(form_, time);
    if (!made) {
        failure_ = made.reason;
        return;
    }
    auto opened = form_.outside.files.overwrite_file(path_);
    if (!opened) {
        failure_ = opened.reason;
        return;
    }
    file_ = std::move(opened.object);
    lines_ = std::string(recycle_notes_title) + "\r\n";
    add(note_line("T", {date_of(time), clock_of(time)}));
    for (const std::string& directory : form_.state.result_dirs) add(note_line("D", {directory}));
}

void recycle_notes::add(const std::string& line) {
    lines_.append(line).append("\r\n");
}

void recycle_notes::flush() {
    if (!file_ || lines_.empty()) return;
    const outcome written = file_->write(lines_);
    lines_.clear();
    if (written) return;
    failure_ = written.reason;
    file_.reset();
}

void recycle_notes::pair(std::int64_t length, std::string_view first, std::string_view second) {
    if (bin_ == nullptr) return;
    open();
    if (!file_) return;
    add(note_line("P", {std::to_string(length), first, second}));
    if (lines_.size() > block) flush();
}

void recycle_notes::going(const std::string& path) {
    is_noted_ = false;
    if (bin_ == nullptr) return;
    open();
    const std::optional<recycled_item> item = file_ ? bin_->look(path) : std::nullopt;
    if (!item) return;
    current_ = *item;
    add(note_line("F", {item->directory ? "d" : "f", std::to_string(item->identity.device),
                        std::to_string(item->identity.index), std::to_string(item->length),
                        std::to_string(item->modified_ns), item->folder, item->path}));
    flush();
    if (!file_) return;
    is_noted_ = true;
    ++number_;
}

void recycle_notes::answer(bool gone) {
    if (!is_noted_) return;
    if (gone) {
        batch_.emplace_back(number_, std::move(current_));
        ++gone_;
    } else {
        add(note_line("X", {std::to_string(number_)}));
        flush();
    }
}

void recycle_notes::end_batch() {
    if (batch_.empty()) return;
    std::vector<recycled_item> items;
    items.reserve(batch_.size());
    for (const auto& each : batch_) items.push_back(each.second);
    const std::vector<trash_entry> found = bin_->find(items);
    for (std::size_t i = 0; i < found.size(); ++i)
        if (found[i].is_known()) add(entry_line(batch_[i].first, found[i]));
    batch_.clear();
    flush();
}

void recycle_notes::finish() {
    end_batch();
    if (file_) {
        add(note_line("Z", {std::to_string(gone_)}));
        flush();
    }
    if (file_) {
        const outcome closed = file_->commit();
        if (!closed) failure_ = closed.reason;
        file_.reset();
    }
    if (failure_.empty()) return;
    form_.complain(path_ + "\r\n" + failure_ + "\r\n本次删除没有记完,没有记下的不能用<恢复上次删除>恢复。");
    failure_.clear();
    bin_ = nullptr;
}

}  // namespace corvane
