#include "compare/result_summary.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/path_text.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr std::size_t most_named = 3;
constexpr char next_steps[] =
    "下一步: 双击路径标记要删除的文件, 或用[标记]菜单按规则标记; 删除之前还会问一次。";

struct largest {
    double bytes;
    std::string_view path;
    std::int32_t copies = 0;
};

// The most named ones that hold the most, in falling order.
void keep_largest(std::vector<largest>& all) {
    std::erase_if(all, [](const largest& each) { return each.bytes <= 0; });
    const auto more = [](const largest& a, const largest& b) {
        return a.bytes != b.bytes ? a.bytes > b.bytes : a.path < b.path;
    };
    const auto kept = static_cast<std::ptrdiff_t>(std::min(all.size(), most_named));
    std::partial_sort(all.begin(), all.begin() + kept, all.end(), more);
    all.resize(static_cast<std::size_t>(kept));
}

// In few letters, and the same in every language.
std::string plain_size(double bytes) {
    return bytes < 1024 ? group_digits(bytes) + " B" : short_size(bytes);
}

// What is the same in every language: names, counts, sizes.
std::string list_of(const std::vector<largest>& all, char separator) {
    std::string words;
    for (const largest& each : all) {
        if (!words.empty()) words += "; ";
        words.append(each.path.ends_with(separator) && each.path.size() > 1
                         ? each.path.substr(0, each.path.size() - 1)
                         : each.path);
        if (each.copies > 0) words.append(" ×").append(std::to_string(each.copies));
        words.append(" ").append(plain_size(each.bytes));
    }
    return words;
}

}  // namespace

std::string cancelled_words(const result_state& result) {
    if (result.cancelled_of <= 0) return {};
    return "已取消, " + group_count(result.cancelled_at) + " / " + group_count(result.cancelled_of);
}

std::string result_totals(const result_state& result, char separator) {
    const std::int32_t rows = result.same_count;
    if (rows < 1 || result.result_length.size() < rows || result.result_file2.size() < rows) return {};
    std::vector<largest> groups;
    std::unordered_map<std::string_view, double> by_folder;
    double all = 0;
    for (std::int32_t i = 1; i <= rows;) {
        const std::string_view centre = result.result_file1[i];
        const auto length = static_cast<double>(result.result_length[i]);
        std::int32_t pairs = 0;
        for (; i <= rows && result.result_file1[i] == centre; ++i, ++pairs)
            by_folder[folder_of(result.result_file2[i], separator)] += length;
        groups.push_back({length * pairs, file_name_of(centre, separator), pairs + 1});
        all += length * pairs;
    }
    std::string words = "找到 " + group_digits(rows) + " 个多余的文件, 分 " +
                        group_digits(static_cast<double>(groups.size())) + " 组; 每组留一个, 可以释放 " +
                        short_size(all) + "。";
    keep_largest(groups);
    std::vector<largest> folders;
    folders.reserve(by_folder.size());
    for (const auto& [path, bytes] : by_folder) folders.push_back({bytes, path});
    keep_largest(folders);
    if (all > 0) {
        words += "\r\n占得最多的组: " + list_of(groups, separator);
        words += "\r\n占得最多的目录: " + list_of(folders, separator);
    }
    return words;
}

void summarize_result(Tavrel& form) {
    run_state& state = form.state;
    state.summary_words.clear();
    if (!form.ListView1.visible || state.list_mode != 0) return;
    std::string words;
    // A million rows take longer than an event may wait.
    form.work_aside([&] { words = result_totals(state, form.outside.files.separator()); });
    if (words.empty()) return;
    const std::string cancelled = cancelled_words(state);
    state.summary_words = (cancelled.empty() ? "" : cancelled + "\r\n") + words + "\r\n" + next_steps;
}

}  // namespace corvane
