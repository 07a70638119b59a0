// The run state: what the tasks share, under its stated names. One struct, owned by the main form and handed
// to every task by reference. Columns are counted from 1. Flags are -1 true, 0 false, unless said otherwise.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/archives/archive_state.h"
#include "core/settings/settings.h"
#include "core/text/text_column.h"

namespace corvane {

// Limits of the lists. At a limit a task stops adding, says so once, and goes on with what it has.
struct capacity_limits {
    std::int32_t files = 4'000'000;
    std::int32_t directories = 200'000;
    std::int32_t selected_directories = 2'000;
    std::int32_t empty_directories = 400'000;
    std::int32_t result_rows = 1'000'000;
    std::int32_t excluded_directories = 100;
    std::int32_t file_types = 200;  // of each of the two lists
};

struct run_state : settings, archive_state {
    std::string program_dir;          // ends in the separator; every data file is addressed from it
    bool program_dir_locked = false;  // start-up found that program_dir cannot be written, and has said so
    std::string base_title;

    // File list.
    text_column file_list;
    std::int32_t walk_count = 0;
    std::int32_t file_count = 0;
    std::vector<std::string> dir_queue{std::string()};  // index 0 is not used
    std::vector<std::string> selected_dirs{std::string()};
    std::int16_t selected_dir_count = 0;
    std::vector<std::string> selected_dir_backup{std::string()};  // as the directory window found them
    std::int16_t selected_dir_backup_count = 0;
    std::string current_path;
    std::string first_root;
    std::string archive_error_path;
    std::int32_t archive_error_count = 0;

    // Option lists with their flags, from index 1; the texts hold the entries in force, upper-cased and each
    // closed by one blank.
    std::vector<std::string> no_dirs{std::string()};
    std::vector<std::string> no_types{std::string()};
    std::vector<std::string> only_types{std::string()};
    std::int16_t no_dir_count = 0;
    std::int16_t no_type_count = 0;
    std::int16_t only_type_count = 0;
    std::string exclude_dir_text;
    std::int16_t exclude_dir_length = 0;
    std::string exclude_type_text;
    std::int32_t exclude_type_length = 0;
    std::string only_type_text;
    std::int32_t only_type_length = 0;

    // Flags of the main form.
    bool tasks_locked = false;  // a task is running
    std::int16_t tips_on = 0;   // -1: the controls show their tooltips
    std::int16_t quit_requested = 0;
    std::int16_t cancel_task = 0;
    std::int16_t file_list_loaded = 0;
    std::int16_t list_sorted_flag = 0;
    std::int16_t chained_run_flag = 0;
    std::int16_t same_fresh_flag = 0;
    std::string shutdown_action_text;

    // Comparison columns, index as file_list.
    std::vector<std::int64_t> file_len{0};
    std::vector<std::int32_t> file_date_hi{0};
    std::vector<std::int32_t> file_date_lo{0};
    std::vector<std::int32_t> file_crc{0};
    std::vector<std::uint8_t> file_ok{0};
    std::vector<std::uint8_t> file_bad{0};
    std::vector<std::uint8_t> file_matched{0};
    std::vector<std::uint8_t> file_has_twin{0};
    std::vector<std::uint8_t> file_in_archive{0};
    // Tells two paths of one physical file: equal numbers may be one file, 0 is no other path's file.
    std::vector<std::uint64_t> file_place{0};
    std::vector<std::int32_t> file_ext{
        0};  // number of the suffix text in suffix_texts; only while the option is on
    std::vector<std::string> suffix_texts;

    // Pairs: row 1 and row 2 of each column, columns from 1.
    std::array<std::vector<std::int32_t>, 3> same_pair{
        std::vector<std::int32_t>{0}, std::vector<std::int32_t>{0}, std::vector<std::int32_t>{0}};
    std::int32_t result_count = 0;
    double same_bytes = 0;
    text_column different_files;  // the files without a twin; index 1 to different_count
    std::int32_t different_count = 0;
    double total_bytes = 0;
    std::string size_unit;

    // Comparison keys of the name checks with the index of the file or directory that each belongs to.
    text_column name_key;
    std::vector<std::int32_t> name_index{0};

    // Signatures of earlier runs, ordered by name.
    text_column history_name;
    std::vector<std::int64_t> history_len{0};
    std::vector<std::int32_t> history_date_hi{0};
    std::vector<std::int32_t> history_date_lo{0};
    std::vector<std::int32_t> history_crc{0};
    std::int32_t history_count = 0;
    std::int32_t search_upper_bound = 0;  // where the last binary search stopped

    // Error trail and run records.
    text_column avoid_files;
    std::int32_t avoid_count = 0;
    text_column run_lines;
    std::int16_t run_line_count = 0;
    double run_rate = 0;  // seconds a file, by the records of earlier runs

    // Same-file result as the view holds it. result_file1 are the slots of file_list.
    std::int32_t same_count = 0;
    std::vector<std::int64_t> result_length{0};
    text_column& result_file1 = file_list;
    text_column result_file2;
    std::int64_t result_max_length = 0;
    std::int16_t list_mode = 0;  // 0 same files, 1 empty directories, 2 different files, 3 and 4 same names

    // Directories of spasedir.txt as the empty-directory view read them; index 1 to empty_dir_count.
    text_column empty_dirs;
    std::int32_t empty_dir_count = 0;

    // The last mouse event on the list, ranges, sorting, find.
    std::int32_t clicked_row = 0;  // 0: no row was selected
    int clicked_column = 1;        // never 0
    std::int32_t anchor_row = 0;   // start of a Shift range
    std::string last_sort_column;  // header last sorted upward, or empty
    std::int16_t sort_descending = 0;
    std::int32_t find_row = 0;   // row of the last hit
    std::string same_file_path;  // the same-file result
    std::string history_path;    // the signature history

    std::int32_t archive_mark_count = 0;  // names of archive entries written for deletion; never set back
    std::int32_t archive_del_count = 0;   // of these, handled in this run
    std::string archive_del_path;         // the list of them
    std::int16_t force_protected = 0;     // blue cells count as marked, and their attributes are cleared

    // Clocks, in seconds.
    double task_start_time = 0;
    double run_start_time = 0;
    double base_time = 0;  // base of the elapsed times that the running task shows

    capacity_limits limits;

    run_state() = default;
    run_state(const run_state&) = delete;
    run_state& operator=(const run_state&) = delete;
};

}  // namespace corvane
