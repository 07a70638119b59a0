// The model of ListView1: rows of cells with a text and a text colour each, for a million rows. Cells lie in
// columns; a text cell can be shared with a result column, a number cell is kept as the number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/model/controls.h"
#include "core/text/text_column.h"

namespace corvane {

// Cell text colours, 0xBBGGRR; the high bit marks a system colour. They are the only record of marks.
namespace cell_colour {
constexpr std::uint32_t colour_text = 0;
constexpr std::uint32_t window_text = 0x80000008;
constexpr std::uint32_t colour_archive = 14822282;
constexpr std::uint32_t colour_gray = 0x80000011;
constexpr std::uint32_t mark_red = 255;
constexpr std::uint32_t mark_blue = 16711680;
constexpr std::uint32_t colour_found = 16711935;
}  // namespace cell_colour

enum class text_alignment { left, right };

// What a column's cells hold. A number cell shows the plain decimal.
enum class cell_content { text, number };

struct list_column {
    std::string header;
    int width = 0;  // twips
    text_alignment alignment = text_alignment::left;
    cell_content content = cell_content::text;
};

// The event in hand of a handler of the list. x is in twips from the left edge of column 0, scrolled or not.
struct list_pointer {
    static constexpr int left_button = 1;
    static constexpr int right_button = 2;

    int button = left_button;
    bool shift = false;
    bool ctrl = false;
    int x = 0;
    int column = 0;    // of a heading
    int key_code = 0;  // of a key
};

// How a list stood: while it answers the same, no row, text or colour of it has changed. The widths of its
// columns may have.
struct list_revisions {
    std::int32_t rows = -1;
    std::uint64_t cells = 0;
    std::uint64_t fill = 0;
    std::uint64_t order = 0;
    bool operator==(const list_revisions&) const = default;
};

// What becomes of a look at every row that is taken in parts.
enum class walk_progress { unchanged, on_its_way, renewed };

class list_view : public control {
  public:
    explicit list_view(std::string name) : control(control_kind::list_view, std::move(name)) {}

    // Columns are counted from 0; column 0 is the row's own text and stays empty.
    const std::vector<list_column>& columns() const { return columns_; }
    int column_count() const { return static_cast<int>(columns_.size()); }
    void clear_columns();
    void add_column(list_column column);
    void set_column_width(int column, int twips);
    // Lets the cells of a text column take over entries of `source` without a copy. Empties the cells.
    void share_texts(int column, const text_column& source);

    // Rows are counted from 1. Cells of a new row are empty, their colour is colour_text.
    std::int32_t row_count() const { return row_count_; }
    void clear_rows();
    void reserve_rows(std::int32_t count);
    std::int32_t add_row();
    void set_text(std::int32_t row, int column, std::string_view words);
    // `entry` belongs to the column that was handed to share_texts.
    void set_shared_text(std::int32_t row, int column, const char* entry);
    void set_number(std::int32_t row, int column, std::int64_t number);

    std::string cell(std::int32_t row, int column) const;
    // Without a copy; only for a text column.
    std::string_view text_cell(std::int32_t row, int column) const;
    const char* text_entry(std::int32_t row, int column) const;
    // Only for a number column.
    std::int64_t number_cell(std::int32_t row, int column) const;

    std::uint32_t colour(std::int32_t row, int column) const;
    void set_colour(std::int32_t row, int column, std::uint32_t colour);

    // Puts the rows into a new order: row n becomes what row order[n - 1] was. Each row stands in it once.
    void reorder(std::vector<std::int32_t> order);
    // The same in two steps. The first looks at no colour: another thread may take it while no row, text or
    // number changes.
    struct gathered_rows {
        std::vector<std::int32_t> order;
        std::vector<std::vector<const char*>> texts;     // by column, empty for one of numbers
        std::vector<std::vector<std::int64_t>> numbers;  // by column, empty for one of texts
    };
    gathered_rows gather(std::vector<std::int32_t> order) const;
    void take_over(gathered_rows rows);
    // The colours of all cells of a column, in the order of the rows.
    void set_colours(int column, std::vector<std::uint32_t> colours);

    // Cells in mark_red that hold a text: what is marked for deletion.
    std::int32_t marked_cells() const { return marked_cells_; }

    // The selected row, 0 for none.
    std::int32_t selected_row = 0;
    // A row that is to come into view; the front end scrolls to it and sets 0.
    std::int32_t reveal_row = 0;

    // Changes with every change of columns and rows; a front end then resets its view.
    std::uint64_t layout_revision() const { return layout_revision_; }
    // Changes with every change of a cell's text or colour.
    std::uint64_t cell_revision() const { return cell_revision_; }
    // Changes when all rows go: those that come after are others.
    std::uint64_t fill_revision() const { return fill_revision_; }
    // Of all but the widths, and how often rows have changed places.
    list_revisions revisions() const { return {row_count_, cell_revision_, fill_revision_, order_revision_}; }

  private:
    struct column_cells {
        text_column texts;
        std::vector<std::int64_t> numbers;
        std::vector<std::uint32_t> colours;  // empty while all cells are colour_text
    };

    // 1 for a cell that counts as marked, else 0.
    static std::int32_t mark_of(const column_cells& cells, std::int32_t row);

    std::vector<list_column> columns_;
    std::vector<column_cells> cells_;
    std::int32_t row_count_ = 0;
    std::int32_t marked_cells_ = 0;
    std::uint64_t layout_revision_ = 0;
    std::uint64_t cell_revision_ = 0;
    std::uint64_t fill_revision_ = 0;
    std::uint64_t order_revision_ = 0;
};

}  // namespace corvane
