// The run state: what the tasks share, under its stated names. One struct of named slices, owned by the main
// form; a procedure takes the slice that it works on. Columns are counted from 1.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "core/archives/archive_state.h"
#include "core/settings/added_settings.h"
#include "core/settings/remembered.h"
#include "core/settings/settings.h"
#include "core/state/capacity_limits.h"
#include "core/state/clock_state.h"
#include "core/state/export_state.h"
#include "core/state/file_columns.h"
#include "core/state/history_state.h"
#include "core/state/list_state.h"
#include "core/state/mark_state.h"
#include "core/state/protected_state.h"
#include "core/state/proven_files.h"
#include "core/state/result_state.h"
#include "core/state/shutdown_state.h"
#include "core/state/trail_state.h"
#include "core/state/walk_state.h"

namespace corvane {

struct run_state : settings,
                   walk_state,
                   archive_state,
                   file_columns,
                   result_state,
                   history_state,
                   proof_state,
                   trail_state,
                   list_state,
                   mark_state,
                   protected_state,
                   export_state,
                   clock_state,
                   shutdown_state {
    std::string program_dir;          // ends in the separator; every data file is addressed from it
    bool program_dir_locked = false;  // start-up found that program_dir cannot be written, and has said so
    std::string shared_dir;           // where the help and the lists that ship stand; ends in the separator
    std::string base_title;

    bool speaks_english = false;  // the windows do, and what is written for people to read
    bool tasks_locked = false;    // a task is running
    flag tips_on;                 // the controls show their tooltips
    flag quit_requested;
    flag cancel_task;
    flag chained_run_flag;

    added_settings added;
    remembered_values remembered;
    capacity_limits limits;
    // Lines of the settings file that are written as they stand here, by their numbers: their settings hold
    // for this run only.
    std::map<int, std::string> held_lines;

    run_state() = default;
    run_state(const run_state&) = delete;
    run_state& operator=(const run_state&) = delete;
};

}  // namespace corvane
