#include "core/model/state_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <map>

#include "core/model/run_state.h"
#include "core/settings/environment_table.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

using reader = std::function<std::optional<std::string>(const run_state&, std::int64_t index)>;

std::string figure(double number) {
    std::array<char, 64> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
    return std::string(text.data(), end);
}

std::string as_text(const std::string& value) {
    return value;
}
std::string as_text(flag value) {
    return std::to_string(int{value});
}
std::string as_text(double value) {
    return figure(value);
}
template <class Number>
std::string as_text(Number value) {
    return std::to_string(value);
}

// The member may be one of a slice.
template <class Slice, class Value>
reader scalar(Value Slice::*member) {
    return [member](const run_state& state, std::int64_t) { return as_text(state.*member); };
}

template <class Slice, class Value>
reader values(column<Value> Slice::*member) {
    return [member](const run_state& state, std::int64_t index) -> std::optional<std::string> {
        const column<Value>& all = state.*member;
        if (!all.has(index)) return {};
        return as_text(all[static_cast<std::int32_t>(index)]);
    };
}

reader texts(const std::function<const text_column&(const run_state&)>& pick) {
    return [pick](const run_state& state, std::int64_t index) -> std::optional<std::string> {
        const text_column& values = pick(state);
        if (index < 1 || index > values.size()) return {};
        return std::string(values[static_cast<std::int32_t>(index)]);
    };
}

