// The suffixes of the file list and how often each stands in it, for the user to pick from. Used by the
// tree's window.
#pragma once

#include <cstdint>

#include "core/model/controls.h"
#include "core/model/list_view.h"
#include "core/text/column.h"
#include "core/text/text_column.h"

namespace corvane {

class Tavrel;

class suffix_list {
  public:
    // `view` shows the suffixes and outlives the list.
    explicit suffix_list(list_view& view);

    text_column suffix_names;  // index as suffix_counts, in the order of their first file
    column<std::int32_t> suffix_counts;
    std::int32_t suffix_total = 0;
    std::int32_t largest_count = 0;

    void clear();
    // Counts the suffixes of file_list anew. Files inside archives have none: no tree shows them.
    void count(Tavrel& form);
    // The suffixes as rows, in their order.
    void fill();
    // A click on a heading: by suffix or by number; on the heading of the last sort the other way round.
    void sort(int heading);
    // A double click on the selected row: its text becomes red, and the box takes its suffix if it has it
    // not.
    void take_selected(control& box);

  private:
    list_view& view_;
    int sorted_by_ = 0;
    bool descends_ = false;
};

}  // namespace corvane
