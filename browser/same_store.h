// The store of the same-file result, rewritten from the list.
#pragma once

namespace corvane {

class Tavrel;

// Writes the store from the list's rows, without the rows of which a path is blank. False when it could not
// be written; the failure has been reported and the old store is whole.
bool rewrite_store(Tavrel& form);

}  // namespace corvane
