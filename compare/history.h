// The signature history, run_history.txt: signatures of earlier runs, so that an unchanged file is not read
// again. Over the slices of the run state that hold it; only for lists of more than history_threshold files.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/state/file_columns.h"
#include "core/state/history_state.h"
#include "platform/file_system.h"

namespace corvane {

constexpr std::int32_t history_threshold = 500;

// Called while a history is read.
struct history_reading {
    std::function<void(std::int32_t rows)> begins;
    // Every 900th row; false ends it.
    std::function<bool(std::int32_t row)> reaches;
};

// Fills the history columns, up to `most` rows; both row forms are read. The rows are then ascending by name,
// each name once, however the file stood. A missing or broken file leaves them empty. False when it was
// ended.
bool read_history(file_system& disk, history_state& history, std::int32_t most,
                  const history_reading& reading);

// Gives every unchanged plain file the signature that it had.
void reuse_history(history_state& history, file_columns& files);

// Drops the rows of files that are gone. `turn` is called after each row.
void purge_history(file_system& disk, history_state& history, const std::function<void()>& turn);

// Orders the file columns by name and merges them into the stored history; history_count takes the rows that
// it has then. A file that holds them already is not written again. False, with the system's words in
// `error`, when it could not be written; the old file is then whole.
bool merge_history(file_system& disk, history_state& history, file_columns& files, std::string& error);

}  // namespace corvane
