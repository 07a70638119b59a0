// The estimate of the comparison's running time, shown in panel 7 at every 200th file.
#pragma once

#include <cstdint>

namespace corvane {

class Tavrel;

class time_estimate {
  public:
    // Reads the run records; shows a first estimate when they give a rate.
    explicit time_estimate(Tavrel& form);

    // At file i, a multiple of the checkpoint: renews the estimate and the figures of panels 5 and 6.
    void checkpoint(std::int32_t i);
    static constexpr std::int32_t checkpoint_files = 200;

  private:
    void show(double seconds);

    Tavrel& form_;
    double coefficient_ = 2.0;
    double correction_ = 2.0;
    double predicted_ = 0;  // elapsed seconds foreseen for the next checkpoint
    double last_shown_ = 0;
};

}  // namespace corvane
