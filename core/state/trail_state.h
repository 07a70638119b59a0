// Error trail and run records. A slice of the run state.
#pragma once

#include <cstdint>

#include "core/text/text_column.h"

namespace corvane {

struct trail_state {
    text_column avoid_files;
    std::int32_t avoid_count = 0;
    text_column run_lines;
    std::int16_t run_line_count = 0;
    double run_rate = 0;  // seconds a file, by the records of earlier runs
};

}  // namespace corvane
