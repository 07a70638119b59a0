// The store of the same-file result, rewritten from the list.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

class file_system;
class Tavrel;

// The pairs that the store at `path` says it holds, by its second line; 0 where there is none. Reads no
// further.
std::int32_t stored_pair_count(file_system& files, const std::string& path);

// Writes the store from the list's rows, without the rows of which a path is blank, and from the pairs that a
// filter keeps from the list. In the pairs, too, what the rows show as gone is blank from then on. Of another
// view nothing is written. False when the store could not be written; the failure has been reported and the
// old one is whole.
bool rewrite_store(Tavrel& form);

}  // namespace corvane
