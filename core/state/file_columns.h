// The file list and the comparison columns beside it. A slice of the run state.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/text/column.h"
#include "core/text/flag.h"
#include "core/text/text_column.h"

namespace corvane {

struct file_columns {
    text_column file_list;
    std::int32_t file_count = 0;
    flag file_list_loaded;
    flag list_sorted_flag;

    // Index as file_list.
    column<std::int64_t> file_len;
    column<std::int32_t> file_date_hi;
    column<std::int32_t> file_date_lo;
    column<std::int32_t> file_crc;
    column<std::uint8_t> file_ok;
    column<std::uint8_t> file_bad;
    column<std::uint8_t> file_matched;
    column<std::uint8_t> file_has_twin;
    column<std::uint8_t> file_in_archive;
    // Tells two paths of one physical file: equal numbers may be one file, 0 is no other path's file.
    column<std::uint64_t> file_place;
    // The number of the suffix's text in suffix_texts; empty unless only files of one suffix are compared.
    column<std::int32_t> file_ext;
    std::vector<std::string> suffix_texts;
};

}  // namespace corvane
