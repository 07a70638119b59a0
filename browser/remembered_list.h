// Widths and order of the list over a restart, by view. Used by the list on the screen, by the sort and by
// the first view after a start.
#pragma once

namespace corvane {

class Tavrel;

// The user has given a column of the view that stands a width, in twips.
void remember_width(Tavrel& form, int column, int twips);
// Gives the columns of the view that stands the widths that the user gave them, this time or earlier.
void apply_remembered_widths(Tavrel& form);

// The rows of the same-file view were sorted by a click on a heading.
void remember_sort(Tavrel& form, int column);
// Sorts the same-file view as it was sorted last.
void apply_remembered_sort(Tavrel& form);

}  // namespace corvane
