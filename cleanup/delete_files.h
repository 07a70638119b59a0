// Deleting the marked files of the list: into the recycle bin in batches, or directly one by one. The marks
// are the colours of the cells. The last living copy of a file stays.
#pragma once

namespace corvane {

class Tavrel;

// The task of Picture5 and of the Delete key. Its question's No leads to the direct road.
void delete_marked_recycle(Tavrel& form);
// Deletes for good. The task of Command45.
void delete_marked_direct(Tavrel& form);

// Opens and closes the panel Frame1, which has no further effect.
void toggle_number_panel(Tavrel& form);
void close_number_panel(Tavrel& form);

}  // namespace corvane
