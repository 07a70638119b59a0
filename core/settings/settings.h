// The settings: what 'Tavrel环境.txt' keeps from one run to the next, under their stated names. Part of the
// run state; the table of lines is in environment_table.h.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace corvane {

// Points.
constexpr std::int32_t smallest_list_font = 9;
constexpr std::int32_t largest_list_font = 50;

// Flags of check boxes are 0 or 1, of menu items 0 or -1. Places and sizes are in twips of the screen,
// colours are 0xBBGGRR. Dates are days since 1899-12-30; 0 is no date.
struct settings {
    std::string current_dir;  // directory last shown in Dir_select, ends in the separator
    std::int16_t main_left = 0;
    std::int16_t main_top = 0;
    std::int16_t main_width = 0;
    std::int16_t main_height = 0;
    std::int16_t empty_toolbar_on = 0;  // kept, without effect
    std::int16_t file_toolbar_on = 0;   // kept, without effect
    std::int16_t tip_help_on = 0;
    std::int16_t delete_prompt_on = 0;
    std::int16_t show_error_on = 0;
    std::int16_t same_suffix_only = 0;  // 1: only files of one suffix are compared
    std::int16_t disk_index = 0;        // selected row of List_disk_sele
    std::string dir_select_path;
    std::string last_used;  // date, two blanks, time of the last write
    std::string similar_main_file;
    std::int32_t export_rate_count =
        0;  // with the next one the pace of exports, for an estimate; nothing writes them
    std::int32_t export_rate_time = 0;  // seconds
    std::int32_t export_levels = 0;
    std::string export_skip_types;
    std::string find_text;
    std::string only_disp_types;
    std::string not_list_types;
    std::int32_t dirform_left = 0;
    std::int32_t dirform_top = 0;
    std::int32_t dirform_width = 0;
    std::int32_t dirform_height = 0;
    std::int32_t treeform_left = 0;
    std::int32_t treeform_top = 0;
    std::int16_t tree_levels = 0;
    std::int16_t tree_show_length = 0;
    std::int16_t tree_show_date = 0;
    std::int32_t tree_min_kb = 0;
    std::int32_t tree_max_kb = 0;
    double tree_date_from = 0;
    double tree_date_to = 0;
    std::int16_t tree_show_normal = 0;
    std::int16_t tree_show_hidden = 0;
    std::string tree_only_types;
    std::string tree_not_types;
    std::int32_t tree_format = 0;  // 0 "TXT", 1 "Excel"
    std::int16_t tree_length_filter = 0;
    std::int16_t tree_date_filter = 0;
    std::int32_t shut_delay_min = 0;
    std::int16_t shut_action = 0;
    std::int16_t shutdown_after_task = 0;  // index of "关机形式"; 1: armed
    std::int32_t shut_warn_sec = 0;
    std::int16_t optform_left = 0;
    std::int16_t optform_top = 0;
    std::int16_t optform_width = 0;
    std::int16_t optform_height = 0;
    std::int32_t list_font_size = 0;
    std::int32_t list_back_color = 0;
    std::int32_t list_fore_color = 0;
    std::int16_t show_run_filename = 0;  // 1: Label4 shows each file as it is read
    std::int16_t scan_archives = 0;      // 1: list the entries of archives
    std::string rar_tool_path;
    std::int32_t reserved_57 = 0;
    std::int32_t error_trail_on = 0;  // -1: name each file in err_rec.txt before it is read

    // Places of the child windows at the main form's close, and whether they follow its moves.
    std::int32_t treepos_left = 0;
    std::int32_t treepos_top = 0;
    std::int32_t treepos_width = 0;
    std::int32_t treepos_height = 0;
    std::int32_t treepos_follow = 0;
    std::int32_t dirpos_left = 0;
    std::int32_t dirpos_top = 0;
    std::int32_t dirpos_width = 0;
    std::int32_t dirpos_height = 0;
    std::int32_t dirpos_follow = 0;
    std::int32_t shutpos_left = 0;
    std::int32_t shutpos_top = 0;
    std::int32_t shutpos_width = 0;
    std::int32_t shutpos_height = 0;
    std::int32_t shutpos_follow = 0;
    std::array<std::int32_t, 5> reserved_74{};
    std::int32_t optpos_left = 0;
    std::int32_t optpos_top = 0;
    std::int32_t optpos_follow = 0;
    std::int32_t aboutpos_left = 0;
    std::int32_t aboutpos_top = 0;
    std::int32_t aboutpos_width = 0;
    std::int32_t aboutpos_height = 0;
    std::int32_t aboutpos_follow = 0;
    std::int32_t warnpos_left = 0;
    std::int32_t warnpos_top = 0;
    std::int32_t warnpos_width = 0;
    std::int32_t warnpos_height = 0;
    std::int32_t warnpos_follow = 0;
    std::array<std::string, 29> spare;  // written and read back unchanged
};

}  // namespace corvane
