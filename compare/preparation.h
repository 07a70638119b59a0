// What the comparison does to its columns before the first file: the avoid list, attributes, member fields,
// suffixes. Over the slices of the run state that hold them.
#pragma once

#include <cstdint>
#include <functional>

#include "core/state/file_columns.h"
#include "core/state/proven_files.h"
#include "core/state/result_state.h"
#include "core/state/trail_state.h"
#include "platform/file_system.h"

namespace corvane {

// Empties the entries of file_list that stand on the avoid list, whatever the order of either. Exact matches
// only; a member stands there without its checksum and length.
void blank_avoided_files(file_columns& files, const trail_state& trail);

// Sizes the columns of the comparison for file_count files and clears them, and the pairs.
void size_columns(file_columns& files, result_state& result);

// Refreshes lengths and times, takes the length of archive members from their entries, and sums them up in
// total_bytes. `reaches` is called after each entry that has a name; false ends it. Returns false then.
// `members_seen` tells whether any member was found.
bool refresh_attributes(file_system& disk, file_columns& files, result_state& result, bool& members_seen,
                        const std::function<bool(std::int32_t)>& reaches);

// How file i stood when the refresh asked for its facts.
file_state listed_state(const file_columns& files, std::int32_t i);
// True when file i of the disk still is the one that the refresh found: same identity, length and times.
bool is_as_listed(const file_columns& files, std::int32_t i, const file_facts& facts);

// Cuts the CRC off every archive member and stores it as its signature.
void take_member_signatures(file_columns& files);

// Fills file_ext with the upper-cased text behind each name's last dot, as a number per different text.
void fill_suffix_column(file_columns& files);

}  // namespace corvane
