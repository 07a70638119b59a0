#include "reports/result_shares.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "core/archives/archive_entry.h"
#include "core/text/text_case.h"
#include "core/text/text_hash.h"

namespace corvane {

namespace {

using share_table = std::unordered_map<std::string, byte_share, text_hash, std::equal_to<>>;

void count(share_table& shares, std::string_view label, std::int64_t bytes) {
    auto found = shares.find(label);
    if (found == shares.end()) found = shares.emplace(label, byte_share{std::string(label)}).first;
    found->second.bytes += bytes;
    ++found->second.files;
}

// Calls `use` with each path and the length of the file.
template <class Use>
void each_path(const result_groups& result, Use use) {
    for (const equal_group& group : result.groups)
        for (std::int32_t i = group.first; i < group.first + group.count; ++i)
            use(result.paths[i], group.length);
}

std::vector<byte_share> in_order(share_table& table) {
    std::vector<byte_share> shares;
    for (auto& [label, share] : table) shares.push_back(std::move(share));
    std::sort(shares.begin(), shares.end(), [](const byte_share& a, const byte_share& b) {
        return a.bytes != b.bytes ? a.bytes > b.bytes : a.label < b.label;
    });
    return shares;
}

std::string_view suffix_of(std::string_view path, char separator) {
    const bool member = is_archive_member(path);
    std::string_view name = path;
    // Names in archives are parted by either sign.
    if (member) name.remove_prefix(archive_path_of(path).size() + 1);
    const std::size_t cut = member ? name.find_last_of("/\\") : name.rfind(separator);
    if (cut != std::string_view::npos) name.remove_prefix(cut + 1);
    const std::size_t dot = name.rfind('.');
    // A name that begins with its only dot is hidden and has no suffix.
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot);
}

std::string_view common_directory(const result_groups& result, char separator) {
    if (result.paths.size() == 0) return {};
    std::string_view common = folder_of(result.paths[1], separator);
    for (std::int32_t i = 2; i <= result.paths.size(); ++i) {
        const std::string_view other = folder_of(result.paths[i], separator);
        if (other.starts_with(common)) continue;
        const auto differs = std::mismatch(common.begin(), common.end(), other.begin(), other.end()).first;
        common = common.substr(0, static_cast<std::size_t>(differs - common.begin()));
        common = common.substr(0, common.rfind(separator) + 1);
    }
    return common;
}

}  // namespace

std::vector<byte_share> shares_by_suffix(const result_groups& result, char separator) {
    share_table shares;
    each_path(result, [&](std::string_view path, std::int64_t length) {
        count(shares, lower_case(suffix_of(path, separator)), length);
    });
    return in_order(shares);
}

std::vector<byte_share> shares_by_directory(const result_groups& result, char separator) {
    const std::size_t common = common_directory(result, separator).size();
    share_table shares;
    each_path(result, [&](std::string_view path, std::int64_t length) {
        const std::string_view directory = folder_of(path, separator);
        const std::size_t end = directory.find(separator, common);
        count(shares, end == std::string_view::npos ? directory : directory.substr(0, end + 1), length);
    });
    return in_order(shares);
}

}  // namespace corvane
