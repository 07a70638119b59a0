#include "core/tasks/environment.h"

#include <gtest/gtest.h>

#include "core/settings/environment_table.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

constexpr char settings_path[] = "/prog/Tavrel环境.txt";

// With a directory to search, start-up does not open the directory window, which has settings of its own.
void add_selection(test_program& p) {
    p.files.add_directory("/chosen");
    p.files.add_file("/prog/比较文件_目录清单.txt", "/chosen\r\n");
}

std::string own_value(int line) {
    switch (settings_line_type(line)) {
        case 't':
            return std::string("text ").append(std::to_string(line)).append(" ");
        case 'd':
            return line == 34 ? "2024-02-29" : "1999-12-31";
        default:
            return std::string(" ").append(
                       std::to_string(1000 + (line == 81 || line == 82 ? line - 32 : line))) += ' ';
    }
}

// A value of its own on each line; the trail is off, fonts and action are in range, the form is on the
// screen.
texts distinct_lines() {
    texts lines;
    for (int line = 1; line <= 122; ++line) lines.push_back(own_value(line));
    lines[43] = " 3 ";
    lines[50] = " 12 ";
    lines[57] = " 0 ";
    return lines;
}

TEST(Environment, AFirstRunWritesZerosAndEmptyTextsAndSaysSo) {
    test_program p;
    p.corvane.start();
    ASSERT_GE(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.screen.messages[0].title, "提示");
    EXPECT_EQ(p.screen.messages[0].text, "/prog/Tavrel环境.txt  第一次运行，已自动建立环境文件");
    texts expected = fresh_settings_lines();
    expected[13] = "2026-03-04  05:06:07";
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt"), expected);
    EXPECT_EQ(p.files.content_of("/prog/比较文件_目录清单.txt"), "");
}

TEST(Environment, TheFirstRunMendsNothingTheSecondDoes) {
    test_program p;
    p.corvane.start();
    EXPECT_EQ(p.state.tree_levels, 0);
    EXPECT_EQ(p.state.shut_action, 0);
    EXPECT_EQ(p.state.shutdown_action_text, "");
    EXPECT_EQ(p.state.list_font_size, 0);
    p.corvane.close();
    program again({p.files, p.desktop, p.desktop, p.screen, p.encodings}, "/prog/");
    again.start();
    const run_state& state = again.main_form().state;
    EXPECT_EQ(state.tree_levels, 4);
    EXPECT_EQ(state.shut_action, 1);
    EXPECT_EQ(state.shutdown_action_text, "关闭程序.");
    EXPECT_EQ(state.list_font_size, 9);
    EXPECT_EQ(again.main_form().caption, "Corvane V1.0.0        上次使用时间：2026-03-04  05:06:07");
}

TEST(Environment, WithAFreshFolderOfListsOneMessageIsAll) {
    test_program p;
    for (const char* list : {"不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt"})
        p.files.add_file(p.program_dir + list, "0x\r\n");
    p.corvane.start();
    EXPECT_EQ(p.screen.messages.size(), 1u);
    EXPECT_TRUE(p.corvane.directory_window().visible);
}

TEST(Environment, TheTableHasEachLineOnceAndTheStatedType) {
    int next = 1;
    for (const environment_entry& entry : environment_table()) {
        EXPECT_EQ(entry.line, next);
        const bool numbers = std::holds_alternative<std::array<std::int32_t, 5> settings::*>(entry.member);
        const bool words = std::holds_alternative<std::array<std::string, 29> settings::*>(entry.member);
        const char type = std::holds_alternative<std::string settings::*>(entry.member) || words      ? 't'
                          : std::holds_alternative<std::int16_t settings::*>(entry.member)            ? 's'
                          : std::holds_alternative<std::int32_t settings::*>(entry.member) || numbers ? 'l'
                                                                                                      : 'd';
        EXPECT_EQ(type, settings_line_type(entry.line)) << entry.name;
        next += numbers ? 5 : words ? 29 : 1;
    }
    EXPECT_EQ(next, 123);
    settings values;
    values.main_left = 7;
    set_defaults(values);
    for (int line = 1; line <= 122; ++line)
        EXPECT_EQ(environment_text(values, line), fresh_settings_lines()[static_cast<std::size_t>(line - 1)]);
}