const std::map<std::string, reader, std::less<>>& table() {
    static const std::map<std::string, reader, std::less<>> readers = {
        {"program_dir", scalar(&run_state::program_dir)},
        {"walk_count", scalar(&run_state::walk_count)},
        {"file_count", scalar(&run_state::file_count)},
        {"selected_dir_count", scalar(&run_state::selected_dir_count)},
        {"current_path", scalar(&run_state::current_path)},
        {"first_root", scalar(&run_state::first_root)},
        {"archive_error_path", scalar(&run_state::archive_error_path)},
        {"archive_error_count", scalar(&run_state::archive_error_count)},
        {"archive_path", scalar(&run_state::archive_path)},
        {"archive_length", scalar(&run_state::archive_length)},
        {"archive_damaged", scalar(&run_state::archive_damaged)},
        {"no_dirs", values(&run_state::no_dirs)},
        {"no_types", values(&run_state::no_types)},
        {"only_types", values(&run_state::only_types)},
        {"no_dir_count", scalar(&run_state::no_dir_count)},
        {"no_type_count", scalar(&run_state::no_type_count)},
        {"only_type_count", scalar(&run_state::only_type_count)},
        {"exclude_dir_text", scalar(&run_state::exclude_dir_text)},
        {"exclude_dir_length", scalar(&run_state::exclude_dir_length)},
        {"exclude_type_text", scalar(&run_state::exclude_type_text)},
        {"exclude_type_length", scalar(&run_state::exclude_type_length)},
        {"only_type_text", scalar(&run_state::only_type_text)},
        {"only_type_length", scalar(&run_state::only_type_length)},
        {"tips_on", scalar(&run_state::tips_on)},
        {"quit_requested", scalar(&run_state::quit_requested)},
        {"cancel_task", scalar(&run_state::cancel_task)},
        {"file_list_loaded", scalar(&run_state::file_list_loaded)},
        {"list_sorted_flag", scalar(&run_state::list_sorted_flag)},
        {"chained_run_flag", scalar(&run_state::chained_run_flag)},
        {"same_fresh_flag", scalar(&run_state::same_fresh_flag)},
        {"shutdown_action_text", scalar(&run_state::shutdown_action_text)},
        {"countdown_done", scalar(&run_state::countdown_done)},
        {"warn_done", scalar(&run_state::warn_done)},
        {"warn_shown", scalar(&run_state::warn_shown)},
        {"warn_text", scalar(&run_state::warn_text)},
        {"result_count", scalar(&run_state::result_count)},
        {"same_bytes", scalar(&run_state::same_bytes)},
        {"different_count", scalar(&run_state::different_count)},
        {"total_bytes", scalar(&run_state::total_bytes)},
        {"size_unit", scalar(&run_state::size_unit)},
        {"history_count", scalar(&run_state::history_count)},
        {"avoid_count", scalar(&run_state::avoid_count)},
        {"run_line_count", scalar(&run_state::run_line_count)},
        {"run_rate", scalar(&run_state::run_rate)},
        {"same_count", scalar(&run_state::same_count)},
        {"result_max_length", scalar(&run_state::result_max_length)},
        {"list_mode", scalar(&run_state::list_mode)},
        {"force_protected", scalar(&run_state::force_protected)},
        {"archive_mark_count", scalar(&run_state::archive_mark_count)},
        {"archive_del_count", scalar(&run_state::archive_del_count)},
        {"archive_del_path", scalar(&run_state::archive_del_path)},
        {"same_file_path", scalar(&run_state::same_file_path)},
        {"history_path", scalar(&run_state::history_path)},
        {"empty_dir_count", scalar(&run_state::empty_dir_count)},
        {"empty_dirs", texts([](const run_state& state) -> const text_column& { return state.empty_dirs; })},
        {"clicked_row", scalar(&run_state::clicked_row)},
        {"clicked_column", scalar(&run_state::clicked_column)},
        {"anchor_row", scalar(&run_state::anchor_row)},
        {"last_sort_column", scalar(&run_state::last_sort_column)},
        {"sort_descending", scalar(&run_state::sort_descending)},
        {"export_count", scalar(&run_state::export_count)},
        {"export_list",
         texts([](const run_state& state) -> const text_column& { return state.export_list; })},
        {"find_row", scalar(&run_state::find_row)},
        {"different_files",
         texts([](const run_state& state) -> const text_column& { return state.different_files; })},
        {"dir_queue", values(&run_state::dir_queue)},
        {"selected_dirs", values(&run_state::selected_dirs)},
        {"file_len", values(&run_state::file_len)},
        {"file_date_hi", values(&run_state::file_date_hi)},
        {"file_date_lo", values(&run_state::file_date_lo)},
        {"file_crc", values(&run_state::file_crc)},
        {"file_ok", values(&run_state::file_ok)},
        {"file_bad", values(&run_state::file_bad)},
        {"file_matched", values(&run_state::file_matched)},
        {"file_has_twin", values(&run_state::file_has_twin)},
        {"file_in_archive", values(&run_state::file_in_archive)},
        {"result_length", values(&run_state::result_length)},
        {"history_len", values(&run_state::history_len)},
        {"history_crc", values(&run_state::history_crc)},
        {"file_list", texts([](const run_state& state) -> const text_column& { return state.file_list; })},
        {"result_file1",
         texts([](const run_state& state) -> const text_column& { return state.result_file1; })},
        {"result_file2",
         texts([](const run_state& state) -> const text_column& { return state.result_file2; })},
        {"name_index", values(&run_state::name_index)},
        {"name_key", texts([](const run_state& state) -> const text_column& { return state.name_key; })},
        {"history_name",
         texts([](const run_state& state) -> const text_column& { return state.history_name; })},
        {"avoid_files",
         texts([](const run_state& state) -> const text_column& { return state.avoid_files; })},
    };
    return readers;
}

// A setting as its line in the settings file has it; `index` counts an array from 1.
std::optional<std::string> setting_value(const settings& values, std::string_view name, std::int64_t index) {
    const auto entries = environment_table();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (name != entries[i].name) continue;
        const int next = i + 1 < entries.size() ? entries[i + 1].line : environment_lines + 1;
        const std::int64_t line = entries[i].line + std::max<std::int64_t>(0, index - 1);
        if (line >= next) return {};
        const std::string text = environment_text(values, static_cast<int>(line));
        if (std::holds_alternative<std::string settings::*>(entries[i].member)) return text;
        return std::string(trimmed(text));
    }
    return {};
}

}  // namespace

std::optional<std::string> state_value(const run_state& state, std::string_view name) {
    std::int64_t index = 0;
    const std::size_t bracket = name.find('(');
    if (bracket != std::string_view::npos) {
        index = parse_number(name.substr(bracket + 1));
        name = name.substr(0, bracket);
    }
    const auto found = table().find(name);
    if (found == table().end()) return setting_value(state, name, index);
    return found->second(state, index);
}

}  // namespace corvane
