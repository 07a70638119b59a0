// What the process has spent since this was made, however busy the machine is. Used by tests that limit a
// cost.
#pragma once

#include <ctime>

namespace corvane {

class processor_time {
  public:
    double milliseconds() const {
        return static_cast<double>(std::clock() - start_) * 1000.0 / CLOCKS_PER_SEC;
    }

  private:
    std::clock_t start_ = std::clock();
};

}  // namespace corvane
