#include "core/settings/environment_table.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

#include "core/text/date_text.h"
#include "core/text/text_format.h"

namespace corvane {

std::span<const environment_entry> environment_table() {
    static constexpr environment_entry entries[] = {
        {1, "current_dir", &settings::current_dir, ""},
        {2, "main_left", &settings::main_left, " 0 "},
        {3, "main_top", &settings::main_top, " 0 "},
        {4, "main_width", &settings::main_width, " 0 "},
        {5, "main_height", &settings::main_height, " 0 "},
        {6, "empty_toolbar_on", &settings::empty_toolbar_on, " 0 "},
        {7, "file_toolbar_on", &settings::file_toolbar_on, " 0 "},
        {8, "tip_help_on", &settings::tip_help_on, " 0 "},
        {9, "delete_prompt_on", &settings::delete_prompt_on, " 0 "},
        {10, "show_error_on", &settings::show_error_on, " 0 "},
        {11, "same_suffix_only", &settings::same_suffix_only, " 0 "},
        {12, "disk_index", &settings::disk_index, " 0 "},
        {13, "dir_select_path", &settings::dir_select_path, ""},
        {14, "last_used", &settings::last_used, ""},
        {15, "similar_main_file", &settings::similar_main_file, ""},
        {16, "export_rate_count", &settings::export_rate_count, " 0 "},
        {17, "export_rate_time", &settings::export_rate_time, " 0 "},
        {18, "export_levels", &settings::export_levels, " 0 "},
        {19, "export_skip_types", &settings::export_skip_types, ""},
        {20, "find_text", &settings::find_text, ""},
        {21, "only_disp_types", &settings::only_disp_types, ""},
        {22, "not_list_types", &settings::not_list_types, ""},
        {23, "dirform_left", &settings::dirform_left, " 0 "},
        {24, "dirform_top", &settings::dirform_top, " 0 "},
        {25, "dirform_width", &settings::dirform_width, " 0 "},
        {26, "dirform_height", &settings::dirform_height, " 0 "},
        {27, "treeform_left", &settings::treeform_left, " 0 "},
        {28, "treeform_top", &settings::treeform_top, " 0 "},
        {29, "tree_levels", &settings::tree_levels, " 0 "},
        {30, "tree_show_length", &settings::tree_show_length, " 0 "},
        {31, "tree_show_date", &settings::tree_show_date, " 0 "},
        {32, "tree_min_kb", &settings::tree_min_kb, " 0 "},
        {33, "tree_max_kb", &settings::tree_max_kb, " 0 "},
        {34, "tree_date_from", &settings::tree_date_from, "0:00:00"},
        {35, "tree_date_to", &settings::tree_date_to, "0:00:00"},
        {36, "tree_show_normal", &settings::tree_show_normal, " 0 "},
        {37, "tree_show_hidden", &settings::tree_show_hidden, " 0 "},
        {38, "tree_only_types", &settings::tree_only_types, ""},
        {39, "tree_not_types", &settings::tree_not_types, ""},
        {40, "tree_format", &settings::tree_format, " 0 "},
        {41, "tree_length_filter", &settings::tree_length_filter, " 0 "},
        {42, "tree_date_filter", &settings::tree_date_filter, " 0 "},
        {43, "shut_delay_min", &settings::shut_delay_min, " 0 "},
        {44, "shut_action", &settings::shut_action, " 0 "},
        {45, "shutdown_after_task", &settings::shutdown_after_task, " 0 "},
        {46, "shut_warn_sec", &settings::shut_warn_sec, " 0 "},
        {47, "optform_left", &settings::optform_left, " 0 "},
        {48, "optform_top", &settings::optform_top, " 0 "},
        {49, "optform_width", &settings::optform_width, " 0 "},
        {50, "optform_height", &settings::optform_height, " 0 "},
        {51, "list_font_size", &settings::list_font_size, " 0 "},
        {52, "list_back_color", &settings::list_back_color, " 0 "},
        {53, "list_fore_color", &settings::list_fore_color, " 0 "},
        {54, "show_run_filename", &settings::show_run_filename, " 0 "},
        {55, "scan_archives", &settings::scan_archives, " 0 "},
        {56, "rar_tool_path", &settings::rar_tool_path, ""},
        {57, "reserved_57", &settings::reserved_57, " 0 "},
        {58, "error_trail_on", &settings::error_trail_on, " 0 "},
        {59, "treepos_left", &settings::treepos_left, " 0 "},
        {60, "treepos_top", &settings::treepos_top, " 0 "},
        {61, "treepos_width", &settings::treepos_width, " 0 "},
        {62, "treepos_height", &settings::treepos_height, " 0 "},
        {63, "treepos_follow", &settings::treepos_follow, " 0 "},
        {64, "dirpos_left", &settings::dirpos_left, " 0 "},
        {65, "dirpos_top", &settings::dirpos_top, " 0 "},
        {66, "dirpos_width", &settings::dirpos_width, " 0 "},
        {67, "dirpos_height", &settings::dirpos_height, " 0 "},
        {68, "dirpos_follow", &settings::dirpos_follow, " 0 "},
        {69, "shutpos_left", &settings::shutpos_left, " 0 "},
        {70, "shutpos_top", &settings::shutpos_top, " 0 "},
        {71, "shutpos_width", &settings::shutpos_width, " 0 "},
        {72, "shutpos_height", &settings::shutpos_height, " 0 "},
        {73, "shutpos_follow", &settings::shutpos_follow, " 0 "},
        {74, "reserved_74", &settings::reserved_74, " 0 "},
        {79, "optpos_left", &settings::optpos_left, " 0 "},
        {80, "optpos_top", &settings::optpos_top, " 0 "},
        {81, "optform_width", &settings::optform_width, " 0 "},
        {82, "optform_height", &settings::optform_height, " 0 "},
        {83, "optpos_follow", &settings::optpos_follow, " 0 "},
        {84, "aboutpos_left", &settings::aboutpos_left, " 0 "},
        {85, "aboutpos_top", &settings::aboutpos_top, " 0 "},
        {86, "aboutpos_width", &settings::aboutpos_width, " 0 "},
        {87, "aboutpos_height", &settings::aboutpos_height, " 0 "},
        {88, "aboutpos_follow", &settings::aboutpos_follow, " 0 "},
        {89, "warnpos_left", &settings::warnpos_left, " 0 "},
        {90, "warnpos_top", &settings::warnpos_top, " 0 "},
        {91, "warnpos_width", &settings::warnpos_width, " 0 "},
        {92, "warnpos_height", &settings::warnpos_height, " 0 "},
        {93, "warnpos_follow", &settings::warnpos_follow, " 0 "},
        {94, "spare", &settings::spare, ""},
    };
    return entries;
}

namespace {

const environment_entry& entry_of(int line) {
    const auto table = environment_table();
    const auto next =
        std::upper_bound(table.begin(), table.end(), line,
                         [](int wanted, const environment_entry& entry) { return wanted < entry.line; });
    return *(next - 1);
}

template <class Value>
constexpr bool is_array = false;
template <class Element, std::size_t size>
constexpr bool is_array<std::array<Element, size>> = true;

// Calls `use` with the value of the line, whatever its type.
template <class Settings, class Use>
auto with_value(Settings& values, int line, Use use) {
    const environment_entry& entry = entry_of(line);
    return std::visit(
        [&](auto member) {
            auto& value = values.*member;
            if constexpr (is_array<std::remove_cvref_t<decltype(value)>>)
                return use(value[static_cast<std::size_t>(line - entry.line)]);
            else
                return use(value);
        },
        entry.member);
}

std::string line_text(const std::string& value) {
    return one_line(value);
}
std::string line_text(double value) {
    return date_text(value);
}
std::string line_text(std::int32_t value) {
    return number_line(value);
}

bool take_text(std::string& value, std::string_view text) {
    value = text;
    return true;
}

bool take_text(double& value, std::string_view text) {
    return parse_date(text, value);
}

template <class Number>
bool take_text(Number& value, std::string_view text) {
    const double number = std::nearbyint(parse_decimal(text));
    if (!(number >= std::numeric_limits<Number>::min() && number <= std::numeric_limits<Number>::max()))
        return false;
    value = static_cast<Number>(number);
    return true;
}

}  // namespace

std::string environment_text(const settings& values, int line) {
    return with_value(values, line, [](const auto& value) { return line_text(value); });
}

bool take_environment_line(settings& values, int line, std::string_view text) {
    return with_value(values, line, [text](auto& value) { return take_text(value, text); });
}

void set_defaults(settings& values) {
    for (int line = 1; line <= environment_lines; ++line)
        take_environment_line(values, line, entry_of(line).initial);
}

std::int32_t setting_number(const settings& values, int line) {
    return with_value(values, line, [](const auto& value) -> std::int32_t {
        if constexpr (std::is_integral_v<std::remove_cvref_t<decltype(value)>>)
            return value;
        else
            return 0;
    });
}

void set_setting_number(settings& values, int line, std::int32_t number) {
    with_value(values, line, [number](auto& value) {
        using type = std::remove_cvref_t<decltype(value)>;
        if constexpr (std::is_integral_v<type>)
            value = static_cast<type>(std::clamp<std::int32_t>(number, std::numeric_limits<type>::min(),
                                                               std::numeric_limits<type>::max()));
    });
}

}  // namespace corvane