TEST(Environment, AWriteAfterAReadChangesTheTimeAndTheArchiveToolAlone) {
    test_program p;
    p.desktop.programs = {{"7z", "/usr/bin/7z"}};
    add_selection(p);
    p.add_used_folder(distinct_lines());
    p.corvane.start();
    p.form.run("写Tavrel环境文件");
    texts expected = distinct_lines();
    expected[13] = "2026-03-04  05:06:07";
    expected[55] = "/usr/bin/7z";
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt"), expected);
}

TEST(Environment, ValuesReachTheirSettings) {
    test_program p;
    add_selection(p);
    p.add_used_folder(distinct_lines());
    p.corvane.start();
    EXPECT_EQ(p.state.current_dir, "text 1 ");
    EXPECT_EQ(p.state.main_height, 1005);
    EXPECT_EQ(p.state.delete_prompt_on, 1009);
    EXPECT_EQ(p.state.export_levels, 1018);
    EXPECT_EQ(p.state.dirform_height, 1026);
    EXPECT_EQ(p.state.tree_date_from, 45351);  // 2024-02-29, days from 1899-12-30
    EXPECT_EQ(p.state.tree_not_types, "text 39 ");
    EXPECT_EQ(p.state.rar_tool_path, "") << "looked for anew";
    EXPECT_EQ(p.state.dirpos_follow, 1068);
    EXPECT_EQ(p.state.optform_width, 1049);
    EXPECT_EQ(p.state.warnpos_follow, 1093);
    EXPECT_EQ(p.state.spare[28], "text 122 ");
    EXPECT_EQ(p.form.Text3.text, "1018");
    EXPECT_EQ(p.form.Text4.text, "text 19 ");
    EXPECT_EQ(p.form.place, (rectangle{1002, 1003, 1004, 1005}));
}

TEST(Environment, TheLaterCopyOfTheOptionsWindowsSizeWinsAndBothCarryOneValue) {
    test_program p;
    texts lines = fresh_settings_lines();
    lines[48] = " 111 ";
    lines[80] = " 222 ";
    p.add_used_folder(lines);
    p.corvane.start();
    EXPECT_EQ(p.state.optform_width, 222);
    p.form.run("写Tavrel环境文件");
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[48], " 222 ");
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[80], " 222 ");
}

TEST(Environment, AFileCutAfterAnyLineIsDeletedSilentlyAndWhatWasReadStays) {
    for (int kept = 0; kept < 122; ++kept) {
        test_program p;
        add_selection(p);
        texts lines = distinct_lines();
        lines.resize(static_cast<std::size_t>(kept));
        p.add_used_folder(lines);
        p.corvane.start();
        EXPECT_FALSE(p.files.has(settings_path)) << kept;
        EXPECT_TRUE(p.screen.messages.empty()) << kept;
        for (int line = 1; line <= 122; ++line) {
            // Mended after the read, looked for anew, or overwritten by the later copy of the same setting.
            if (line == 44 || line == 51 || line == 56 || line == 49 || line == 50 || line == 81 ||
                line == 82)
                continue;
            const std::string expected = line <= kept
                                             ? distinct_lines()[static_cast<std::size_t>(line - 1)]
                                             : fresh_settings_lines()[static_cast<std::size_t>(line - 1)];
            EXPECT_EQ(environment_text(p.state, line), expected) << "line " << line << " of " << kept;
        }
        EXPECT_EQ(p.state.list_font_size, kept >= 51 ? 12 : 9);
        EXPECT_EQ(p.state.shut_action, kept >= 44 ? 3 : 1);
        EXPECT_EQ(p.form.place, rectangle{}) << "the form stays where it is";
    }
}

TEST(Environment, ACutFileStillGivesTheSelectedDirectories) {
    test_program p;
    p.files.add_directory("/d");
    p.files.add_file("/prog/比较文件_目录清单.txt", "/d\r\n");
    p.add_used_folder({"/d/"});
    p.corvane.start();
    EXPECT_EQ(p.state.selected_dir_count, 1);
    EXPECT_EQ(p.state.tree_levels, 0) << "mended only after a whole read";
}

