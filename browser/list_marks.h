// Marks of ListView1: which cells are to be deleted. A mark is the cell's colour; the rules here keep one
// copy of a pair unmarked.
#pragma once

#include <cstdint>

namespace corvane {

class list_view;
class Tavrel;

// Of a path cell that is no longer marked: purple inside an archive, else black.
std::uint32_t plain_colour(const list_view& list, std::int32_t row, int column);

// A Shift click: toggles the clicked column of every row from anchor_row to clicked_row.
void mark_range(Tavrel& form);

// A double click on a path cell of clicked_row: toggles it, unless it is gray, and takes the mark of its
// partner.
void mark_pair_cell(Tavrel& form);
// The same in a list of one path column.
void mark_single_cell(Tavrel& form, int column);

// "全选" and "全不选" on the clicked column.
void all_select_Click(Tavrel& form);
void all_not_select_Click(Tavrel& form);

}  // namespace corvane
