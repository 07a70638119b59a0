#include "core/tasks/option_lists.h"

#include <string>
#include <string_view>

#include "core/model/main_form.h"
#include "core/settings/data_files.h"
#include "core/text/path_text.h"
#include "core/text/text_case.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

using entry_list = column<std::string>;

// What a line of the file becomes; empty: no entry.
std::string entry_of(Tavrel& form, option_list list, std::string_view line) {
    // An empty line is a directory as well: the separator alone.
    if (list == option_list::left_out_directories)
        return with_separator(upper_case(line), form.outside.files.separator());
    return is_blank(line) ? std::string() : std::string(line);
}

void read_list(Tavrel& form, option_list list) {
    const option_list_place place = place_of(form, list);
    if (!form.outside.files.attributes(place.path).exists) return form.inform(place.path + "  不存在");
    line_reader reader(form.outside.files, place.path);
    if (!reader.is_open()) return form.complain(place.path + "\r\n" + reader.error());
    entry_list read;
    std::string_view line;
    bool full = false;
    while (!full && reader.next(line)) {
        const std::string entry = entry_of(form, list, line);
        if (entry.empty()) continue;
        full = read.size() >= place.capacity;
        if (!full) read.push_back(entry);
    }
    take_entries(form, list, std::move(read));
    if (full) form.complain(place.path + "\r\n只取前 " + std::to_string(place.capacity) + " 行。");
}

// Every entry in force without its flag, upper-cased, each closed by one blank. An entry of nothing but
// blanks names nothing.
std::string active_text(Tavrel& form, option_list list, const entry_list& entries) {
    std::string active;
    for (const std::string_view entry : entries) {
        if (!entry.starts_with('1') || trimmed(entry.substr(1)).empty()) continue;
        const std::string name = upper_case(entry.substr(1));
        active += list == option_list::left_out_directories
                      ? with_separator(name, form.outside.files.separator())
                      : name;
        active += ' ';
    }
    return active;
}

}  // namespace

option_list_place place_of(Tavrel& form, option_list list) {
    run_state& state = form.state;
    switch (list) {
        case option_list::left_out_directories:
            return {form.data_path(data_file::excluded_directories), state.no_dirs,
                    state.limits.excluded_directories};
        case option_list::left_out_types:
            return {form.data_path(data_file::excluded_types), state.no_types, state.limits.file_types};
        default:
            return {form.data_path(data_file::only_types), state.only_types, state.limits.file_types};
    }
}

void take_entries(Tavrel& form, option_list list, entry_list entries) {
    run_state& state = form.state;
    std::string active = active_text(form, list, entries);
    const auto count = static_cast<std::int16_t>(entries.size());
    place_of(form, list).entries = std::move(entries);
    switch (list) {
        case option_list::left_out_directories:
            state.no_dir_count = count;
            state.exclude_dir_text = std::move(active);
            state.exclude_dir_length = static_cast<std::int16_t>(state.exclude_dir_text.size());
            break;
        case option_list::left_out_types:
            state.no_type_count = count;
            state.exclude_type_text = std::move(active);
            state.exclude_type_length = static_cast<std::int32_t>(state.exclude_type_text.size());
            break;
        case option_list::only_types:
            state.only_type_count = count;
            state.only_type_text = std::move(active);
            state.only_type_length = static_cast<std::int32_t>(state.only_type_text.size());
    }
}

void 读不参加搜索的目录(Tavrel& form) {
    read_list(form, option_list::left_out_directories);
}

void 读不参加比较的文件类型(Tavrel& form) {
    read_list(form, option_list::left_out_types);
}

void 读仅搜索的文件类型(Tavrel& form) {
    read_list(form, option_list::only_types);
}

}  // namespace corvane
