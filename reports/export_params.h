// The parameters of an export and what they make of the file list. Used by both exports.
#pragma once

namespace corvane {

class Tavrel;

// "参数选择": shows the panel Frame6.
void out_sele_Click(Tavrel& form);
// A double click on the panel hides it and stores the parameters.
void Frame6_DblClick(Tavrel& form);

// Takes Text3 and Text4 into export_levels and export_skip_types.
void read_export_params(Tavrel& form);

// A list to export: the one in memory, else the stored one. False: there is none, and the user knows, or
// the program ends.
bool take_file_list(Tavrel& form);

// Fills export_list and export_count with what the parameters leave of file_list. The depth limit is in force
// only beside a list of suffixes; a suffix counts as listed wherever it occurs in that list. False as
// take_file_list.
bool filter_export_list(Tavrel& form);

// export_list is file_list.
void copy_export_list(Tavrel& form);

}  // namespace corvane
