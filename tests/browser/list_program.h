// A program whose list shows given rows, and a mouse and keys that work on it as a front end does.
#pragma once

#include <string>
#include <vector>

#include "browser/list_acts.h"
#include "tests/support/test_program.h"

namespace corvane {

// The colours of a column, by the words of the tests.
using colour_row = std::vector<std::uint32_t>;
constexpr std::uint32_t black = cell_colour::colour_text;
constexpr std::uint32_t red = cell_colour::mark_red;
constexpr std::uint32_t gray = cell_colour::colour_gray;
constexpr std::uint32_t purple = cell_colour::colour_archive;

struct list_program : test_program {
    struct pair {
        std::int64_t length;
        std::string path1;
        std::string path2;
    };

    // Stores the pairs, all of which are taken as fresh, and shows them.
    void show(const std::vector<pair>& pairs) {
        std::string text = "内容相同文件清单            \r\n ";
        text.append(std::to_string(pairs.size())).append(" \r\n");
        for (const pair& each : pairs) {
            text.append(" ").append(std::to_string(each.length)).append(" \r\n");
            text.append(each.path1).append("\r\n").append(each.path2).append("\r\n");
        }
        files.add_file(program_dir + "相同文件.txt", text);
        state.same_fresh_flag = -1;
        form.ListView1.place.width = 12000;
        form.run("Picture4_Click");
    }

    list_view& list() { return form.ListView1; }
    // A point in the middle of a column, as locate_column reads it.
    int middle_of(int column) {
        int left = 0;
        for (int before = 0; before < column; ++before)
            left += list().columns()[static_cast<std::size_t>(before)].width;
        return left + list().columns()[static_cast<std::size_t>(column)].width / 2;
    }
    void point(std::int32_t row, int column, int button, bool shift) {
        list().selected_row = row;
        form.list_event = {};
        form.list_event.button = button;
        form.list_event.shift = shift;
        form.list_event.x = middle_of(column);
    }
    void press(std::int32_t row, int column, bool shift = false) {
        point(row, column, list_pointer::left_button, shift);
        form.run("ListView1_MouseDown");
    }
    void right_press(std::int32_t row, int column) {
        form.popup_menu.clear();
        point(row, column, list_pointer::right_button, false);
        form.run("ListView1_MouseDown");
    }
    void double_click(std::int32_t row, int column) {
        point(row, column, list_pointer::left_button, false);
        form.run("ListView1_DblClick");
    }
    void header(int column) {
        form.list_event = {};
        form.list_event.column = column;
        form.run("ListView1_ColumnClick");
    }
    void key(int code, bool ctrl = false, bool shift = false) {
        form.list_event = {};
        form.list_event.key_code = code;
        form.list_event.ctrl = ctrl;
        form.list_event.shift = shift;
        form.run("ListView1_KeyDown");
    }
    std::vector<std::uint32_t> colours(int column) {
        std::vector<std::uint32_t> found;
        for (std::int32_t row = 1; row <= list().row_count(); ++row)
            found.push_back(list().colour(row, column));
        return found;
    }
    std::vector<std::string> cells(int column) {
        std::vector<std::string> found;
        for (std::int32_t row = 1; row <= list().row_count(); ++row)
            found.push_back(list().cell(row, column));
        return found;
    }
};

// Rows 2 and 3 repeat the first path of row 1; row 5 has an archive member on each side.
struct five_rows : list_program {
    five_rows() {
        show({{10, "/d/a", "/e/1"},
              {10, "/d/a", "/e/2"},
              {10, "/d/a", "/e/3"},
              {7, "/d/b", "/e/4"},
              {5, "/d/x.zip*m", "/d/y.zip*n"}});
    }
};

}  // namespace corvane
