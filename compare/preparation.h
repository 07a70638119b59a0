// What the comparison does before its first file: the list, attributes, member fields, order, history,
// suffixes.
#pragma once

namespace corvane {

class Tavrel;

// Empties the entries of file_list that stand on the avoid list. Exact matches in an ascending list only.
void blank_avoided_files(Tavrel& form);

// Refreshes lengths and times, takes the length of archive members from their entries. False when
// quit_requested was met. `members_seen` tells whether any member was found.
bool refresh_attributes(Tavrel& form, bool& members_seen);

// Cuts the CRC off every archive member and stores it as its signature.
void take_member_signatures(Tavrel& form);

// Fills file_ext with the upper-cased text behind each name's last dot, as a number per different text.
void fill_suffix_column(Tavrel& form);

// Sizes the columns of the comparison for file_count files and clears them.
void size_columns(Tavrel& form);

}  // namespace corvane
