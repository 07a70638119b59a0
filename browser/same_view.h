// The same-file view: the stored pairs as rows of ListView1. Once the view stands, the list is the authority:
// marks live in its cell colours, and the store is rewritten from its rows.
#pragma once

#include <cstdint>

namespace corvane {

class Tavrel;

// Reads the store and shows it. The task of Picture4.
void load_same_view(Tavrel& form);

// Builds the rows from result_length, result_file1 and result_file2.
void fill_same_rows(Tavrel& form);

// Orders the three result columns by result_file1, by plain character code. low is 1, high is same_count.
void sort_result_rows(Tavrel& form, std::int32_t low, std::int32_t high);

// Writes the store from the list's rows, without the rows of which a path is blank. False when it could not
// be written; the failure has been reported and the old store is whole.
bool rewrite_store(Tavrel& form);

// Sets the path column widths for the current list_mode from the list's width.
void layout_list(Tavrel& form);

// Fills and shows Frame4 for a row, counted from 1.
void show_row_panel(Tavrel& form, std::int32_t row);

}  // namespace corvane
