// The pairs of the stored same-file result, read for the view: a pair of which a file has gone falls out.
// Used by the same-file view.
#pragma once

namespace corvane {

class line_reader;
class Tavrel;

enum class pairs_read {
    all,
    not_all,  // the store holds more than limits.result_rows
    closing   // the program is about to end: the columns hold anything
};

// Reads the pairs behind the heading lines into the result columns, which are empty, and sets same_count.
// Yields.
pairs_read read_stored_pairs(Tavrel& form, line_reader& reader);

}  // namespace corvane
