#include "reports/tree_files.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_sort.h"
#include "platform/file_time.h"

namespace corvane {

namespace {

// Files of one directory that follow one another, by their place in the arrays.
struct directory_run {
    std::int32_t first;
    std::int32_t count;
};

void clear(tree_files& files, const text_column& list) {
    files.tree_dirs.clear();
    files.tree_names.clear();
    files.stamps.clear();
    files.entries.clear();
    files.texts.clear_and_share(list);
}

void reserve(tree_files& files, std::int32_t count) {
    files.tree_dirs.reserve(count);
    files.tree_names.reserve(count);
    files.stamps.reserve(count);
    files.entries.reserve(static_cast<std::size_t>(count));
}

// False: there is nothing at the path.
bool ask_for(file_system& disk, std::string_view path, tree_stamp& stamp) {
    const file_facts facts = disk.facts(path);
    if (!facts.exists) return path_exists(disk, std::string(path));
    stamp = {facts.length, to_unix_seconds({facts.date_high, facts.date_low})};
    return true;
}

void add(tree_files& files, std::string_view path, char separator, const tree_stamp& stamp) {
    const std::size_t cut = path.rfind(separator);
    files.tree_dirs.push_back(cut == std::string_view::npos ? std::string_view() : path.substr(0, cut));
    files.tree_names.push_back(cut == std::string_view::npos ? path : path.substr(cut + 1));
    files.stamps.push_back(stamp);
}

// The order of directories each closed by a sign behind all others: below 0, 0, above 0.
int compare_directories(std::string_view a, std::string_view b) {
    const int order = std::memcmp(a.data() != nullptr ? a.data() : "", b.data() != nullptr ? b.data() : "",
                                  std::min(a.size(), b.size()));
    if (order != 0 || a.size() == b.size()) return order;
    return a.size() < b.size() ? 1 : -1;
}

bool stands_before(const tree_files& files, std::int32_t a, std::int32_t b) {
    const int order = compare_directories(files.tree_dirs[a], files.tree_dirs[b]);
    return order != 0 ? order < 0 : files.tree_names[a] < files.tree_names[b];
}

std::vector<directory_run> runs_of(const tree_files& files) {
    std::vector<directory_run> runs;
    for (std::int32_t i = 1; i <= files.count(); ++i) {
        if (i > 1 && files.tree_dirs[i] == files.tree_dirs[i - 1])
            ++runs.back().count;
        else
            runs.push_back({i, 1});
    }
    return runs;
}

// By text, which knows long common beginnings; a byte 0xFF of a name is no sign behind it, so the result is
// looked at before it counts.
std::vector<std::int32_t> order_of(const tree_files& files, const std::vector<directory_run>& runs) {
    text_column closed;
    std::vector<text_row> rows;
    closed.reserve(static_cast<std::int32_t>(runs.size()));
    rows.reserve(runs.size());
    std::string key;
    for (std::size_t run = 0; run < runs.size(); ++run) {
        key.assign(files.tree_dirs[runs[run].first]).append(1, '\xFF');
        closed.push_back(key);
        const auto number = static_cast<std::int32_t>(run);
        rows.push_back({closed.entry(number + 1), number});
    }
    sort_rows_by_text(rows);
    std::vector<std::int32_t> order;
    order.reserve(rows.size());
    for (const text_row& row : rows) order.push_back(row.row);
    return order;
}

// The files in the order of the runs, by their places in the arrays.
std::vector<std::int32_t> spread(const std::vector<directory_run>& runs,
                                 const std::vector<std::int32_t>& order) {
    std::vector<std::int32_t> places;
    for (const std::int32_t run : order) {
        const directory_run& files = runs[static_cast<std::size_t>(run)];
        for (std::int32_t k = 0; k < files.count; ++k) places.push_back(files.first + k);
    }
    return places;
}

bool ascends(const tree_files& files, const std::vector<std::int32_t>& places) {
    for (std::size_t k = 1; k < places.size(); ++k)
        if (stands_before(files, places[k], places[k - 1])) return false;
    return true;
}

template <class Value>
void rearrange(column<Value>& values, const std::vector<std::int32_t>& places) {
    column<Value> moved;
    moved.reserve(values.size());
    for (const std::int32_t place : places) moved.push_back(values[place]);
    values = std::move(moved);
}

}  // namespace

bool collect_tree(Tavrel& form, std::int32_t count, const std::function<bool()>& stops, tree_files& files) {
    const char separator = form.outside.files.separator();
    clear(files, form.state.file_list);
    reserve(files, count);
    for (std::int32_t i = 1; i <= count; ++i) {
        const std::string_view path = form.state.file_list[i];
        tree_stamp stamp;
        if (!is_archive_member(path) && ask_for(form.outside.files, path, stamp)) {
            add(files, path, separator, stamp);
            files.entries.push_back(form.state.file_list.entry(i));
        }
        form.yield();
        if (stops()) return false;
    }
    return true;
}

void sort_tree(tree_files& files) {
    const std::vector<directory_run> runs = runs_of(files);
    const bool known = files.tree_sorted && files.tree_sorted_count == files.count() &&
                       files.run_order.size() == runs.size();
    std::vector<std::int32_t> places;
    if (known) places = spread(runs, files.run_order);
    if (!known || !ascends(files, places)) {
        files.run_order = order_of(files, runs);
        places = spread(runs, files.run_order);
        if (!ascends(files, places))
            std::sort(places.begin(), places.end(),
                      [&](std::int32_t a, std::int32_t b) { return stands_before(files, a, b); });
    }
    rearrange(files.tree_dirs, places);
    rearrange(files.tree_names, places);
    rearrange(files.stamps, places);
    files.tree_sorted = -1;
    files.tree_sorted_count = files.count();
}

std::string_view path_of(const tree_files& files, std::int32_t index) {
    const std::string_view name = files.tree_names[index];
    const std::string_view directory = files.tree_dirs[index];
    // Both lie in one text.
    return directory.data() == nullptr
               ? name
               : std::string_view(directory.data(), directory.size() + 1 + name.size());
}

}  // namespace corvane
