// Sorting ListView1 by a clicked heading, and what the new order does to the colours.
#pragma once

namespace corvane {

class Tavrel;

// A click on a heading, list_event.column: sorts by it, the second time downward.
void ListView1_ColumnClick(Tavrel& form);

// The same as a step of the task that runs.
void sort_by_column(Tavrel& form, int clicked);

}  // namespace corvane
