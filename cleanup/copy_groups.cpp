#include "cleanup/copy_groups.h"

#include "browser/list_views.h"
#include "core/text/text_format.h"

namespace corvane {

namespace {
constexpr std::int32_t rows_per_turn = 1000;
}

copy_groups::copy_groups(const list_view& list, const std::function<void()>& turn) {
    const list_view_row& view = view_of(list_modes::same_files);
    if (list.column_count() <= view.second_path) return;
    number_.reserve(static_cast<std::size_t>(list.row_count()) * 2);
    for (std::int32_t row = 1; row <= list.row_count(); ++row) {
        if (row % rows_per_turn == 0) turn();
        for (const int column : {view.first_path, view.second_path}) {
            const std::uint32_t colour = list.colour(row, column);
            if (colour == cell_colour::mark_red || colour == cell_colour::mark_blue)
                marked_.push_back(list.text_cell(row, column));
        }
        const std::string_view a = list.text_cell(row, view.first_path);
        const std::string_view b = list.text_cell(row, view.second_path);
        if (is_blank(a) || is_blank(b)) continue;
        const std::size_t root_a = root_of(member_of(a));
        const std::size_t root_b = root_of(member_of(b));
        parent_[root_b] = root_a;
    }
    // In the order of the rows, whatever the order of the table.
    std::vector<std::string_view> by_number(number_.size());
    for (const auto& [path, member] : number_) by_number[member] = path;
    for (std::size_t member = 0; member < by_number.size(); ++member) {
        if ((member + 1) % rows_per_turn == 0) turn();
        groups_[root_of(member)].paths.push_back(by_number[member]);
    }
}

copy_groups::group* copy_groups::group_of(std::string_view path) {
    const auto found = number_.find(path);
    return found == number_.end() ? nullptr : &groups_[root_of(found->second)];
}

std::size_t copy_groups::member_of(std::string_view path) {
    const auto [place, is_new] = number_.try_emplace(path, parent_.size());
    if (is_new) parent_.push_back(place->second);
    return place->second;
}

std::size_t copy_groups::root_of(std::size_t member) {
    while (parent_[member] != member) {
        parent_[member] = parent_[parent_[member]];
        member = parent_[member];
    }
    return member;
}

}  // namespace corvane
