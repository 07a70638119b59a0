#include "core/tasks/run_progress.h"

#include <algorithm>
#include <cmath>

#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr double between_samples = 0.2;  // seconds
constexpr double least_pace_time = 1;    // a pace of less than that is none

std::string grouped(double number) {
    return group_count(std::floor(number));
}

}  // namespace

void run_progress::follow(const Tavrel& form, double seconds) {
    work_.follow(form);
    if (work_.phases() != phase_) {
        phase_ = work_.phases();
        samples_.clear();
    }
    const colour_bar& bar = form.pic_gressbar1;
    share_ = work_.now() == run_work::phase::none || work_.now() == run_work::phase::searching
                 ? (form.state.tasks_locked && bar.visible && bar.total() > 0 ? bar.filled() : -1)
                 : work_.share();
    if (work_.now() == run_work::phase::none) return;
    const sample now{seconds, static_cast<double>(work_.done()), static_cast<double>(form.state.bytes_read)};
    // The last one is always the present moment; those before it keep their distance.
    if (samples_.size() >= 2 && seconds - samples_[samples_.size() - 2].at < between_samples)
        samples_.back() = now;
    else
        samples_.push_back(now);
    while (samples_.size() > 2 && seconds - samples_[1].at >= window) samples_.pop_front();
}

double run_progress::per_second(double sample::*what) const {
    if (samples_.size() < 2) return 0;
    const double time = samples_.back().at - samples_.front().at;
    return time < least_pace_time ? 0 : (samples_.back().*what - samples_.front().*what) / time;
}

double run_progress::seconds_left() const {
    const double pace = per_second(&sample::work);
    return pace > 0 ? static_cast<double>(work_.total() - work_.done()) / pace : -1;
}

std::string run_progress::percent_words() const {
    if (share_ < 0) return {};
    return std::to_string(static_cast<int>(std::floor(std::min(share_, 1.0) * 100))) + "%";
}

std::string run_progress::found_words() const {
    return "已找到 " + grouped(static_cast<double>(work_.done())) + " 个文件";
}

std::string run_progress::words() const {
    const double files = per_second(&sample::work);
    const std::string files_pace = files >= 1 ? ", 每秒 " + grouped(files) + " 个" : "";
    switch (work_.now()) {
        case run_work::phase::searching:
            return found_words() + files_pace;
        case run_work::phase::checking:
            return "核对属性 " + percent_words() + ", " + grouped(static_cast<double>(work_.done())) + " / " +
                   grouped(static_cast<double>(work_.total())) + " 个文件" + files_pace;
        case run_work::phase::comparing:
            break;
        default:
            return {};
    }
    std::string words = "比对 " + percent_words() + ", " +
                        short_size(static_cast<double>(work_.bytes_done())) + " / " +
                        short_size(static_cast<double>(work_.bytes_total()));
    if (const double speed = per_second(&sample::bytes); speed > 0) words += ", 每秒 " + short_size(speed);
    if (const double left = seconds_left(); left >= 0)
        words += ", 剩余约 " + format_elapsed(std::ceil(left), 1);
    return words;
}

}  // namespace corvane
