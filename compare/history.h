// The signature history, run_history.txt: signatures of earlier runs, so that an unchanged file is not read
// again. Only for lists of more than history_threshold files.
#pragma once

#include <cstdint>

namespace corvane {

class Tavrel;

constexpr std::int32_t history_threshold = 500;

// Fills the history columns; both row forms are read. False when quit_requested was met.
bool load_history(Tavrel& form);

// Gives every unchanged plain file the signature that it had.
void reuse_history(Tavrel& form);

// Orders the columns by name and merges them into the stored history. False when it could not be written;
// the failure has been reported.
bool merge_history(Tavrel& form);

}  // namespace corvane
