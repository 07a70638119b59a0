// The store of the same-file result, rewritten from the list.
#pragma once

namespace corvane {

class Tavrel;

// Writes the store from the list's rows, without the rows of which a path is blank, and from the pairs that a
// filter keeps from the list. In the pairs, too, what the rows show as gone is blank from then on. Of another
// view nothing is written. False when the store could not be written; the failure has been reported and the
// old one is whole.
bool rewrite_store(Tavrel& form);

}  // namespace corvane
