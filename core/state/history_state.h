// Signatures of earlier runs, ordered by name. A slice of the run state.
#pragma once

#include <cstdint>
#include <string>

#include "core/text/column.h"
#include "core/text/text_column.h"

namespace corvane {

struct history_state {
    std::string history_path;
    bool history_off = false;  // signatures are neither read nor written in this run of the program
    text_column history_name;
    column<std::int64_t> history_len;
    column<std::int32_t> history_date_hi;
    column<std::int32_t> history_date_lo;
    column<std::int32_t> history_crc;
    std::int32_t history_count = 0;
    bool history_as_stored = false;  // the columns are what the file holds, row by row
};

}  // namespace corvane
