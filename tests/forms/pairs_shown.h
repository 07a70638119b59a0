// The list of the main window with pairs, and what the user does to its cells.
#pragma once

#include "forms/list_table.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {

// A list of pairs with handlers as they are, and what the user does to its cells.
struct pairs_shown : forms_program {
    explicit pairs_shown(std::int32_t rows = 10) : table(windows.main().list()) { show_pairs(rows); }
    QPoint centre(int row, int column) {
        return table.visualRect(table.model()->index(row - 1, column)).center();
    }
    std::uint32_t colour(int row, int column) { return form.ListView1.colour(row, column); }
    list_table& table;
};

}  // namespace corvane
