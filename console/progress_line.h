// The line that tells how far a run is: share, speed, time left. Written over itself on a terminal.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>

#include "core/model/main_form.h"
#include "core/tasks/run_work.h"

namespace corvane {

class progress_line {
  public:
    // Both outlive the line.
    progress_line(const Tavrel& form, std::FILE* terminal) : form_(form), terminal_(terminal) {}

    // To be called often: writes at most ten times a second.
    void step();
    // Takes the line off the terminal.
    void clear();

  private:
    using clock = std::chrono::steady_clock;
    std::string words(double seconds) const;

    const Tavrel& form_;
    std::FILE* terminal_;
    bool shown_ = false;
    run_work work_;
    int phase_ = 0;
    clock::time_point last_{};
    clock::time_point begun_{};  // of the phase
};

}  // namespace corvane
