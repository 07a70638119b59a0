// A program whose tree window is about to write a list.
#pragma once

#include <string>
#include <vector>

#include "tests/reports/report_program.h"

namespace corvane {

inline constexpr char day[] = "1899-12-30";  // what the test's clock makes of every moment

struct tree : report_program {
    explicit tree(char separator = '/') : report_program(separator), window(corvane.tree_window()) {}

    void open() {
        form.run("tree_select_m");
        set("Text1", "40");
        screen.messages.clear();
        desktop.calls.clear();
    }
    void set(const std::string& name, const std::string& text) { window.find(name)->text = text; }
    void check(const std::string& name, int value = 1) { window.find(name)->value = value; }
    texts output() {
        form.run("tree_dir.Command1_Click");
        return stored_lines("tree_file_list.txt");
    }
    texts shown() const {
        texts found;
        for (const list_box::row& row : window.List1.rows()) found.push_back(row.text);
        return found;
    }
    // The files of an output without lengths and dates, in their order.
    texts written() {
        texts found;
        for (const std::string& line : output()) {
            const std::size_t start = line.find_first_not_of(' ');
            if (line[start] != '\\') found.push_back(line.substr(start));
        }
        return found;
    }

    tree_form& window;
};

}  // namespace corvane
