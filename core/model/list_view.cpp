#include "core/model/list_view.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {
std::size_t at(std::int32_t row) {
    return static_cast<std::size_t>(row - 1);
}
std::size_t index_of(int column) {
    return static_cast<std::size_t>(column);
}
}  // namespace

void list_view::clear_columns() {
    columns_.clear();
    cells_.clear();
    row_count_ = 0;
    marked_cells_ = 0;
    selected_row = 0;
    ++layout_revision_;
    ++fill_revision_;
}

void list_view::add_column(list_column column) {
    columns_.push_back(std::move(column));
    columns_.back().width = std::max(columns_.back().width, 0);
    column_cells cells;
    if (columns_.back().content == cell_content::number)
        cells.numbers.resize(static_cast<std::size_t>(row_count_));
    else
        cells.texts.resize(row_count_);
    cells_.push_back(std::move(cells));
    ++layout_revision_;
}

void list_view::set_column_width(int column, int twips) {
    list_column& target = columns_[index_of(column)];
    twips = std::max(twips, 0);
    if (target.width == twips) return;
    target.width = twips;
    ++layout_revision_;
}

void list_view::share_texts(int column, const text_column& source) {
    for (std::int32_t row = 1; marked_cells_ > 0 && row <= row_count_; ++row)
        marked_cells_ -= mark_of(cells_[index_of(column)], row);
    text_column& texts = cells_[index_of(column)].texts;
    texts.clear_and_share(source);
    texts.resize(row_count_);
}

void list_view::clear_rows() {
    for (column_cells& cells : cells_) cells = column_cells();
    row_count_ = 0;
    marked_cells_ = 0;
    selected_row = 0;
    ++layout_revision_;
    ++fill_revision_;
}

void list_view::reserve_rows(std::int32_t count) {
    for (std::size_t column = 1; column < cells_.size(); ++column) {
        if (columns_[column].content == cell_content::number)
            cells_[column].numbers.reserve(static_cast<std::size_t>(count));
        else
            cells_[column].texts.reserve(count);
    }
}

std::int32_t list_view::add_row() {
    ++row_count_;
    for (std::size_t column = 1; column < cells_.size(); ++column) {
        column_cells& cells = cells_[column];
        if (columns_[column].content == cell_content::number)
            cells.numbers.push_back(0);
        else
            cells.texts.resize(row_count_);
        if (!cells.colours.empty()) cells.colours.push_back(cell_colour::colour_text);
    }
    ++layout_revision_;
    return row_count_;
}

void list_view::set_text(std::int32_t row, int column, std::string_view words) {
    column_cells& cells = cells_[index_of(column)];
    marked_cells_ -= mark_of(cells, row);
    cells.texts.set(row, words);
    marked_cells_ += mark_of(cells, row);
    ++cell_revision_;
}

void list_view::set_shared_text(std::int32_t row, int column, const char* entry) {
    column_cells& cells = cells_[index_of(column)];
    marked_cells_ -= mark_of(cells, row);
    cells.texts.set_entry(row, entry);
    marked_cells_ += mark_of(cells, row);
    ++cell_revision_;
}

void list_view::set_number(std::int32_t row, int column, std::int64_t number) {
    cells_[index_of(column)].numbers[at(row)] = number;
    ++cell_revision_;
}

void list_view::reorder(std::vector<std::int32_t> order) {
    take_over(gather(std::move(order)));
}

list_view::gathered_rows list_view::gather(std::vector<std::int32_t> order) const {
    gathered_rows rows;
    rows.order = std::move(order);
    for (const column_cells& cells : cells_) {
        std::vector<std::int64_t>& numbers = rows.numbers.emplace_back();
        std::vector<const char*>& texts = rows.texts.emplace_back();
        if (!cells.numbers.empty()) {
            numbers.reserve(cells.numbers.size());
            for (const std::int32_t row : rows.order) numbers.push_back(cells.numbers[at(row)]);
        }
        if (cells.texts.size() == static_cast<std::int32_t>(rows.order.size()))
            texts = cells.texts.in_order(rows.order);
    }
    return rows;
}

void list_view::take_over(gathered_rows rows) {
    for (std::size_t column = 0; column < cells_.size(); ++column) {
        column_cells& cells = cells_[column];
        cells.numbers.swap(rows.numbers[column]);
        if (!rows.texts[column].empty()) cells.texts.swap_entries(rows.texts[column]);
        if (cells.colours.empty()) continue;
        std::vector<std::uint32_t> colours;
        colours.reserve(cells.colours.size());
        for (const std::int32_t row : rows.order) colours.push_back(cells.colours[at(row)]);
        cells.colours = std::move(colours);
    }
    if (selected_row > 0) {
        const auto found = std::find(rows.order.begin(), rows.order.end(), selected_row);
        selected_row =
            found == rows.order.end() ? 0 : static_cast<std::int32_t>(found - rows.order.begin()) + 1;
    }
    ++cell_revision_;
    ++order_revision_;
}

std::string list_view::cell(std::int32_t row, int column) const {
    if (column == 0) return {};
    if (columns_[index_of(column)].content == cell_content::number)
        return std::to_string(number_cell(row, column));
    return std::string(text_cell(row, column));
}

std::string_view list_view::text_cell(std::int32_t row, int column) const {
    return cells_[index_of(column)].texts[row];
}

const char* list_view::text_entry(std::int32_t row, int column) const {
    return cells_[index_of(column)].texts.entry(row);
}

std::int64_t list_view::number_cell(std::int32_t row, int column) const {
    return cells_[index_of(column)].numbers[at(row)];
}

std::int32_t list_view::mark_of(const column_cells& cells, std::int32_t row) {
    if (cells.colours.empty() || cells.colours[at(row)] != cell_colour::mark_red) return 0;
    return row <= cells.texts.size() && !cells.texts[row].empty() ? 1 : 0;
}

std::uint32_t list_view::colour(std::int32_t row, int column) const {
    const std::vector<std::uint32_t>& colours = cells_[index_of(column)].colours;
    return colours.empty() ? cell_colour::colour_text : colours[at(row)];
}

void list_view::set_colour(std::int32_t row, int column, std::uint32_t colour) {
    column_cells& cells = cells_[index_of(column)];
    if (cells.colours.empty()) {
        if (colour == cell_colour::colour_text) return;
        cells.colours.reserve(cells.texts.capacity());
        cells.colours.resize(static_cast<std::size_t>(row_count_), cell_colour::colour_text);
    }
    marked_cells_ -= mark_of(cells, row);
    cells.colours[at(row)] = colour;
    marked_cells_ += mark_of(cells, row);
    ++cell_revision_;
}

void list_view::set_colours(int column, std::vector<std::uint32_t> colours) {
    column_cells& cells = cells_[index_of(column)];
    for (std::int32_t row = 1; marked_cells_ > 0 && row <= row_count_; ++row)
        marked_cells_ -= mark_of(cells, row);
    const bool plain = std::all_of(colours.begin(), colours.end(),
                                   [](std::uint32_t colour) { return colour == cell_colour::colour_text; });
    cells.colours = plain ? std::vector<std::uint32_t>() : std::move(colours);
    for (std::int32_t row = 1; row <= row_count_; ++row) marked_cells_ += mark_of(cells, row);
    ++cell_revision_;
}

}  // namespace corvane
