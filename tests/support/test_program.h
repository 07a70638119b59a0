// A whole program over a disk in memory: what most tests stand on.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "app/program.h"
#include "platform/machine.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/scripted_interface.h"
#include "tests/support/settings_file.h"

namespace corvane {

struct test_program {
    explicit test_program(char separator = '/')
        : files(separator),
          program_dir(separator == '/' ? "/prog/" : "P:\\prog\\"),
          corvane({files, desktop, desktop, screen, encodings, &instances}, program_dir),
          form(corvane.main_form()),
          state(form.state) {
        files.add_directory(program_dir);
    }

    // A program folder that has been used before: settings, selected directories and empty option lists.
    void add_used_folder(const std::vector<std::string>& settings_lines = fresh_settings_lines()) {
        files.add_file(program_dir + "Tavrel环境.txt", with_line_ends(settings_lines));
        for (const char* list : {"比较文件_目录清单.txt", "不参加搜索的目录.txt", "不参加比较的文件类型.txt",
                                 "仅搜索的文件类型.txt"})
            if (!files.has(program_dir + list)) files.add_file(program_dir + list);
    }
    void select(const std::vector<std::string>& directories) {
        state.selected_dirs.clear();
        for (const std::string& directory : directories) state.selected_dirs.push_back(directory);
        state.selected_dir_count = static_cast<std::int16_t>(directories.size());
    }
    void search(const std::vector<std::string>& directories) {
        select(directories);
        form.run("picture2_Click");
    }
    // Compares a list that no walk has made, for entries that the walk cannot give.
    void compare_list(const std::vector<std::string>& entries) {
        std::string text;
        for (const std::string& entry : entries) text += entry + "\r\n";
        files.add_file(program_dir + "文件清单.txt", text);
        state.file_list_loaded = 0;
        form.run("Picture3_Click");
    }
    void compare(const std::vector<std::string>& directories) {
        search(directories);
        form.run("Picture3_Click");
    }
    // The stored pairs, each "length path1 path2".
    std::vector<std::string> stored_pairs() const {
        std::vector<std::string> lines = stored_lines("相同文件.txt");
        std::vector<std::string> pairs;
        for (std::size_t at = 2; at + 2 < lines.size(); at += 3)
            pairs.push_back(lines[at].substr(1, lines[at].size() - 2) + " " + lines[at + 1] + " " +
                            lines[at + 2]);
        return pairs;
    }
    std::vector<std::string> stored_lines(const std::string& name) const {
        std::vector<std::string> lines;
        const std::string text = files.content_of(program_dir + name);
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = std::min(text.find("\r\n", at), text.size());
            lines.push_back(text.substr(at, end - at));
            at = end + 2;
        }
        return lines;
    }
    std::vector<std::string> listed() const {
        std::vector<std::string> entries;
        for (std::int32_t i = 1; i <= state.file_count; ++i) entries.emplace_back(state.file_list[i]);
        return entries;
    }
    std::string last_message() const { return screen.messages.empty() ? "" : screen.messages.back().text; }

    memory_file_system files;
    recording_shell desktop;
    scripted_interface screen;
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
    scripted_instances instances;
    std::string program_dir;
    program corvane;
    Tavrel& form;
    run_state& state;
};

}  // namespace corvane
