// Sorting and searching text columns by plain character code, case-sensitive.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "core/text/text_column.h"

namespace corvane {

// A text with the row it came from; what the sorts of several columns work on.
struct text_row {
    const char* entry;
    std::int32_t row;
};

// Ascending by the bytes of the texts. Rows of equal texts keep their order. Sorts eight bytes at a time by
// a key held beside the pointer, so that most comparisons touch no text.
void sort_rows_by_text(std::span<text_row> rows);

// Ascending by character code over the range low to high, both included.
void sort_text_array(text_column& array, double low, double high);

struct search_result {
    std::int32_t index;        // where the key stands; -1 after a miss, 0 if the bounds were crossed on entry
    std::int32_t upper_bound;  // where the search stopped
};

// Binary search in an ascending column from `low` to `high`; the middle is rounded to the nearest, ties to
// even.
search_result find_text(const text_column& column, std::string_view key, std::int32_t low, std::int32_t high);

// The same for a key that is expected soon behind `low`: a few comparisons where it stands there.
search_result find_text_near(const text_column& column, std::string_view key, std::int32_t low,
                             std::int32_t high);

}  // namespace corvane
