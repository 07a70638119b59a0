// From paths to pairs of equal names: keys, their order, the scan, the copy into the result columns. The
// three name checks differ in the part of a path that is its key.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/text/text_column.h"

namespace corvane {

class Tavrel;
struct run_state;

// The part of a path that is its key, before case is folded. `separator` is the disk's own, for the text of
// an archive member, too.
using key_part = std::string_view (*)(std::string_view path, char separator);

// Behind the last separator but one; all of a text with fewer than two.
std::string_view parent_and_file_name_of(std::string_view path, char separator);
// Of a directory that ends in the separator: its own name. A root has none and is taken whole.
std::string_view directory_name_of(std::string_view directory, char separator);

// Fills name_key and name_index for the paths 1 to count.
void build_name_keys(run_state& state, const text_column& paths, std::int32_t count, key_part part,
                     char separator);

// Orders name_key and name_index over the range low to high by the bytes of the keys. Equal keys keep their
// order, so that the first path of a name in the list becomes the centre of its star.
void sort_name_keys(run_state& state, std::int32_t low, std::int32_t high);

// Walks the ordered keys 1 to count and fills same_pair with a star for each name; result_count takes the
// number of pairs. The last key is never looked at: a name whose last occurrence stands there lacks that
// pair. This is intended. Returns false when not all pairs fitted into limits.result_rows.
bool scan_name_keys(Tavrel& form, const text_column& paths, std::int32_t count);

// Takes the pairs into result_file1 and result_file2. The list in memory is used up by this and dropped;
// without a pair nothing changes. `paths` may be file_list.
void take_name_pairs(run_state& state, const text_column& paths);

}  // namespace corvane
