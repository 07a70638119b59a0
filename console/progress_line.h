// The line that tells how far a run is: share, speed, time left. Written over itself on a terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

#include "core/model/main_form.h"

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
    enum class phase { none, searching, checking, comparing };

    phase current_phase() const;
    // The work of a comparison: bytes of what may have to be read, and a share for each file.
    std::int64_t work_of(std::int32_t i) const;
    void begin(phase now, clock::time_point moment);
    void advance();
    std::string words(double seconds) const;

    const Tavrel& form_;
    std::FILE* terminal_;
    bool shown_ = false;
    phase phase_ = phase::none;
    clock::time_point last_{};
    clock::time_point begun_{};
    std::int64_t total_ = 0;
    std::int64_t done_ = 0;
    std::int32_t place_ = 0;  // files that done_ counts
};

}  // namespace corvane
