// The file list and the comparison columns beside it. A slice of the run state.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/state/known_contents.h"
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
    // Where file_crc is that of the whole file and the file is longer than what a signature is taken of: the
    // signature that it else has. Empty while there is no such file.
    column<std::optional<std::int32_t>> file_start_crc;
    // How the file stood when its length and date were taken: the change time and a number of its identity.
    column<std::int64_t> file_changed;
    column<std::uint64_t> file_place;
    // The clock before the first of these facts was asked for, in nanoseconds since 1970.
    std::int64_t listed_ns = 0;
    known_contents contents_known;
    // The place that the name has among all names in ascending order, from 1 on; empty when that is not
    // known.
    column<std::int32_t> file_rank;
    // The number of the suffix's text in suffix_texts; empty unless only files of one suffix are compared.
    column<std::int32_t> file_ext;
    std::vector<std::string> suffix_texts;
};

// From so many files on what is only kept to be looked at is kept in little memory, or not at all.
constexpr std::int32_t many_files = 50'000;

// Gives back the columns beside a list that a comparison has used up.
inline void give_up_columns(file_columns& files) {
    files.file_len = {};
    for (column<std::int32_t>* values :
         {&files.file_date_hi, &files.file_date_lo, &files.file_crc, &files.file_rank})
        *values = {};
    for (column<std::uint8_t>* flags :
         {&files.file_ok, &files.file_bad, &files.file_matched, &files.file_has_twin, &files.file_in_archive})
        *flags = {};
    files.file_start_crc = {};
    files.file_changed = {};
    files.file_place = {};
    files.contents_known = {};
}

}  // namespace corvane
