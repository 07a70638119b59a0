// Clocks, in seconds. A slice of the run state.
#pragma once

namespace corvane {

struct clock_state {
    double task_start_time = 0;
    double run_start_time = 0;
    double base_time = 0;  // base of the elapsed times that the running task shows
};

}  // namespace corvane
