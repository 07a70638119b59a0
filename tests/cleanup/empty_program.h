// A program whose recycle bin takes what it is given from the disk in memory.
#pragma once

#include <string>
#include <vector>

#include "tests/browser/list_program.h"

namespace corvane {

struct empty_program : list_program {
    empty_program() {
        form.ListView1.place.width = 9000;
        desktop.on_recycle = [this](const std::string& path) {
            if (!bin_refuses) files.erase(path);
            return bin_refuses ? outcome::failure("no trash") : outcome::success();
        };
    }

    void find_empty(const std::vector<std::string>& directories, const char* entry = "Picture6_Click") {
        select(directories);
        form.run(entry);
    }
    // Stores the lines as a search would have, makes the directories, and shows them.
    void show_directories(const std::vector<std::string>& directories) {
        std::string text;
        for (const std::string& directory : directories) {
            files.add_directory(directory);
            text.append(directory).append("\r\n");
        }
        files.add_file(program_dir + "spasedir.txt", text);
        form.run("Picture7_Click");
    }
    std::vector<std::string> found() const { return stored_lines("spasedir.txt"); }
    bool has_file() const { return files.has(program_dir + "spasedir.txt"); }
    void mark(std::int32_t row) { list().set_colour(row, 2, cell_colour::mark_red); }
    void mark_all() { form.run("all_select"); }
    std::vector<std::string> recycled() const {
        std::vector<std::string> paths;
        for (const std::string& call : desktop.calls)
            if (call.starts_with("recycle ")) paths.push_back(call.substr(8));
        return paths;
    }
    std::string panel(int number) const { return form.StatusBar1.panel(number); }
    std::vector<std::string> message_texts() const {
        std::vector<std::string> texts;
        for (const message& each : screen.messages) texts.push_back(each.text);
        return texts;
    }

    bool bin_refuses = false;
};

}  // namespace corvane
