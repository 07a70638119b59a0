// A program whose tree window is open, or about to be.
#pragma once

#include <string>
#include <vector>

#include "tests/reports/report_program.h"

namespace corvane {

struct opened_tree : report_program {
    opened_tree() : window(corvane.tree_window()) {}
    void open() { form.run("tree_select_m"); }
    void run(const std::string& handler) { ASSERT_TRUE(form.run("tree_dir." + handler)) << handler; }
    void type(const char* name, const std::string& text) {
        window.find(name)->text = text;
        run(std::string(name) + "_Change");
    }
    const std::string& text(int number) const { return window.texts[static_cast<std::size_t>(number)]->text; }
    texts preview() const {
        texts found;
        for (const list_box::row& row : window.List1.rows()) found.push_back(row.text);
        return found;
    }
    // The rows of the suffixes: text, number, and a mark where the text is red.
    texts suffixes() const {
        texts found;
        const list_view& list = window.ListView1;
        for (std::int32_t row = 1; row <= list.row_count(); ++row)
            found.push_back(list.cell(row, 1) + " " + list.cell(row, 2) +
                            (list.colour(row, 1) == 255 && list.colour(row, 2) == 255 ? " red" : ""));
        return found;
    }
    void pick(std::int32_t row) {
        window.ListView1.selected_row = row;
        run("ListView1_DblClick");
    }
    void heading(int column) {
        form.list_event = {};
        form.list_event.column = column;
        run("ListView1_ColumnClick");
    }

    tree_form& window;
};

}  // namespace corvane
