// The list that an export works on, and the viewer that shows the last one. A slice of the run state.
#pragma once

#include <cstdint>
#include <memory>

#include "core/text/flag.h"
#include "core/text/text_column.h"
#include "platform/shell.h"

namespace corvane {

struct export_state {
    text_column
        export_list;  // paths, and directories in place of what lies too deep, which end in the separator
    std::int32_t export_count = 0;

    std::unique_ptr<started_process> export_viewer;  // the viewer that the last export has started
    flag export_viewer_recorded;                     // it ran when it was asked for, right after its start
};

}  // namespace corvane