TEST(Environment, WindowsAreCollected) {
    test_program p;
    p.form.place = {10, 20, 40000, 400};
    p.form.Text3.text = "7 levels";
    p.form.Text4.text = " .TMP ";
    p.form.run("debug_err");
    collect_environment(p.form);
    EXPECT_EQ(p.state.main_left, 10);
    EXPECT_EQ(p.state.main_width, 32767) << "cut to the type of its line";
    EXPECT_EQ(p.state.export_levels, 7);
    EXPECT_EQ(p.state.export_skip_types, " .TMP ");
    EXPECT_EQ(p.state.error_trail_on, -1);
    p.form.window = window_state::maximised;
    p.form.place = {1, 1, 1, 1};
    collect_environment(p.form);
    EXPECT_EQ(p.state.main_left, 10);
}

TEST(Environment, TheOptionsWindowIsCollectedWhileItIsNormal) {
    test_program p;
    form_model& options = p.corvane.options_window();
    options.place = {1, 2, 3, 4};
    collect_environment(p.form);
    EXPECT_EQ(p.state.optform_left, 1);
    EXPECT_EQ(p.state.optform_height, 4);
    options.window = window_state::minimised;
    options.place = {9, 9, 9, 9};
    collect_environment(p.form);
    EXPECT_EQ(p.state.optform_left, 1);
}

TEST(DirectoryList, AnEmptyOneIsSilentAMissingOneIsTold) {
    test_program p;
    p.add_used_folder();
    p.corvane.start();
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_EQ(p.state.selected_dir_count, 0);

    test_program q;
    q.add_used_folder();
    q.files.erase("/prog/比较文件_目录清单.txt");
    q.corvane.start();
    EXPECT_EQ(q.last_message(), "/prog/比较文件_目录清单.txt  不存在");
    EXPECT_FALSE(q.screen.messages[0].failure);
}

TEST(Environment, AWriteThatFailsKeepsTheOldFileAndIsToldOnce) {
    test_program p;
    p.add_used_folder();
    const std::string before = p.files.content_of(settings_path);
    p.files.write_failure_path = settings_path;
    p.form.run("写Tavrel环境文件");
    EXPECT_EQ(p.files.content_of(settings_path), before);
    EXPECT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.last_message(), "/prog/Tavrel环境.txt\r\ndisk full");
}

TEST(Environment, ADirectoryInTheFilesPlaceIsToldAndLeftAlone) {
    test_program p;
    p.add_used_folder();
    p.files.erase(settings_path);
    p.files.add_directory(settings_path);
    p.corvane.start();
    EXPECT_EQ(p.screen.messages.size(), 1u);
    EXPECT_TRUE(p.files.attributes(settings_path).directory);
}

TEST(Environment, AFileThatCannotBeReadIsDeletedSilently) {
    test_program p;
    p.add_used_folder();
    p.files.add_file(settings_path).unreadable = true;
    p.corvane.start();
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_FALSE(p.files.has(settings_path));
    EXPECT_TRUE(p.files.has("/prog/仅搜索的文件类型.txt"));
}

TEST(DirectoryList, OneThatCannotBeReadIsToldAndStays) {
    test_program p;
    p.add_used_folder();
    p.files.erase("/prog/比较文件_目录清单.txt");
    p.files.add_directory("/prog/比较文件_目录清单.txt");
    p.corvane.start();
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_TRUE(p.last_message().starts_with("/prog/比较文件_目录清单.txt\r\n"));
    EXPECT_EQ(p.state.selected_dir_count, 0);
}

TEST(Environment, ALineBeyondEveryMeasureEndsTheRead) {
    test_program p;
    texts lines = fresh_settings_lines();
    lines[14] = std::string(3'000'000, 'x');
    p.add_used_folder(lines);
    p.corvane.start();
    EXPECT_FALSE(p.files.has(settings_path));
    EXPECT_EQ(p.state.similar_main_file, "");
}

TEST(Environment, AnUnwritableFolderIsToldOnceAndNotAgainAtTheEnd) {
    test_program p;
    p.add_used_folder();
    p.files.folder_locked = true;
    p.files.write_failure_path = settings_path;
    p.corvane.start();
    p.corvane.close();
    EXPECT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.last_message(), "/prog/\r\n程序目录不能写入，设置、清单和结果不能保存。");
}

}  // namespace
}  // namespace corvane
