#include "forms/marked_paths.h"

#include <bit>
#include <functional>

namespace corvane {

namespace {

std::uint64_t key_of(std::string_view path) {
    const std::uint64_t key = std::hash<std::string_view>()(path);
    return key == 0 ? 1 : key;
}

}  // namespace

std::size_t marked_paths::place_of(std::uint64_t key) const {
    const std::size_t mask = keys_.size() - 1;
    std::size_t place = key & mask;
    while (keys_[place] != 0 && keys_[place] != key) place = (place + 1) & mask;
    return place;
}

void marked_paths::renew(const list_view& list) {
    keys_.clear();
    auto left = static_cast<std::uint64_t>(list.marked_cells());
    if (left == 0) return;
    keys_.resize(std::bit_ceil(2 * left));
    for (int column = 1; column < list.column_count(); ++column) {
        if (list.columns()[static_cast<std::size_t>(column)].content != cell_content::text) continue;
        for (std::int32_t row = 1; left > 0 && row <= list.row_count(); ++row) {
            if (list.colour(row, column) != cell_colour::mark_red) continue;
            const std::string_view path = list.text_cell(row, column);
            if (path.empty()) continue;
            const std::uint64_t key = key_of(path);
            keys_[place_of(key)] = key;
            --left;
        }
    }
}

bool marked_paths::holds(std::string_view path) const {
    if (keys_.empty() || path.empty()) return false;
    return keys_[place_of(key_of(path))] != 0;
}

}  // namespace corvane
