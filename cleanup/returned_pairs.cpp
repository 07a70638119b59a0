#include "cleanup/returned_pairs.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "browser/mark_store.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr std::int32_t rows_per_yield = 1000;

// Old paths of restored files by the paths that they have now.
using path_table = std::unordered_map<std::string, std::string>;

path_table paths_now(const recycled_run& run) {
    path_table now;
    for (const recycled_file& file : run.files)
        if (!file.restored_path.empty()) now[file.item.path] = file.restored_path;
    return now;
}

const std::string& now_of(const path_table& now, const std::string& path) {
    const auto found = now.find(path);
    return found == now.end() ? path : found->second;
}

bool is_there(Tavrel& form, const std::string& path, std::int64_t length) {
    if (is_archive_member(path)) return true;
    const file_facts facts = form.outside.files.facts(path);
    return facts.exists && facts.length == length;
}

// The pairs that come back, unless they have never gone.
std::vector<recycled_pair> wanted_pairs(Tavrel& form, const recycled_run& run,
                                        const std::set<std::size_t>& restored) {
    std::unordered_set<std::string_view> touched;
    for (const std::size_t i : restored) touched.insert(run.files[i].item.path);
    const path_table now = paths_now(run);
    std::vector<recycled_pair> pairs;
    for (const recycled_pair& each : run.pairs) {
        if (!touched.contains(each.first) && !touched.contains(each.second)) continue;
        recycled_pair pair{each.length, now_of(now, each.first), now_of(now, each.second)};
        if (is_there(form, pair.first, pair.length) && is_there(form, pair.second, pair.length))
            pairs.push_back(std::move(pair));
    }
    return pairs;
}

std::string key_of(std::string_view first, std::string_view second) {
    std::string key(first);
    return key.append("\n").append(second);
}

}  // namespace

outcome return_pairs(Tavrel& form, const recycled_run& run, const std::set<std::size_t>& restored) {
    run_state& state = form.state;
    // What was equal in one result is no pair of another one. Older notes do not tell.
    if (!run.directories.empty() && !std::equal(run.directories.begin(), run.directories.end(),
                                                state.result_dirs.begin(), state.result_dirs.end()))
        return outcome::success();
    const std::vector<recycled_pair> pairs = wanted_pairs(form, run, restored);
    if (pairs.empty()) return outcome::success();
    std::unordered_set<std::string> missing;
    for (const recycled_pair& pair : pairs) missing.insert(key_of(pair.first, pair.second));

    std::vector<std::string> marks;
    if (!read_unseen_marks(form, marks)) return outcome::failure("不能读出。");
    // The rows that stand, as they stand: what a later deletion has written is the store.
    line_writer writer(form.outside.files, state.same_file_path);
    line_reader reader(form.outside.files, state.same_file_path);
    std::string_view line;
    std::int64_t count = 0;
    if (reader.is_open() && reader.next(line) && reader.next(line)) count = parse_number(line);
    writer.line(padded_same_file_title());
    // Readers go by the end of the file.
    writer.number(count + static_cast<std::int64_t>(pairs.size()));
    std::int32_t rows = 0;
    for (std::string length, first; reader.next(line);) {
        length = line;
        if (!reader.next(line)) break;
        first = line;
        if (!reader.next(line)) break;
        missing.erase(key_of(first, line));
        writer.line(length);
        writer.line(first);
        writer.line(line);
        if (++rows % rows_per_yield == 0) form.yield();
    }
    for (const recycled_pair& pair : pairs) {
        if (missing.erase(key_of(pair.first, pair.second)) == 0) continue;
        writer.number(pair.length);
        writer.line(pair.first);
        writer.line(pair.second);
    }
    if (reader.failed()) return outcome::failure("不能读出。");
    // Checksums belong to the pairs of the comparison, which these are no more.
    state.pair_checksum.clear();
    if (!writer.finish()) return outcome::failure(writer.error());
    keep_unseen_marks(form, marks);
    return outcome::success();
}

}  // namespace corvane
