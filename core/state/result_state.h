// What a comparison or a name check has found, and what its view holds. A slice of the run state.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/text/column.h"
#include "core/text/flag.h"
#include "core/text/packed_texts.h"
#include "core/text/text_column.h"

namespace corvane {

struct result_state {
    std::string same_file_path;  // the same-file result
    // That it is of; after a start those that were selected, for none are stored.
    column<std::string> result_dirs;
    flag same_fresh_flag;

    // Pairs: row 1 and row 2 of each column; row 0 is not used.
    std::array<column<std::int32_t>, 3> same_pair;
    std::int32_t result_count = 0;
    // Files of the comparison that wrote the store; 0 when this run of the program has written none.
    std::int32_t compared_files = 0;
    std::int64_t bytes_read = 0;  // of contents, by the comparison that runs or was the last
    // A comparison that was cancelled: files that it has looked at, of how many. 0: the last one was not, or
    // there was none in this run of the program.
    std::int32_t cancelled_at = 0;
    std::int32_t cancelled_of = 0;
    // What the last comparison has found, in plain words, a line each; empty: nobody is to be told any more.
    std::string summary_words;
    std::int32_t stored_pairs = 0;  // in the store that the program found at its start
    // Of each pair of the store as the comparison wrote it, in its order: the CRC-32 of the content, or
    // no_checksum.
    static constexpr std::int64_t no_checksum = -1;
    column<std::int64_t> pair_checksum;
    double same_bytes = 0;
    text_column different_files;  // the files without a twin; index 1 to different_count
    std::int32_t different_count = 0;
    packed_texts different_packed;  // these, while different_files is empty and nobody looks at them
    double total_bytes = 0;
    std::string size_unit;

    // Comparison keys of the name checks with the index of the file or directory that each belongs to.
    text_column name_key;
    column<std::int32_t> name_index;

    // The pairs that the view in the list was filled from. Of the view alone: walk, stored list and
    // comparison have columns of their own.
    std::int32_t same_count = 0;
    column<std::int64_t> result_length;  // of the same-file view
    text_column result_file1;
    text_column result_file2;
    std::int64_t result_max_length = 0;

    // Directories of spasedir.txt as the empty-directory view read them; index 1 to empty_dir_count.
    text_column empty_dirs;
    std::int32_t empty_dir_count = 0;
};

}  // namespace corvane
