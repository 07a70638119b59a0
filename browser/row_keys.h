// Rows of the list by what they say: a row that has moved, or has come again with a new load, is found by
// its texts. Used by the history of marks and by the stored marks.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/model/list_view.h"

namespace corvane {

class Tavrel;

class row_keys {
  public:
    // Of the view that stands. The rows stay as they are while the object lives; colours may change.
    explicit row_keys(const Tavrel& form);

    // The view has path cells that can be marked, and they are there.
    bool has_cells() const { return last_column_ != 0; }
    int first_column() const { return first_column_; }
    int last_column() const { return last_column_; }

    // Of a row by its path cells and its length.
    std::uint64_t key(std::int32_t row) const;
    // Of a pair that says this.
    std::uint64_t key_of(std::int64_t length, std::string_view first, std::string_view second) const;
    // The row with that key, 0 for none. `guess` is looked at first, any number will do.
    std::int32_t find(std::uint64_t key, std::int32_t guess);

  private:
    void index_rows();

    const list_view& list_;
    std::uint64_t view_;
    int length_column_;
    int first_column_;
    int last_column_;
    std::vector<std::int32_t> rows_;   // open addressing; 0 for a free place
    std::vector<std::uint64_t> keys_;  // of the rows
};

}  // namespace corvane
