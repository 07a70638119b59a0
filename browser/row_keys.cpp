#include "browser/row_keys.h"

#include <bit>
#include <functional>

#include "browser/list_views.h"
#include "core/model/main_form.h"

namespace corvane {

namespace {

std::uint64_t joined(std::uint64_t key, std::uint64_t part) {
    key ^= part + 0x9E3779B97F4A7C15u + (key << 6) + (key >> 2);
    return key * 0xFF51AFD7ED558CCDu;
}

std::uint64_t hash_of(std::string_view text) {
    return std::hash<std::string_view>()(text);
}

}  // namespace

row_keys::row_keys(const Tavrel& form) : list_(form.ListView1) {
    const list_view_row& view = shown_view(form);
    view_ = static_cast<std::uint64_t>(view.list_mode);
    length_column_ = view.length_column;
    first_column_ = view.first_path;
    last_column_ = view.marks == mark_rule::none ? 0
                   : view.second_path != 0       ? view.second_path
                                                 : view.first_path;
    if (list_.column_count() <= last_column_) last_column_ = 0;
}

std::uint64_t row_keys::key(std::int32_t row) const {
    const std::int64_t length = length_column_ == 0 ? 0 : list_.number_cell(row, length_column_);
    const std::string_view second =
        last_column_ == first_column_ ? std::string_view() : list_.text_cell(row, last_column_);
    return key_of(length, list_.text_cell(row, first_column_), second);
}

std::uint64_t row_keys::key_of(std::int64_t length, std::string_view first, std::string_view second) const {
    return joined(joined(joined(view_, static_cast<std::uint64_t>(length)), hash_of(first)), hash_of(second));
}

std::int32_t row_keys::find(std::uint64_t wanted, std::int32_t guess) {
    if (!has_cells()) return 0;
    if (guess >= 1 && guess <= list_.row_count() && key(guess) == wanted) return guess;
    if (rows_.empty()) index_rows();
    const std::size_t mask = rows_.size() - 1;
    for (std::size_t place = wanted & mask; rows_[place] != 0; place = (place + 1) & mask)
        if (keys_[static_cast<std::size_t>(rows_[place])] == wanted) return rows_[place];
    return 0;
}

void row_keys::index_rows() {
    const auto count = static_cast<std::size_t>(list_.row_count());
    rows_.assign(std::bit_ceil(2 * count + 2), 0);
    keys_.resize(count + 1);
    const std::size_t mask = rows_.size() - 1;
    for (std::int32_t row = 1; row <= list_.row_count(); ++row) {
        const std::uint64_t own = keys_[static_cast<std::size_t>(row)] = key(row);
        std::size_t place = own & mask;
        while (rows_[place] != 0) place = (place + 1) & mask;
        rows_[place] = row;
    }
}

}  // namespace corvane
