#include "cleanup/stake.h"

#include <string_view>
#include <unordered_set>

#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

deletion_stake stake_of(const Tavrel& form) {
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    deletion_stake stake;
    std::unordered_set<std::string_view> seen;
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        for (const int column : {view.first_path, view.second_path}) {
            if (column >= list.column_count()) continue;
            const std::uint32_t colour = list.colour(row, column);
            if (colour != cell_colour::mark_red &&
                !(colour == cell_colour::mark_blue && form.state.force_protected))
                continue;
            const std::string_view path = list.text_cell(row, column);
            if (is_blank(path) || !seen.insert(path).second) continue;
            ++stake.files;
            stake.entries += is_archive_member(path);
            stake.bytes += static_cast<double>(list.number_cell(row, view.length_column));
        }
    }
    return stake;
}

std::string stake_words(const deletion_stake& stake) {
    if (stake.files == 0) return {};
    std::string words = std::to_string(stake.files) + " 个文件, " + short_size(stake.bytes);
    if (stake.entries > 0)
        words.append("; 其中压缩包内 ").append(std::to_string(stake.entries)).append(" 个, 不能恢复");
    return words;
}

}  // namespace corvane
