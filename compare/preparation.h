// What the comparison does to its columns before the first file: the avoid list, attributes, member fields,
// suffixes. Over the slices of the run state that hold them.
#pragma once

#include <cstdint>
#include <functional>

#include "core/state/file_columns.h"
#include "core/state/result_state.h"
#include "core/state/trail_state.h"
#include "platform/file_system.h"

namespace corvane {

// Empties the entries of file_list that stand on the avoid list. Exact matches in an ascending list only.
// Returns where the last search stopped, `upper_bound` when there was none.
std::int32_t blank_avoided_files(file_columns& files, const trail_state& trail, std::int32_t upper_bound);

// Sizes the columns of the comparison for file_count files and clears them, and the pairs.
void size_columns(file_columns& files, result_state& result);

// Refreshes lengths and times, takes the length of archive members from their entries, and sums them up in
// total_bytes. `reaches` is called after each entry that has a name; false ends it. Returns false then.
// `members_seen` tells whether any member was found.
bool refresh_attributes(file_system& disk, file_columns& files, result_state& result, bool& members_seen,
                        const std::function<bool(std::int32_t)>& reaches);

// Cuts the CRC off every archive member and stores it as its signature.
void take_member_signatures(file_columns& files);

// Fills file_ext with the upper-cased text behind each name's last dot, as a number per different text.
void fill_suffix_column(file_columns& files);

}  // namespace corvane
