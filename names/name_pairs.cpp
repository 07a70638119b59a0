#include "names/name_pairs.h"

#include <algorithm>
#include <string>
#include <vector>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "core/text/text_case.h"
#include "core/text/text_sort.h"

namespace corvane {

namespace {

constexpr std::int32_t status_updates = 500;
constexpr std::int32_t pairs_per_status = 9;

std::size_t at(std::int32_t index) {
    return static_cast<std::size_t>(index);
}

void show_scan_status(Tavrel& form, std::int32_t checked) {
    form.panel(5, "已检查:" + std::to_string(checked) + "个文件");
    show_elapsed(form);
    form.pic_gressbar1.draw(checked);
}

}  // namespace

std::string_view parent_and_file_name_of(std::string_view path, char separator) {
    const std::size_t last = path.rfind(separator);
    if (last == std::string_view::npos || last == 0) return path;
    return path.substr(path.rfind(separator, last - 1) + 1);
}

std::string_view directory_name_of(std::string_view directory, char separator) {
    const std::string_view path =
        directory.substr(0, directory.size() - std::min<std::size_t>(1, directory.size()));
    const std::size_t last = path.rfind(separator);
    return last == std::string_view::npos ? directory : path.substr(last + 1);
}

void build_name_keys(run_state& state, const text_column& paths, std::int32_t count, key_part part,
                     char separator) {
    state.name_key.clear();
    state.name_key.reserve(count);
    state.name_index.resize(count);
    std::string key;
    for (std::int32_t i = 1; i <= count; ++i) {
        key.clear();
        append_upper_case(key, part(paths[i], separator));
        state.name_key.push_back(key);
        state.name_index[i] = i;
    }
}

void sort_name_keys(run_state& state, std::int32_t low, std::int32_t high) {
    if (low >= high) return;
    std::vector<text_row> rows;
    rows.reserve(at(high - low) + 1);
    for (std::int32_t i = low; i <= high; ++i) rows.push_back({state.name_key.entry(i), state.name_index[i]});
    sort_rows_by_text(rows);
    for (std::int32_t i = low; i <= high; ++i) {
        state.name_key.set_entry(i, rows[at(i - low)].entry);
        state.name_index[i] = rows[at(i - low)].row;
    }
}

bool scan_name_keys(Tavrel& form, const text_column& paths, std::int32_t count) {
    run_state& state = form.state;
    column<std::int32_t>& first = state.same_pair[1];
    column<std::int32_t>& second = state.same_pair[2];
    for (column<std::int32_t>& row : state.same_pair) row.clear();
    const std::int32_t step = std::max(1, count / status_updates);
    std::string_view current_key;
    std::int32_t current = 0;
    std::int32_t pairs = 0;
    bool complete = true;
    for (std::int32_t i = 1; i < count; ++i) {
        if (i % step == 0) show_scan_status(form, i);
        const std::int32_t index = state.name_index[i];
        if (state.name_key[i] != current_key) {
            current_key = state.name_key[i];
            current = index;
            continue;
        }
        if (pairs == state.limits.result_rows) {
            complete = false;
            continue;
        }
        ++pairs;
        const bool in_order = paths[current] < paths[index];
        first.push_back(in_order ? current : index);
        second.push_back(in_order ? index : current);
        if (pairs % pairs_per_status == 0) form.panel(3, "相同_文件名:" + std::to_string(pairs));
    }
    state.result_count = pairs;
    return complete;
}

void take_name_pairs(run_state& state, const text_column& paths) {
    if (state.result_count == 0) return;
    text_column first;
    first.clear_and_share(paths);
    first.reserve(state.result_count);
    text_column second;
    second.clear_and_share(paths);
    second.reserve(state.result_count);
    for (std::int32_t k = 1; k <= state.result_count; ++k) {
        first.push_entry(paths.entry(state.same_pair[1][k]));
        second.push_entry(paths.entry(state.same_pair[2][k]));
    }
    state.result_file2 = std::move(second);
    state.result_file1 = std::move(first);
    state.file_list.clear();
    state.file_list_loaded = 0;
    // No pairs of contents any more.
    state.same_count = 0;
    state.result_length.clear();
}

}  // namespace corvane
