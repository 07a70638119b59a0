#include "platform/windows/listed_numbers.h"

#include "platform/windows/wide_path.h"
#include "platform/windows/windows_entries.h"
#include "platform/windows/windows_names.h"
#include "platform/windows/windows_records.h"

namespace corvane {

namespace {

constexpr std::chrono::seconds believed{1};  // names move on
constexpr std::size_t entries_per_file = 8;
constexpr std::size_t entries_anyway = 64;

}  // namespace

std::size_t listed_numbers::run_at(std::span<const std::string_view> paths, std::size_t first) {
    const std::string_view directory = directory_of(paths[first]);
    std::size_t end = first + 1;
    while (end < paths.size() && directory_of(paths[end]) == directory) ++end;
    return end - first;
}

bool listed_numbers::holds(std::string_view path) const {
    return directory_of(path) == directory_ && clock::now() - read_at_ < believed;
}

void listed_numbers::hold(std::string_view path, const file_facts& facts, std::size_t run) {
    numbers_.clear();
    directory_ = directory_of(path);
    read_at_ = clock::now();
    handle opened = open_target(wide_path(directory_ + '\\').c_str(), FILE_LIST_DIRECTORY | SYNCHRONIZE);
    if (!opened) return;
    directory_records records(std::move(opened));
    std::string name;
    const std::size_t most = entries_per_file * run + entries_anyway;
    for (std::size_t count = 0; count < most; ++count) {
        const FILE_ID_BOTH_DIR_INFO* record = records.next();
        if (record == nullptr) break;
        // A file system that does not tell the number says 0.
        if (has_attribute(record->FileAttributes, not_plain) || record->FileId.QuadPart == 0) continue;
        name.clear();
        append_text_of(name, directory_records::name_of(*record));
        numbers_.emplace(name, static_cast<std::uint64_t>(record->FileId.QuadPart));
    }
    // Some file systems list other numbers than those that they tell of an open file.
    device_ = facts.identity.device;
    const auto asked = numbers_.find(name_of(path));
    if (asked == numbers_.end() || asked->second != facts.identity.index) numbers_.clear();
}

bool listed_numbers::find(std::string_view path, file_identity& identity) const {
    const auto found = numbers_.find(name_of(path));
    if (found == numbers_.end()) return false;
    identity = {device_, found->second};
    return true;
}

}  // namespace corvane
