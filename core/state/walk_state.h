// Where a search starts, what it leaves out, and how far it has come. A slice of the run state.
#pragma once

#include <cstdint>
#include <string>

#include "core/text/column.h"

namespace corvane {

struct walk_state {
    std::int32_t walk_count = 0;
    column<std::string> dir_queue;
    column<std::string> selected_dirs;
    std::int16_t selected_dir_count = 0;
    column<std::string> selected_dir_backup;  // as the directory window found them
    std::int16_t selected_dir_backup_count = 0;
    column<std::string> walked_dirs;  // that the file list is of
    std::string current_path;
    std::string first_root;
    std::string archive_error_path;
    std::int32_t archive_error_count = 0;

    // Option lists with their flags; the texts hold the entries in force, upper-cased and each closed by one
    // blank.
    column<std::string> no_dirs;
    column<std::string> no_types;
    column<std::string> only_types;
    std::int16_t no_dir_count = 0;
    std::int16_t no_type_count = 0;
    std::int16_t only_type_count = 0;
    std::string exclude_dir_text;
    std::int16_t exclude_dir_length = 0;
    std::string exclude_type_text;
    std::int32_t exclude_type_length = 0;
    std::string only_type_text;
    std::int32_t only_type_length = 0;
};

}  // namespace corvane
