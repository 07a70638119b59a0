// The running task in words: how far it is, how fast, and what is left by the pace of its last seconds. Fed
// by the windows after each copy of the models; the clock is that of the user_interface port.
#pragma once

#include <deque>
#include <string>

#include "core/tasks/run_work.h"

namespace corvane {

class run_progress {
  public:
    // Looks at the models. `seconds` never runs backwards.
    void follow(const Tavrel& form, double seconds);

    bool searches() const { return work_.now() == run_work::phase::searching; }
    // 0 to 1 of any task that shows a bar; below 0 where there is none to tell.
    double share() const { return share_; }
    // "已找到 12,480 个文件, 每秒 3,120 个", "比对 62%, 3.1 GB / 5.0 GB, 每秒 120.0 MB, 剩余约 0:1:20"; empty
    // where the task has no such line. Speed and rest stand there once there is a pace to reckon from.
    std::string words() const;
    // While files are searched: their number so far, in words for those who look on.
    std::string found_words() const;
    // "62%", for the title of the window; empty without a share.
    std::string percent_words() const;

    // Seconds that a pace is taken from.
    static constexpr double window = 5;

  private:
    struct sample {
        double at;
        double work;
        double bytes;  // read
    };
    // Of the last seconds; 0 where there is none yet.
    double per_second(double sample::*what) const;
    double seconds_left() const;

    run_work work_;
    int phase_ = -1;
    double share_ = -1;
    std::deque<sample> samples_;
};

}  // namespace corvane
