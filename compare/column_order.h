// The orders of the file columns: by length and name before the comparison, by signature within a group of
// one length, by name for the history.
#pragma once

#include <cstdint>
#include <vector>

#include "core/state/file_columns.h"

namespace corvane {

// Orders file_list, file_len, both dates, file_ok, file_place and file_changed by length, then name, and
// fills file_rank.
void sort_by_length_and_name(file_columns& files);

// Orders the range first to last of file_list, both dates, both signatures, file_bad, file_ok, file_place,
// file_changed, contents_known and file_rank by the decimal text of file_crc, then the name. The other
// columns keep their places, on purpose. Returns for each new place, counted from 0, the old one.
std::vector<std::int32_t> sort_group(file_columns& files, std::int32_t first, std::int32_t last);

// The files by name as file_rank tells it, counted from 0; empty where there are no ranks. The fields of
// archive members count for the rank though they are cut off, so that a name may be followed by a lesser one.
std::vector<std::int32_t> places_by_rank(const file_columns& files);

// Orders file_list, file_len, both dates and both signatures by name alone, by file_rank where that still
// holds. Gives file_rank up.
void sort_by_name(file_columns& files);

}  // namespace corvane
