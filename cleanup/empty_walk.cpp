#include "cleanup/empty_walk.h"

#include <span>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"

namespace corvane {

namespace {
constexpr std::int32_t files_per_status = 213;
}

walk_course empty_walk::run() {
    run_state& state = form_.state;
    const walk_rules rules = {
        .excluded = state.exclude_dir_text, .limit = state.limits.directories, .roots = root_text::folded};
    form_.listleft.clear();
    const std::span<std::string> selected = state.selected_dirs.range(1, state.selected_dir_count);
    const walk_result result = walk_tree(form_.outside.files, selected, state.dir_queue, rules, *this);
    limit_reached_ |= result.limit_reached;
    return result.ending;
}

walk_course empty_walk::enter(const std::string& directory) {
    if (visited_.size() >= form_.state.limits.empty_directories) {
        limit_reached_ = true;
        return walk_course::finished;
    }
    visited_.push_back(directory);
    holds_something_.push_back(0);
    return walk_course::go_on;
}

walk_course empty_walk::entry(const std::string& directory, std::string_view /*name*/, entry_kind kind) {
    holds_something_[holds_something_.size()] = 1;
    if (kind == entry_kind::directory)
        show_directory(directory);
    else if (kind != entry_kind::link_to_directory)
        take_file();
    form_.yield();
    return form_.state.quit_requested ? walk_course::quit : walk_course::go_on;
}

walk_course empty_walk::leave(const std::string& directory, directory_reading reading,
                              const std::string& last_name) {
    if (reading != directory_reading::whole) holds_something_[holds_something_.size()] = 1;
    if (reading == directory_reading::cut_short) show_failure(directory + last_name);
    return form_.state.cancel_task ? walk_course::cancelled : walk_course::go_on;
}

void empty_walk::links_begin() {
    first_link_ = visited_.size() + 1;
}

void empty_walk::show_directory(const std::string& directory) {
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

bool empty_walk::is_empty(std::int32_t k) const {
    if (holds_something_[k]) return false;
    // Only from here on a path can itself be a link.
    if (first_link_ == 0 || k < first_link_) return true;
    return !form_.outside.files.attributes(std::string(visited_[k])).link;
}

}  // namespace corvane
