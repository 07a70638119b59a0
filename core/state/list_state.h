// What ListView1 shows, the last mouse event on it, and the marks that a deletion works off. A slice of the
// run state.
#pragma once

#include <cstdint>
#include <string>

#include "core/text/flag.h"

namespace corvane {

struct list_state {
    std::int16_t list_mode = 0;  // 0 same files, 1 empty directories, 2 different files, 3 and 4 same names

    std::int32_t clicked_row = 0;  // 0: no row was selected
    int clicked_column = 1;        // never 0
    std::int32_t anchor_row = 0;   // start of a Shift range
    std::string last_sort_column;  // header last sorted upward, or empty
    flag sort_descending;
    std::int32_t find_row = 0;  // row of the last hit

    std::string cleared_words;        // what an act has just taken away beside what it was asked for,
    std::uint64_t cleared_cells = 0;  // as long as the list has this cell_revision
    std::string filter_words;         // what the rows were chosen by,
    std::uint64_t filter_fill = 0;    // as long as the list has this fill_revision

    std::int32_t archive_mark_count = 0;  // names of archive entries written for deletion; never set back
    std::int32_t archive_del_count = 0;   // of these, handled in this run
    std::string archive_del_path;         // the list of them
    flag force_protected;                 // blue cells count as marked, and their attributes are cleared
};

}  // namespace corvane
