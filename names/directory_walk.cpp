#include "names/directory_walk.h"

#include <span>
#include <string>
#include <string_view>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/walk/tree_walk.h"

namespace corvane {

namespace {

class directory_name_visitor : public walk_visitor {
  public:
    explicit directory_name_visitor(Tavrel& form) : form_(form), state_(form.state) {}

    // The directory in hand is read to its end also while the program closes.
    walk_course enter(const std::string& /*directory*/) override {
        return state_.quit_requested ? walk_course::quit : walk_course::go_on;
    }

    walk_course entry(const std::string& directory, std::string_view /*name*/, entry_kind /*kind*/) override {
        form_.yield();
        if (state_.show_run_filename)
            form_.Label4.caption = "目录数:" + std::to_string(count()) + "  " + directory;
        show_count();
        return walk_course::go_on;
    }

    walk_course leave(const std::string& /*directory*/, directory_reading /*reading*/,
                      const std::string& /*last_name*/) override {
        show_count();
        show_elapsed(form_);
        return walk_course::go_on;
    }

  private:
    std::int32_t count() const { return state_.dir_queue.size(); }

    void show_count() {
        if (count() == shown_) return;
        shown_ = count();
        form_.panel(1, "搜索目录:" + std::to_string(shown_));
    }

    Tavrel& form_;
    run_state& state_;
    std::int32_t shown_ = 0;
};

}  // namespace

std::int32_t walk_directory_names(Tavrel& form) {
    run_state& state = form.state;
    const walk_rules rules = {.excluded = state.exclude_dir_text,
                              .limit = state.limits.directories,
                              .roots = root_text::trimmed_and_folded,
                              .queue_keeps_entered = true};
    directory_name_visitor visitor(form);
    const std::span<std::string> selected = state.selected_dirs.range(1, state.selected_dir_count);
    const walk_result result = walk_tree(form.outside.files, selected, state.dir_queue, rules, visitor);
    const std::int32_t found = state.dir_queue.size();
    if (result.limit_reached) form.inform("目录太多，只查前 " + std::to_string(found) + " 个目录。");
    return found;
}

}  // namespace corvane
