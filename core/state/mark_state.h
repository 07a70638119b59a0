// The history of marks: which cells each act has coloured, for undo and redo. A slice of the run state; the
// marks themselves are the colours of the list and nothing else.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// One cell. Colours are kept as a number of one byte (browser/mark_history).
struct mark_change {
    std::uint64_t key;  // of the row's texts: where the row stands is a guess, what it says is not
    std::int32_t row;   // where it stood; 0: nowhere
    std::uint8_t column;
    std::uint8_t before;
    std::uint8_t after;
};

struct mark_step {
    std::uint64_t fill = 0;  // list_view::fill_revision() when it was done
    std::vector<mark_change> changes;
};

struct mark_stacks {
    std::vector<mark_step> undo;
    std::vector<mark_step> redo;
};

struct mark_state {
    std::array<mark_stacks, 5> mark_history;  // by list_mode
    bool stored_marks_asked = false;          // those of the last run have had their chance
    bool rows_stand = false;                  // the task that runs changes no row
    std::string keep_folders_text;            // the last answer to "按目录次序保留"
};

}  // namespace corvane
