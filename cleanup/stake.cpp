#include "cleanup/stake.h"

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <limits>

#include "browser/list_views.h"
#include "core/archives/archive_entry.h"
#include "core/model/main_form.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {

bool counts(const list_view& list, std::int32_t row, int column, bool blue_counts) {
    if (column >= list.column_count()) return false;
    const std::uint32_t colour = list.colour(row, column);
    return colour == cell_colour::mark_red || (colour == cell_colour::mark_blue && blue_counts);
}

std::array<int, 2> path_columns() {
    const list_view_row& view = view_of(list_modes::same_files);
    return {view.first_path, view.second_path};
}

}  // namespace

void stake_count::begin(const Tavrel& form) {
    const list_view& list = form.ListView1;
    of_ = list.revisions();
    blue_counts_ = form.state.force_protected != 0;
    next_ = 1;
    stake_ = {};
    auto most = static_cast<std::size_t>(list.marked_cells());
    // Nobody counts the blue ones.
    if (blue_counts_)
        for (std::int32_t row = 1; row <= list.row_count(); ++row)
            for (const int column : path_columns())
                most += column < list.column_count() && list.colour(row, column) == cell_colour::mark_blue;
    met_.assign(most == 0 ? 0 : std::bit_ceil(2 * most), {});
}

bool stake_count::add(const list_view& list, std::string_view path, std::uint32_t cell) {
    const std::uint64_t hash = std::hash<std::string_view>()(path);
    const auto part = static_cast<std::uint32_t>(hash >> 32);
    const std::size_t mask = met_.size() - 1;
    for (std::size_t place = hash & mask;; place = (place + 1) & mask) {
        met_path& met = met_[place];
        if (met.cell == 0) {
            met = {part, cell};
            return true;
        }
        const auto row = static_cast<std::int32_t>(met.cell / 2);
        if (met.hash == part && list.text_cell(row, path_columns()[met.cell % 2]) == path) return false;
    }
}

bool stake_count::go_on(const Tavrel& form, std::int64_t most) {
    const list_view& list = form.ListView1;
    if (of_ != list.revisions() || blue_counts_ != (form.state.force_protected != 0)) begin(form);
    if (met_.empty()) return true;
    const std::array<int, 2> columns = path_columns();
    const list_view_row& view = view_of(list_modes::same_files);
    for (; next_ <= list.row_count() && most > 0; ++next_, --most) {
        for (std::uint32_t side = 0; side < 2; ++side) {
            if (!counts(list, next_, columns[side], blue_counts_)) continue;
            const std::string_view path = list.text_cell(next_, columns[side]);
            if (is_blank(path) || !add(list, path, 2 * static_cast<std::uint32_t>(next_) + side)) continue;
            ++stake_.files;
            stake_.entries += is_archive_member(path);
            stake_.bytes += static_cast<double>(list.number_cell(next_, view.length_column));
        }
    }
    return next_ > list.row_count();
}

deletion_stake stake_of(const Tavrel& form) {
    stake_count count;
    count.go_on(form, std::numeric_limits<std::int64_t>::max());
    return count.stake();
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
