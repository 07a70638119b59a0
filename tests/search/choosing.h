// A directory window over a small disk.
#pragma once

#include <string>
#include <vector>

#include "search/directory_form.h"
#include "tests/support/test_program.h"

namespace corvane {

// Six directories on the screen, /d/0 to /d/5, and two volumes.
struct choosing : test_program {
    choosing() : window(corvane.directory_window()) {
        for (int i = 0; i < 6; ++i) files.add_directory(row(i));
        files.add_directory("/media/card");
        files.mounted = {{"/d/", "", volume_kind::home, 5'000'000, 9'000'000},
                         {"/", "", volume_kind::root},
                         {"/media/card/", "CARD", volume_kind::other, 10, 20}};
        window.tree.paths = [](int first, int last) {
            std::vector<std::string> paths;
            for (int i = first; i <= last; ++i) paths.push_back(row(i));
            return paths;
        };
        window.list_selected_dir.place = {4000, 1000, 3000, 2000};
        window.row_height = 300;
    }
    static std::string row(int number) { return std::string("/d/").append(std::to_string(number)); }
    std::vector<std::string> list() const {
        std::vector<std::string> rows;
        for (const list_box::row& each : window.list_selected_dir.rows()) rows.push_back(each.text);
        return rows;
    }
    void fly(int steps = 30) {
        for (int step = 0; step < steps; ++step) form.run("目录选择.Timer1_Timer");
    }
    void press(mouse_button button, int shift, int number) {
        window.Dir_select_MouseDown(button, shift, number, 100, 400);
    }

    directory_form& window;
};

}  // namespace corvane
