#include "compare/comparison.h"

#include <algorithm>
#include <string>

#include "compare/estimate.h"
#include "compare/group.h"
#include "core/model/main_form.h"
#include "core/tasks/error_trail.h"
#include "core/tasks/progress.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr double status_seconds = 3;
constexpr std::int32_t files_per_clock_look = 5;
constexpr std::int32_t partners_per_status = 100;
constexpr std::int32_t pairs_per_status = 8;

class comparison {
  public:
    explicit comparison(Tavrel& form)
        : form_(form),
          state_(form.state),
          estimate_(form),
          group_(form.outside.files, form.state, events_of(form)) {}

    comparison_outcome run() {
        double last_status = form_.outside.screen.seconds();
        std::int32_t i = 1;
        for (; i < state_.file_count; ++i) {
            if (!state_.file_ok[i] || state_.file_matched[i]) continue;
            form_.yield();
            if (state_.cancel_task) return {comparison_end::cancelled, i};
            if (state_.quit_requested) return {comparison_end::quit, i};
            if (i % time_estimate::checkpoint_files == 0) {
                estimate_.checkpoint(i);
                last_status = form_.outside.screen.seconds();
            }
            if (i % files_per_clock_look == 0 &&
                form_.outside.screen.seconds() - last_status > status_seconds) {
                form_.panel(5, "已检查:" + std::to_string(i) + "个文件");
                show_elapsed(form_);
                last_status = form_.outside.screen.seconds();
            }
            bar_draw(form_, i);
            group_.clear_archive_flag();
            if (state_.file_len[i] == 0) {
                i = pair_empty_files(i);
                continue;
            }
            if (group_.end() <= i && !group_.open(i)) return {comparison_end::quit, i};
            if (state_.file_ok[i] && group_.end() > i) compare_with_later(i);
        }
        if (state_.quit_requested) return {comparison_end::quit, i};
        return {comparison_end::finished, state_.file_count};
    }

  private:
    static group_events events_of(Tavrel& form) {
        return {[&form] {
                    form.yield();
                    return !form.state.quit_requested;
                },
                [&form](std::string_view path) { note_in_trail(form, path); },
                [&form](std::string_view path) {
                    if (form.state.show_run_filename) form.Label4.caption = path;
                }};
    }

    // Pairs every empty file with the first; these files keep counting as different ones, too. Returns the
    // last of them.
    std::int32_t pair_empty_files(std::int32_t i) {
        std::int32_t k = i + 1;
        for (; k <= state_.file_count && state_.file_len[k] == 0; ++k)
            if (state_.file_ok[k] && !is_one_physical_file(i, k)) add_pair(i, k);
        return k - 1;
    }

    void compare_with_later(std::int32_t i) {
        for (std::int32_t j = group_.next_candidate(i, i); j <= group_.end();
             j = group_.next_candidate(i, j)) {
            if (j % partners_per_status == 0) show_elapsed(form_);
            const bool same = group_.same(i, j);
            form_.yield();
            if (same && !is_one_physical_file(i, j)) register_pair(i, j);
        }
    }

    // Two paths of a file that has a single link, as behind a bind mount, are no pair: deleting one of them
    // would delete the file.
    bool is_one_physical_file(std::int32_t i, std::int32_t j) {
        if (state_.file_place[i] == 0 || state_.file_place[i] != state_.file_place[j]) return false;
        if (state_.file_list[i] == state_.file_list[j]) return false;
        const file_facts a = form_.outside.files.facts(state_.file_list[i]);
        const file_facts b = form_.outside.files.facts(state_.file_list[j]);
        return a.exists && b.exists && a.identity == b.identity;
    }

    void add_pair(std::int32_t first, std::int32_t second) {
        ++state_.result_count;
        state_.same_pair[1].push_back(first);
        state_.same_pair[2].push_back(second);
    }

    void register_pair(std::int32_t i, std::int32_t j) {
        if (state_.file_list[i] >= state_.file_list[j])
            add_pair(j, i);
        else
            add_pair(i, j);
        state_.file_has_twin[i] = 1;
        state_.file_has_twin[j] = 1;
        state_.file_matched[j] = 1;
        state_.same_bytes += static_cast<double>(state_.file_len[i]);
        if (state_.result_count % pairs_per_status != 0) return;
        double shown = state_.same_bytes;
        scale_size(shown, state_.size_unit);
        form_.panel(3, "相同文件:" + std::to_string(state_.result_count));
        form_.panel(4, "相同文件长度:" + group_digits(shown) + state_.size_unit);
    }

    Tavrel& form_;
    run_state& state_;
    time_estimate estimate_;
    file_group group_;
};

}  // namespace

comparison_outcome compare_files(Tavrel& form) {
    return comparison(form).run();
}

}  // namespace corvane
