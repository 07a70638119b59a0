// Undo and redo of marks, any number of steps. Every act that marks, by the stated rules or by one of the
// menu, is noted here; what an undo brings back are colours, on rows that still say the same.
#pragma once

#include <cstdint>
#include <vector>

#include "core/model/list_view.h"

namespace corvane {

class Tavrel;

// While an act marks cells and leaves the rows in their places. At its end what it has coloured is a step of
// the history; a mark on a protected path is taken back, and panel 5 says so.
class mark_act {
  public:
    // Notes rows first to last, as far as there are such; all rows.
    mark_act(Tavrel& form, std::int32_t first, std::int32_t last);
    explicit mark_act(Tavrel& form);
    ~mark_act();
    mark_act(const mark_act&) = delete;
    mark_act& operator=(const mark_act&) = delete;

  private:
    Tavrel& form_;
    std::int32_t first_;
    std::int32_t last_;
    std::uint64_t fill_;
    std::vector<std::uint32_t> colours_;  // of each row's path cells
};

// While an act moves the rows or makes them anew, or colours over marks. At its end the marks that have gone
// or come are a step. Very many marks are looked at beside the event loop, with the tasks locked.
class row_act {
  public:
    // Of an act that leaves all rows in their places no text is looked at, unless a mark has changed.
    enum class rows { move, stay };
    explicit row_act(Tavrel& form, rows what = rows::move);
    ~row_act();
    row_act(const row_act&) = delete;
    row_act& operator=(const row_act&) = delete;

    struct red_cell {
        std::uint64_t key;
        std::int32_t row;
        int column;
    };

  private:
    std::vector<red_cell> keyed_cells() const;
    bool is_over() const;
    void note_moved();
    void note_stayed();

    Tavrel& form_;
    rows rows_;
    std::int16_t list_mode_;
    list_revisions revisions_;
    std::vector<red_cell> before_;
};

// The marked cells as they stand, by row.
std::vector<row_act::red_cell> red_cells(const Tavrel& form);
// Marks these again, where their rows are there and can be marked.
void mark_again(Tavrel& form, const std::vector<row_act::red_cell>& cells);

void undo_marks_Click(Tavrel& form);
void redo_marks_Click(Tavrel& form);

// Takes the marks of paths that have become protected away; the history forgets them not, but brings none
// back.
void unmark_protected(Tavrel& form);

}  // namespace corvane
