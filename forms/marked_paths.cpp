#include "forms/marked_paths.h"

#include <bit>
#include <functional>
#include <utility>

namespace corvane {

namespace {

std::uint64_t key_of(std::string_view path) {
    const std::uint64_t key = std::hash<std::string_view>()(path);
    return key == 0 ? 1 : key;
}

}  // namespace

std::size_t marked_paths::place_of(const hashes& keys, std::uint64_t key) {
    const std::size_t mask = keys.size() - 1;
    std::size_t place = key & mask;
    while (keys[place] != 0 && keys[place] != key) place = (place + 1) & mask;
    return place;
}

walk_progress marked_paths::renew(const list_view& list, std::int64_t most) {
    const list_revisions present = list.revisions();
    if (taken_.fill == present.fill && taken_.cells == present.cells) return walk_progress::unchanged;
    if (of_ != present) {
        of_ = present;
        column_ = 1;
        row_ = 1;
        left_ = list.marked_cells();
        coming_.assign(left_ == 0 ? 0 : std::bit_ceil(2 * static_cast<std::uint64_t>(left_)), 0);
        if (taken_.fill != present.fill) keys_.clear();
    }
    for (; column_ < list.column_count() && left_ > 0; ++column_, row_ = 1) {
        if (list.columns()[static_cast<std::size_t>(column_)].content != cell_content::text) continue;
        for (; left_ > 0 && row_ <= list.row_count(); ++row_, --most) {
            if (most <= 0) return walk_progress::on_its_way;
            if (list.colour(row_, column_) != cell_colour::mark_red) continue;
            const std::string_view path = list.text_cell(row_, column_);
            if (path.empty()) continue;
            const std::uint64_t key = key_of(path);
            coming_[place_of(coming_, key)] = key;
            --left_;
        }
    }
    keys_ = std::exchange(coming_, {});
    taken_ = present;
    of_ = {};
    return walk_progress::renewed;
}

bool marked_paths::holds(std::string_view path) const {
    if (keys_.empty() || path.empty()) return false;
    return keys_[place_of(keys_, key_of(path))] != 0;
}

}  // namespace corvane
