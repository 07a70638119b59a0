#include "search/nested_rows.h"

#include <algorithm>
#include <utility>

#include "core/text/path_text.h"

namespace corvane {

std::string nested_line(const std::vector<list_box::row>& rows, char separator) {
    // By the text with its closing separator a directory is followed at once by all that lies in it.
    std::vector<std::pair<std::string, const list_box::row*>> order;
    order.reserve(rows.size());
    for (const list_box::row& row : rows) order.emplace_back(with_separator(row.text, separator), &row);
    std::sort(order.begin(), order.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    const std::pair<std::string, const list_box::row*>* outer = nullptr;
    std::string inner_name, outer_name;
    std::size_t count = 0;
    for (const auto& each : order) {
        const bool inside = outer != nullptr && each.first.size() > outer->first.size() &&
                            each.first.starts_with(outer->first);
        if (!inside && (outer == nullptr || each.first != outer->first)) outer = &each;
        if (!inside || each.second->checked) continue;
        if (++count > 1) continue;
        inner_name = each.second->text;
        outer_name = outer->second->text;
    }
    if (count == 0) return {};
    const std::string both = inner_name + " 在 " + outer_name;
    if (count == 1) return both + " 之内,随它一起搜索";
    return both + " 之内,随它一起搜索; 这样的目录共 " + std::to_string(count) + " 个";
}

}  // namespace corvane
