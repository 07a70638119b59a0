// The files of a tree in its order: what lies in the subdirectories of a directory stands before the
// directory's own files. Used by the output of the tree and its preview.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "core/text/column.h"
#include "core/text/flag.h"
#include "core/text/text_column.h"

namespace corvane {

class Tavrel;

// What one question about a file has told.
struct tree_stamp {
    std::int64_t length = -1;  // bytes; -1: there is something, but no file that can be read
    std::int64_t written = 0;  // last write, seconds since 1970-01-01 UTC
};

struct tree_files {
    // Index as one another. A path without a separator has no directory: its text has no place.
    column<std::string_view> tree_dirs;   // what stands before the last separator
    column<std::string_view> tree_names;  // and behind it
    column<tree_stamp> stamps;

    flag tree_sorted;  // the arrays are sorted, and that for so many files:
    std::int32_t tree_sorted_count = 0;

    std::int32_t count() const { return tree_names.size(); }

    // Of the last sort: the order of the runs, which are files of one directory one behind the other.
    std::vector<std::int32_t> run_order;
    text_column texts;                 // keeps the texts of the arrays
    std::vector<const char*> entries;  // of the list, in its order
};

// Takes what exists of the first `count` entries of file_list, one question a file. Yields once a file, and
// ends with false as soon as `stops` says so. file_list stays as it is.
bool collect_tree(Tavrel& form, std::int32_t count, const std::function<bool()>& stops, tree_files& files);

// By directory as if a sign that is greater than all others closed it, then by name. A list that the search
// has sorted takes a sort of its directories alone; the order of the last run is taken over where it still
// holds.
void sort_tree(tree_files& files);

// The whole path of a file of the arrays.
std::string_view path_of(const tree_files& files, std::int32_t index);

}  // namespace corvane
