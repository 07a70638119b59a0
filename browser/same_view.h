// The same-file view: the stored pairs as rows of ListView1. Once the view stands, the list is the authority:
// marks live in its cell colours, and the store is rewritten from its rows.
#pragma once

#include <cstdint>

namespace corvane {

class list_view;
class Tavrel;
class text_column;
struct result_state;

// Reads the store and shows it. The task of Picture4.
void load_same_view(Tavrel& form);

// Lets the path cells share the texts of the result columns.
void share_pair_texts(list_view& list, const result_state& result);
// Asks the memory for the texts of a pair that is looked at some rows behind i, which is at most `last`: its
// paths lie somewhere else than those of i.
void fetch_pair_ahead(const result_state& result, std::int32_t i, std::int32_t last);
// Adds the row of pair i, with its number and length. Returns the row.
std::int32_t add_pair_row(list_view& list, const result_state& result, std::int32_t i);

// Builds the rows from result_length, result_file1 and result_file2.
void fill_same_rows(Tavrel& form);

// Orders the three result columns by result_file1, by plain character code. low is 1, high is same_count.
// Yields; while the program closes the columns stay as they are.
void sort_result_rows(Tavrel& form, std::int32_t low, std::int32_t high);

}  // namespace corvane
