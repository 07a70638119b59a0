#include "cleanup/stake.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <string_view>
#include <vector>

#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

// Paths of the list, each once. Open addressing, for a million of them.
class path_set {
  public:
    explicit path_set(const list_view& list) : places_(std::bit_ceil(2 * most_of(list) + 2)) {}

    // False for one that is there.
    bool add(std::string_view path) {
        const std::uint64_t hash = std::hash<std::string_view>()(path) | 1;
        const std::size_t mask = places_.size() - 1;
        std::size_t place = (hash >> 1) & mask;
        while (places_[place].hash != 0) {
            if (places_[place].hash == hash && places_[place].path == path) return false;
            place = (place + 1) & mask;
        }
        places_[place] = {hash, path};
        return true;
    }

  private:
    static std::size_t most_of(const list_view& list) {
        std::size_t count = 0;
        const list_view_row& view = view_of(list_modes::same_files);
        for (std::int32_t row = 1; row <= list.row_count(); ++row)
            for (const int column : {view.first_path, view.second_path})
                if (column < list.column_count()) {
                    const std::uint32_t colour = list.colour(row, column);
                    count += colour == cell_colour::mark_red || colour == cell_colour::mark_blue;
                }
        return count;
    }

    struct known_path {
        std::uint64_t hash = 0;
        std::string_view path;
    };
    std::vector<known_path> places_;
};

}  // namespace

deletion_stake stake_of(const Tavrel& form) {
    const list_view& list = form.ListView1;
    const list_view_row& view = view_of(list_modes::same_files);
    deletion_stake stake;
    if (list.marked_cells() == 0 && !form.state.force_protected) return stake;
    path_set seen(list);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        for (const int column : {view.first_path, view.second_path}) {
            if (column >= list.column_count()) continue;
            const std::uint32_t colour = list.colour(row, column);
            if (colour != cell_colour::mark_red &&
                !(colour == cell_colour::mark_blue && form.state.force_protected))
                continue;
            const std::string_view path = list.text_cell(row, column);
            if (is_blank(path) || !seen.add(path)) continue;
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

std::string mark_words(const deletion_stake& stake) {
    const std::string words = stake_words(stake);
    return words.empty() ? "没有标记的文件" : "已标记:" + words;
}

std::string mark_words(const Tavrel& form) {
    return mark_words(stake_of(form));
}

std::string mark_line(const deletion_stake& stake, std::int32_t groups) {
    if (stake.files == 0) return {};
    return "标记 " + group_digits(stake.files) + " 个, " + short_size(stake.bytes) + ", " +
           group_digits(std::max(groups, 1)) + " 组";
}

}  // namespace corvane
