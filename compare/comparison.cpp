#include "compare/comparison.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <vector>

#include "compare/estimate.h"
#include "compare/file_questions.h"
#include "compare/group.h"
#include "compare/preparation.h"
#include "core/archives/archive_entry.h"
#include "core/archives/physical_file.h"
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
constexpr std::size_t most_confirmed_at_once = 256;

class comparison {
  public:
    explicit comparison(Tavrel& form)
        : form_(form),
          state_(form.state),
          estimate_(form),
          group_(form.outside.files, form.state, events_of(form)),
          questions_(
              form.outside.files, form.state, [&form] { form.yield(); },
              [&form] { return form.outside.screen.seconds(); }) {}

    comparison_outcome run(const std::function<void()>& keeps_contents) {
        const comparison_outcome outcome = walk_groups();
        if (outcome.end == comparison_end::quit) return outcome;
        confirm_contents();
        keeps_contents();
        state_.contents_known = {};  // the proofs want the room
        store_proofs();
        return outcome;
    }

  private:
    comparison_outcome walk_groups() {
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

    static group_events events_of(Tavrel& form) {
        return {[&form] {
                    form.yield();
                    return !form.state.quit_requested;
                },
                [&form](std::string_view path) { note_in_trail(form, path); },
                [&form](std::string_view path) {
                    if (form.state.show_run_filename) form.Label4.caption = path;
                },
                [&form] { return form.state.error_trail_on == -1; },
                [&form](std::int64_t bytes) { form.state.bytes_read += bytes; }};
    }

    // One that is to be paired with the centre.
    struct partner {
        std::int32_t file;
        sameness same;
        bool unchanged = false;
        file_facts facts = {};
    };

    // Pairs every empty file with the first; these files keep counting as different ones, too. Returns the
    // last of them, or i when that is no longer one.
    std::int32_t pair_empty_files(std::int32_t i) {
        std::int32_t k = i + 1;
        do {
            partners_.clear();
            for (; k <= state_.file_count && state_.file_len[k] == 0 &&
                   partners_.size() < most_confirmed_at_once;
                 ++k)
                if (state_.file_ok[k]) partners_.push_back({k, sameness::by_bytes});
            if (!partners_stand(i)) return i;
            for (const partner& each : partners_) {
                if (!is_another_file(i, each)) continue;
                add_pair(i, each.file);
                note_proof(i, each);
            }
        } while (!partners_.empty());
        return k - 1;
    }

    void compare_with_later(std::int32_t i) {
        for (std::int32_t j = group_.next_candidate(i, i); j <= group_.end();) {
            partners_.clear();
            for (; j <= group_.end() && partners_.size() < most_confirmed_at_once;
                 j = group_.next_candidate(i, j)) {
                if (j % partners_per_status == 0) show_elapsed(form_);
                const sameness same = group_.same(i, j);
                form_.yield();
                if (same != sameness::different) partners_.push_back({j, same});
            }
            // No event from here to the last of these pairs.
            if (partners_.empty()) continue;
            if (!partners_stand(i)) return;
            for (const partner& each : partners_) {
                if (!is_another_file(i, each)) continue;
                register_pair(i, each.file);
                if (each.same == sameness::by_bytes) note_proof(i, each);
            }
        }
    }

    // Asks whether the centre i and its partners, which have been read, still are the files that were listed.
    // One that has changed takes no further part: its bytes, as far as they were read, are not those that it
    // has now. False when the centre has; it is asked about once until more is read.
    bool partners_stand(std::int32_t i) {
        const bool knows_centre = centre_ == i && centre_readings_ == group_.readings();
        asked_.clear();
        if (!knows_centre) asked_.push_back(i);
        bool is_read = partners_.empty();
        for (const partner& each : partners_) {
            asked_.push_back(each.file);
            is_read = is_read || each.same != sameness::as_before;
        }
        const std::vector<file_facts>& facts = is_read ? questions_.now(asked_) : questions_.lately(asked_);
        std::size_t at = 0;
        if (!knows_centre) {
            centre_facts_ = facts[at];
            centre_ = is_unchanged(i, facts[at++]) ? i : 0;
            centre_readings_ = group_.readings();
            centre_noted_ = false;
            if (centre_ == 0) return false;
        }
        for (partner& each : partners_) {
            each.facts = facts[at];
            each.unchanged = is_unchanged(each.file, facts[at++]);
        }
        return true;
    }

    bool is_unchanged(std::int32_t i, const file_facts& facts) {
        if (is_archive_member(state_.file_list[i]) || is_as_listed(state_, i, facts)) return true;
        state_.file_ok[i] = 0;
        return false;
    }

    // True when the partner is unchanged, and removing one of it and i leaves the other. A path that is
    // listed twice counts as two.
    bool is_another_file(std::int32_t i, const partner& other) {
        if (!other.unchanged) return false;
        const std::string_view a = state_.file_list[i];
        const std::string_view b = state_.file_list[other.file];
        const bool members = is_archive_member(a);
        if (a == b || members != is_archive_member(b)) return true;
        file_system& disk = form_.outside.files;
        if (!members) return !same_physical_file(disk, a, centre_facts_, b, other.facts);
        const std::string_view archive_a = archive_path_of(a);
        const std::string_view archive_b = archive_path_of(b);
        return archive_a == archive_b || !same_physical_file(disk, archive_a, archive_facts(archive_a),
                                                             archive_b, archive_facts(archive_b));
    }

    const file_facts& archive_facts(std::string_view archive) {
        const auto [place, is_new] = archive_facts_.try_emplace(std::string(archive));
        if (is_new) place->second = form_.outside.files.facts(archive);
        return place->second;
    }

    void note_proof(std::int32_t i, const partner& other) {
        if (!centre_facts_.exists || !other.facts.exists) return;
        if (!centre_noted_) proven_.push_back({i, i});
        centre_noted_ = true;
        proven_.push_back({other.file, i});
    }

    // What was read of a file is kept for its listed state: it has to be the state of the reading, too. Those
    // that came into a pair have been asked.
    void confirm_contents() {
        known_contents& contents = state_.contents_known;
        if (contents.next == contents.stored_next) return;
        std::vector<bool> confirmed(static_cast<std::size_t>(state_.file_count) + 1);
        for (const auto& [file, star] : proven_) confirmed[static_cast<std::size_t>(file)] = true;
        for (std::int32_t i = 1; i <= state_.file_count;) {
            asked_.clear();
            for (; i <= state_.file_count && asked_.size() < most_confirmed_at_once; ++i)
                if (contents.of(i) >= contents.stored_next && !confirmed[static_cast<std::size_t>(i)])
                    asked_.push_back(i);
            const std::vector<file_facts>& facts = questions_.now(asked_);
            for (std::size_t n = 0; n < asked_.size(); ++n)
                if (!is_as_listed(state_, asked_[n], facts[n])) contents.numbers[asked_[n]] = 0;
            form_.yield();
            if (!state_.quit_requested) continue;
            contents = {};
            return;
        }
    }

    // The columns keep their order from here to the end of the comparison's own work, and what is_unchanged
    // has confirmed stands in them.
    void store_proofs() {
        state_.proven.reserve(proven_.size());
        for (const auto& [file, star] : proven_)
            state_.proven.note(state_.file_list[file], star, listed_state(state_, file));
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
    file_questions questions_;
    // The first file of the star in work, as it stood when it was confirmed.
    std::int32_t centre_ = 0;
    std::int32_t centre_readings_ = 0;
    bool centre_noted_ = false;
    file_facts centre_facts_;
    // What is confirmed at one go.
    std::vector<partner> partners_;
    std::vector<std::int32_t> asked_;
    std::vector<std::pair<std::int32_t, std::int32_t>> proven_;  // file and star
    std::unordered_map<std::string, file_facts> archive_facts_;
};

}  // namespace

comparison_outcome compare_files(Tavrel& form, const std::function<void()>& keeps_contents) {
    return comparison(form).run(keeps_contents);
}

}  // namespace corvane
