// A program whose options window is about to be opened: used option lists and a list of common types.
#pragma once

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {

using texts = std::vector<std::string>;

constexpr char dirs_file[] = "/prog/不参加搜索的目录.txt";
constexpr char types_file[] = "/prog/不参加比较的文件类型.txt";
constexpr char only_file[] = "/prog/仅搜索的文件类型.txt";
constexpr char common_file[] = "/prog/常用文件扩展名.txt";

struct options : test_program {
    options() : window(corvane.options_window()) {
        add_used_folder();
        files.add_file(common_file, ".ani 动画鼠标\r\n.xls Excel工作簿\r\n.txt\r\n");
    }
    void run(const std::string& handler) { ASSERT_TRUE(form.run("Form_no_dire." + handler)) << handler; }
    void open() {
        for (const char* reader : {"读不参加搜索的目录", "读不参加比较的文件类型", "读仅搜索的文件类型"})
            form.run(reader);
        screen.messages.clear();
        form.run("select_m_Click");
    }
    void open_with(const char* file, const std::string& lines) {
        files.add_file(file, lines).content = lines;
        open();
    }
    void check(int number, int value) {
        window.checks[static_cast<std::size_t>(number)]->value = value;
        form.run("Form_no_dire.Check" + std::to_string(number) + "_Click");
    }
    // Every input box and colour dialog, "title|prompt".
    texts asked() const {
        texts found;
        for (const scripted_interface::question& each : screen.questions)
            found.push_back(each.title + "|" + each.prompt);
        return found;
    }
    // The rows as their file has them: flag and text.
    static texts rows(const list_box& list) {
        texts found;
        for (const list_box::row& row : list.rows()) found.push_back((row.checked ? "1" : "0") + row.text);
        return found;
    }

    options_form& window;
};

}  // namespace corvane
