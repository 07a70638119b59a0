// All pairs of the same-file view, those that a filter hides included, with what is marked: what the marks by
// rule reckon with.
#pragma once

#include <cstdint>
#include <vector>

#include "browser/pair_groups.h"

namespace corvane {

class Tavrel;

class pair_table {
  public:
    // Of the same-file view, which stands. Rows with a blank cell are no pairs any more. Without the marks no
    // colour is looked at: another thread may make it while rows and texts stay.
    enum class marks { known, unknown };
    explicit pair_table(const Tavrel& form, marks wanted = marks::known);

    struct member_state {
        std::int64_t length = 0;
        bool red = false;
        bool blue = false;
        bool marked = false;  // either
        bool shown = false;   // has a cell that can take a mark
        bool hidden = false;  // has one in a pair without a row
    };

    const pair_groups& groups() const { return groups_; }
    const member_state& state(std::int32_t member) const { return states_[static_cast<std::size_t>(member)]; }
    bool has_hidden_pairs() const { return hidden_pairs_ > 0; }
    // Files have been deleted from these rows: a path may be that of one that is gone.
    bool has_blank_cells() const { return blank_cells_; }

    // Reads the marks anew; the rows are the same.
    void renew_marks(const Tavrel& form);
    // Colours the cells of the chosen members that can take a mark. `chosen` has an entry for each member.
    void mark(Tavrel& form, const std::vector<char>& chosen) const;
    // Takes the marks of the chosen members away.
    void unmark(Tavrel& form, const std::vector<char>& chosen) const;

    // The pairs that have a row, in the order of the rows.
    struct shown_pair {
        std::int32_t row;
        pair_groups::members both;
    };
    const std::vector<shown_pair>& pairs() const { return pairs_; }

  private:
    void add_rows(const Tavrel& form);
    void add_hidden(const Tavrel& form);

    pair_groups groups_;
    std::vector<shown_pair> pairs_;
    std::vector<member_state> states_;
    std::int32_t hidden_pairs_ = 0;
    bool blank_cells_ = false;
};

// In each group of which everything is marked, the first member that is red alone loses its marks.
void keep_one_of_each_group(Tavrel& form);

}  // namespace corvane
