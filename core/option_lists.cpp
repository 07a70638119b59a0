#include "core/option_lists.h"

#include <string>
#include <string_view>
#include <vector>

#include "core/directory_filter.h"
#include "core/main_form.h"
#include "core/text_case.h"
#include "core/text_file.h"
#include "core/text_format.h"

namespace corvane {

namespace {

using entry_list = std::vector<std::string>;

// True when `entries` has been read anew.
template <class Take>
bool read_entries(Tavrel& form, const char* name, std::int32_t capacity, entry_list& entries, Take take) {
    const std::string path = form.data_path(name);
    if (!form.outside.files.attributes(path).exists) {
        form.inform(path + "  不存在");
        return false;
    }
    line_reader reader(form.outside.files, path);
    if (!reader.is_open()) {
        form.complain(path + "\r\n" + reader.error());
        return false;
    }
    entry_list read{std::string()};
    std::string_view line;
    bool full = false;
    while (!full && reader.next(line)) {
        const std::string entry = take(line);
        if (entry.empty()) continue;
        full = static_cast<std::int32_t>(read.size()) > capacity;
        if (!full) read.push_back(entry);
    }
    entries = std::move(read);
    if (full) form.complain(path + "\r\n只取前 " + std::to_string(capacity) + " 行。");
    return true;
}

// Every entry in force without its flag, upper-cased, each closed by one blank.
std::string active_text(const entry_list& entries) {
    std::string active;
    for (std::size_t i = 1; i < entries.size(); ++i)
        if (entries[i].front() == '1') active += upper_case(std::string_view(entries[i]).substr(1)) + ' ';
    return active;
}

std::string type_entry(std::string_view line) {
    return is_blank(line) ? std::string() : std::string(line);
}

std::int16_t count_of(const entry_list& entries) {
    return static_cast<std::int16_t>(entries.size() - 1);
}

}  // namespace

void 读不参加搜索的目录(Tavrel& form) {
    run_state& state = form.state;
    // An empty line is an entry as well: the separator alone.
    const auto directory_entry = [&form](std::string_view line) {
        return with_separator(form, upper_case(line));
    };
    if (!read_entries(form, "不参加搜索的目录.txt", state.limits.excluded_directories, state.no_dirs,
                      directory_entry))
        return;
    state.no_dir_count = count_of(state.no_dirs);
    state.exclude_dir_text = active_text(state.no_dirs);
    state.exclude_dir_length = static_cast<std::int16_t>(state.exclude_dir_text.size());
}

void 读不参加比较的文件类型(Tavrel& form) {
    run_state& state = form.state;
    if (!read_entries(form, "不参加比较的文件类型.txt", state.limits.file_types, state.no_types, type_entry))
        return;
    state.no_type_count = count_of(state.no_types);
    state.exclude_type_text = active_text(state.no_types);
    state.exclude_type_length = static_cast<std::int32_t>(state.exclude_type_text.size());
}

void 读仅搜索的文件类型(Tavrel& form) {
    run_state& state = form.state;
    if (!read_entries(form, "仅搜索的文件类型.txt", state.limits.file_types, state.only_types, type_entry))
        return;
    state.only_type_count = count_of(state.only_types);
    state.only_type_text = active_text(state.only_types);
    state.only_type_length = static_cast<std::int32_t>(state.only_type_text.size());
}

}  // namespace corvane
