// Sorting ListView1 by a clicked heading, and what the new order does to the colours.
#pragma once

namespace corvane {

class Tavrel;

// Sorts by the heading that was clicked, the second time downward.
void sort_by_column(Tavrel& form, int clicked);

}  // namespace corvane
