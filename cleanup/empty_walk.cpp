#include "cleanup/empty_walk.h"

#include <memory>
#include <utility>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/path_text.h"
#include "core/text/text_case.h"
#include "core/text/text_format.h"
#include "core/walk/directory_filter.h"

namespace corvane {

namespace {
constexpr std::int32_t files_per_status = 213;
}

empty_walk::empty_walk(Tavrel& form) : form_(form), links_(form.outside.files) {}

empty_walk::ending empty_walk::run() {
    run_state& state = form_.state;
    state.dir_queue.clear();
    queue_roots();
    form_.listleft.clear();
    std::int32_t i = 1;
    do {
        for (; i <= state.dir_queue.size(); ++i) {
            // A copy: the queue grows while the directory is read.
            const std::string directory = with_separator(state.dir_queue[i], form_.outside.files.separator());
            if (skip_directory(form_.outside.files, form_.state.exclude_dir_text, directory)) continue;
            if (visited_.size() >= state.limits.empty_directories) {
                full_ = true;
                return ending::finished;
            }
            if (!list_one(directory)) return ending::quit;
            if (state.cancel_task) return ending::cancelled;
        }
        std::string link = links_.next();
        if (link.empty()) break;
        if (first_link_ == 0) first_link_ = visited_.size() + 1;
        // Where it was met it has been counted, and a selected one is no entry of any directory here.
        enqueue(std::move(link));
        --beside_;
    } while (i <= state.dir_queue.size());
    return ending::finished;
}

void empty_walk::queue_roots() {
    run_state& state = form_.state;
    const bool folds = form_.outside.files.ignores_case();
    for (std::int16_t i = 1; i <= state.selected_dir_count; ++i) {
        const std::string& selected = state.selected_dirs[i];
        if (is_blank(trimmed(selected))) continue;
        const std::string directory =
            with_separator(folds ? upper_case(selected) : selected, form_.outside.files.separator());
        if (!skip_directory(form_.outside.files, form_.state.exclude_dir_text, directory) &&
            links_.take_root(directory))
            enqueue(directory);
    }
}

// What does not fit is an entry of its directory all the same.
void empty_walk::enqueue(std::string directory) {
    column<std::string>& queue = form_.state.dir_queue;
    if (queue.size() >= form_.state.limits.directories) {
        full_ = true;
        ++beside_;
    } else {
        queue.push_back(std::move(directory));
    }
}

bool empty_walk::list_one(const std::string& directory) {
    visited_.push_back(directory);
    marks_.push_back(entries());
    const outcome_with<directory_reader> reader = form_.outside.files.open_directory(directory);
    if (!reader) {
        ++beside_;
        return true;
    }
    links_.note_listed(reader->identity());
    const char separator = form_.outside.files.separator();
    std::string last_name;
    std::string_view name;
    entry_kind kind;
    while (reader->next(name, kind)) {
        last_name = name;
        if (kind == entry_kind::directory) {
            take_directory(directory, (directory + last_name) += separator);
        } else if (kind == entry_kind::link_to_directory) {
            ++beside_;
            links_.wait((directory + last_name) += separator);
        } else {
            take_file();
        }
        form_.yield();
        if (form_.state.quit_requested) return false;
    }
    if (reader->failed()) {
        ++beside_;
        show_failure(directory + last_name);
    }
    return true;
}

void empty_walk::take_directory(const std::string& directory, std::string found) {
    enqueue(std::move(found));
    form_.yield();
    if (form_.state.show_run_filename) {
        std::string& shown = form_.Label4.caption;
        shown = "目录数:";
        shown.append(std::to_string(form_.state.dir_queue.size())).append("  ").append(directory);
    }
    form_.panel(1, figure());
    show_elapsed(form_);
}

void empty_walk::take_file() {
    if (++form_.state.walk_count % files_per_status != 0) return;
    constexpr const char* searching = "正在搜索";
    form_.panel(1, form_.StatusBar1.panel(1) == searching ? figure() : searching);
    show_elapsed(form_);
}

void empty_walk::show_failure(const std::string& name) {
    std::string words = name.find_first_of("*?") != std::string::npos
                            ? "错误提示: 下列文件有非法字符,所在目录不作处理"
                            : "错误提示: 无法知道下列文件的属性,所在目录不作处理";
    form_.complain(words.append("\r\n").append(name));
}

std::string empty_walk::figure() const {
    return "搜索目录:" + std::to_string(form_.state.dir_queue.size());
}

std::int64_t empty_walk::entries() const {
    return form_.state.walk_count + form_.state.dir_queue.size() + beside_;
}

bool empty_walk::is_empty(std::int32_t k) const {
    const auto at = static_cast<std::size_t>(k);
    const std::int64_t end = at + 1 < marks_.size() ? marks_[at + 1] : entries();
    if (end != marks_[at]) return false;
    // Only from here on a path can itself be a link.
    if (first_link_ == 0 || k < first_link_) return true;
    return !form_.outside.files.attributes(std::string(visited_[k])).link;
}

}  // namespace corvane
