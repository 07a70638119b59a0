#include "core/tasks/run_work.h"

#include <algorithm>
#include <cmath>

#include "core/model/main_form.h"
#include "core/model/phase_words.h"

namespace corvane {

namespace {
// What it costs to open a file, in bytes that could be read meanwhile; and to pass over one.
constexpr std::int64_t opening_work = 20'000;
constexpr std::int64_t passing_work = 20;
}  // namespace

run_work::phase run_work::phase_of(const Tavrel& form) {
    const run_state& state = form.state;
    if (!state.tasks_locked) return phase::none;
    if (form.Command28.visible)
        return form.Command28.caption == phase_words::cancel_comparing && state.file_count > 0 &&
                       state.file_len.size() == state.file_count
                   ? phase::comparing
                   : phase::none;
    if (state.file_count == 0)
        return form.StatusBar1.panel(7) == phase_words::searching ? phase::searching : phase::none;
    return form.StatusBar1.panel(7) == phase_words::checking && form.pic_gressbar1.visible ? phase::checking
                                                                                           : phase::none;
}

run_work::amount run_work::amount_of(const Tavrel& form, std::int32_t i) {
    const run_state& state = form.state;
    const std::int64_t length = state.file_len[i];
    const bool alone = (i == 1 || state.file_len[i - 1] != length) &&
                       (i == state.file_count || state.file_len[i + 1] != length);
    if (alone || length <= 0) return {passing_work, 0};
    return {length + opening_work, length};
}

void run_work::begin(const Tavrel& form, phase now) {
    phase_ = now;
    ++phases_;
    total_ = done_ = bytes_total_ = bytes_done_ = 0;
    place_ = group_end_ = 0;
    group_rest_ = 0;
    passed_ = {};
    read_before_ = form.state.bytes_read;
    if (now != phase::comparing) return;
    for (std::int32_t i = 1; i <= form.state.file_count; ++i) {
        const amount each = amount_of(form, i);
        total_ += each.work;
        bytes_total_ += each.bytes;
    }
}

// Bytes of the files from the one in work to the last of its length: a group is read when its first file is.
std::int64_t run_work::rest_of_group(const Tavrel& form) {
    const run_state& state = form.state;
    const std::int32_t first = place_ + 1;
    if (first > state.file_count) return 0;
    if (group_end_ < first) {
        group_end_ = first;
        while (group_end_ < state.file_count && state.file_len[group_end_ + 1] == state.file_len[first])
            ++group_end_;
    }
    return amount_of(form, first).bytes * (std::int64_t{group_end_} - place_);
}

void run_work::follow_comparison(const Tavrel& form, std::int32_t reached) {
    const run_state& state = form.state;
    if (state.file_len.size() != state.file_count) return;
    // The file that the bar has reached is the one in work.
    const std::int32_t behind = std::min(reached - 1, state.file_count);
    if (place_ < behind) {
        while (place_ < behind) {
            const amount each = amount_of(form, ++place_);
            passed_.work += each.work;
            passed_.bytes += each.bytes;
        }
        read_before_ = state.bytes_read;
        group_rest_ = rest_of_group(form);
    } else if (place_ == 0 && group_end_ == 0) {
        group_rest_ = rest_of_group(form);
    }
    const std::int64_t read = std::clamp<std::int64_t>(state.bytes_read - read_before_, 0, group_rest_);
    // What a group has been read for counts at once and is not taken back while its files pass.
    done_ = std::min(total_, std::max(done_, passed_.work + read));
    bytes_done_ = std::min(bytes_total_, std::max(bytes_done_, passed_.bytes + read));
}

void run_work::follow(const Tavrel& form) {
    const phase now = phase_of(form);
    if (now != phase_) begin(form, now);
    if (now == phase::searching) done_ = form.state.walk_count;
    const colour_bar& bar = form.pic_gressbar1;
    const auto reached =
        static_cast<std::int32_t>(std::llround(bar.filled() * static_cast<double>(bar.total())));
    if (now == phase::checking) {
        total_ = bar.total();
        done_ = reached;
    }
    if (now == phase::comparing) follow_comparison(form, reached);
}

double run_work::share() const {
    if (total_ <= 0) return -1;
    return std::clamp(static_cast<double>(done_) / static_cast<double>(total_), 0.0, 1.0);
}

}  // namespace corvane
