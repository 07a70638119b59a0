#include "app/program.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(Start, DropsSelectedDirectoriesThatAreGoneAndKeepsTheOrder) {
    test_program p;
    p.files.add_directory("/b");
    p.files.add_directory("/a");
    p.files.add_file("/prog/比较文件_目录清单.txt", "/b\r\n/gone\r\n/a\r\n");
    p.add_used_folder();
    p.corvane.start();
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"/b", "/a"}));
    EXPECT_EQ(p.state.selected_dir_count, 2);
    EXPECT_FALSE(p.corvane.directory_window().visible);
}

TEST(Start, WithNoDirectoryLeftOpensTheSelection) {
    test_program p;
    p.files.add_file("/prog/比较文件_目录清单.txt", "/gone\r\n");
    p.corvane.start();
    EXPECT_TRUE(p.corvane.directory_window().visible);
    EXPECT_TRUE(p.form.visible);
}

TEST(Start, FillsThePanelsAndTheTitleAndStartsNoTask) {
    test_program q;
    q.files.add_directory("/d");
    q.files.add_file("/prog/比较文件_目录清单.txt", "/d\r\n");
    q.add_used_folder();
    q.corvane.start();
    texts panels;
    for (int number = 1; number <= 7; ++number) panels.push_back(q.form.StatusBar1.panel(number));
    EXPECT_EQ(panels, (texts{"全部文件数", "全部文件大小", "相同文件数", "相同文件大小", "删除情况",
                             "运行时间", "帮助"}));
    EXPECT_EQ(q.form.caption, "Corvane V1.0.0        欢迎您使用");
    EXPECT_EQ(q.state.file_count, 0);
    EXPECT_EQ(q.state.result_count, 0);
}

TEST(Start, TheRunClockStandsInTheTitle) {
    test_program p;
    p.add_used_folder();
    p.corvane.start();
    p.screen.clock += 3725;
    p.corvane.tick();
    EXPECT_EQ(p.form.caption, "Corvane V1.0.0        欢迎您使用    进入计时:1:2:5");
}

TEST(Start, ASecondInstanceIsToldAndTouchesNoFile) {
    test_program p;
    p.files.add_file("/prog/比较文件_目录清单.txt", "/gone\r\n");
    p.files.claimed_by_another = true;
    EXPECT_FALSE(p.corvane.start());
    EXPECT_EQ(p.last_message(), "Corvane 程序已经运行，不能再次装载。");
    EXPECT_EQ(p.screen.messages[0].icon, box_icon::exclamation);
    EXPECT_FALSE(p.form.visible);
    EXPECT_EQ(p.files.content_of("/prog/比较文件_目录清单.txt"), "/gone\r\n");
    EXPECT_FALSE(p.files.has("/prog/err.txt"));
    EXPECT_FALSE(p.files.has("/prog/Tavrel环境.txt"));
}

TEST(Start, ASecondInstanceRaisesOneThatWaitsForItsEndAndSaysNothing) {
    test_program p;
    p.files.claimed_by_another = true;
    p.instances.other_comes_to_front = true;
    EXPECT_FALSE(p.corvane.start());
    EXPECT_EQ(p.instances.asked, texts{"/prog/"});
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(Start, TheFirstInstanceAsksNobody) {
    test_program p;
    p.instances.other_comes_to_front = true;
    EXPECT_TRUE(p.corvane.start());
    EXPECT_TRUE(p.instances.asked.empty());
}

TEST(Start, DirectoriesOfTheCommandLineAreSelectedInPlaceOfTheStoredOnes) {
    test_program p;
    for (const char* directory : {"/stored", "/b", "/a", "/a/inner"}) p.files.add_directory(directory);
    p.files.add_file("/file", "x");
    p.files.add_file("/prog/比较文件_目录清单.txt", "/stored\r\n");
    p.add_used_folder();
    p.corvane.open_with({"/b", "/file", "/a/inner", "/a", "/gone"});
    ASSERT_TRUE(p.corvane.start());
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"/a", "/b"}));
    EXPECT_FALSE(p.corvane.directory_window().visible);
    texts told;
    for (const message& box : p.screen.messages) told.push_back(box.text);
    EXPECT_EQ(told, texts{"/file  不是目录\r\n/gone  不是目录"});
    EXPECT_EQ(p.state.file_count, 0) << "no task starts by itself";
}

TEST(Start, ThousandsThatAreNoDirectoriesAreOneBoxThatNamesTen) {
    test_program p;
    p.add_used_folder();
    texts many;
    for (int i = 10; i < 40; ++i) many.push_back(std::string("/gone") + std::to_string(i));
    p.corvane.open_with(many);
    ASSERT_TRUE(p.corvane.start());
    std::string expected;
    for (int i = 10; i < 20; ++i) expected += "/gone" + std::to_string(i) + "  不是目录\r\n";
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.last_message(), expected + "共 30 个不是目录");
}

TEST(Start, WhereNoneOfThemIsThereTheStoredSelectionStays) {
    test_program p;
    p.files.add_directory("/stored");
    p.files.add_file("/prog/比较文件_目录清单.txt", "/stored\r\n");
    p.add_used_folder();
    p.corvane.open_with({"/gone"});
    ASSERT_TRUE(p.corvane.start());
    EXPECT_EQ(p.state.selected_dirs, column<std::string>{"/stored"});
}

TEST(Start, ASecondInstanceHandsItsDirectoriesOverAndSaysWhatBecomesOfThem) {
    const struct {
        reception what;
        const char* words;
        bool passed_on;
    } rows[] = {{reception::taken, "", true},
                {reception::waits, "Corvane 正在运行任务，任务结束后选中这些目录。", true},
                {reception::refused, "Corvane 正在结束，没有选中这些目录。请稍后再打开。", false},
                {reception::none, "Corvane 程序已经运行，不能再次装载。", false}};
    for (const auto& row : rows) {
        test_program p;
        p.files.add_directory("/d");
        p.files.claimed_by_another = true;
        p.instances.other_receives = row.what;
        p.corvane.open_with({"/d"});
        EXPECT_FALSE(p.corvane.start());
        EXPECT_EQ(p.instances.handed_over, texts{"/d"});
        EXPECT_EQ(p.last_message(), row.words);
        EXPECT_EQ(p.corvane.passed_on(), row.passed_on);
        EXPECT_FALSE(p.files.has("/prog/Tavrel环境.txt"));
    }
}

TEST(Receive, AnIdleProgramSelectsThemAtOnce) {
    test_program p;
    for (const char* directory : {"/stored", "/b", "/a"}) p.files.add_directory(directory);
    p.files.add_file("/file", "x");
    p.select({"/stored"});
    EXPECT_EQ(p.corvane.receive({"/b", "/file", "/a", "/gone", ""}), reception::taken);
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"/a", "/b"}));
    EXPECT_TRUE(p.screen.messages.empty());
    // Nothing that is a directory: the selection stays.
    EXPECT_EQ(p.corvane.receive({"/file"}), reception::taken);
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"/a", "/b"}));
}

TEST(Receive, DuringATaskTheSelectionStaysUntilItsEnd) {
    test_program p;
    for (int i = 0; i < 40; ++i)
        p.files.add_file("/d/" + std::to_string(100 + i), std::string(std::size_t(1 + i / 2), 'x'));
    p.files.add_directory("/one");
    p.files.add_directory("/two");
    p.select({"/d"});
    int asked = 0;
    for (const std::int64_t yield : {2, 30, 60})
        p.screen.acts[yield] = [&] {
            ++asked;
            EXPECT_EQ(p.corvane.receive({asked == 1 ? "/one" : "/two"}), reception::waits);
            EXPECT_EQ(p.state.selected_dirs, column<std::string>{"/d"});
        };
    p.form.run("search_check_m");
    ASSERT_EQ(asked, 3);
    EXPECT_EQ(p.stored_pairs().size(), 20u) << "the task had its own directories to the end";
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"/one", "/two"})) << "those of both starts";
    p.form.run("help_spirit");
    p.select({"/d"});
    p.form.run("help_spirit");
    EXPECT_EQ(p.state.selected_dirs, column<std::string>{"/d"}) << "taken once";
}

TEST(Receive, WhileABoxStandsNothingChangesBehindIt) {
    test_program p;
    p.files.add_directory("/one");
    p.files.add_directory("/d");
    p.select({"/d"});
    int boxes = 0;
    p.screen.on_message = [&](const message&) {
        if (++boxes > 1) return;
        EXPECT_EQ(p.corvane.receive({"/one"}), reception::waits);
        EXPECT_EQ(p.state.selected_dirs, column<std::string>{"/d"});
    };
    p.form.run("picture2_Click");  // finds no file, and says so
    ASSERT_EQ(boxes, 1);
    EXPECT_EQ(p.state.selected_dirs, column<std::string>{"/one"});
}

TEST(Receive, InAnOpenSelectionTheyJoinTheListAndNothingIsLost) {
    test_program p;
    for (const char* directory : {"/d", "/picked", "/new"}) p.files.add_directory(directory);
    p.select({"/d"});
    p.form.run("Picture1_Click");
    p.corvane.directory_window().add_paths({"/picked"});
    EXPECT_EQ(p.corvane.receive({"/new"}), reception::taken);
    texts rows;
    for (const list_box::row& each : p.corvane.directory_window().list_selected_dir.rows())
        rows.push_back(each.text);
    EXPECT_EQ(rows, (texts{"/d", "/picked", "/new"}));
    EXPECT_EQ(p.state.selected_dirs, column<std::string>{"/d"}) << "the user has not confirmed";
}

TEST(Receive, AProgramThatIsClosingRefuses) {
    test_program p;
    p.files.add_file("/d/a", "x");
    p.files.add_directory("/one");
    p.select({"/d"});
    bool seen = false;
    p.screen.acts[2] = [&] {
        EXPECT_EQ(p.corvane.receive({"/one"}), reception::waits);
        p.corvane.close();
        EXPECT_EQ(p.corvane.receive({"/one"}), reception::refused);
        seen = true;
    };
    p.form.run("search_check_m");
    ASSERT_TRUE(seen);
    EXPECT_EQ(p.stored_lines("比较文件_目录清单.txt"), texts{"/d"});
}

TEST(Start, ASecondInstanceLeavesACutSettingsFileToTheFirst) {
    test_program p;
    p.add_used_folder({"cut"});
    p.files.claimed_by_another = true;
    EXPECT_FALSE(p.corvane.start());
    EXPECT_EQ(p.files.content_of("/prog/Tavrel环境.txt"), "cut\r\n");
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(Start, ReadsTheSettingsThenTheListsThenChecksTheDirectories) {
    test_program p;
    p.corvane.start();
    texts told;
    for (const message& box : p.screen.messages) told.push_back(box.text);
    EXPECT_EQ(told, (texts{"/prog/Tavrel环境.txt  第一次运行，已自动建立环境文件",
                           "/prog/不参加搜索的目录.txt  不存在", "/prog/不参加比较的文件类型.txt  不存在",
                           "/prog/仅搜索的文件类型.txt  不存在"}));
    EXPECT_TRUE(p.corvane.directory_window().visible);

    test_program q;
    q.add_used_folder();
    q.files.erase("/prog/比较文件_目录清单.txt");
    q.files.erase("/prog/不参加搜索的目录.txt");
    q.corvane.start();
    ASSERT_EQ(q.screen.messages.size(), 2u);
    EXPECT_EQ(q.screen.messages[0].text, "/prog/比较文件_目录清单.txt  不存在");
    EXPECT_EQ(q.screen.messages[1].text, "/prog/不参加搜索的目录.txt  不存在");
}

TEST(Start, TheTitleNamesTheLastUse) {
    test_program p;
    std::vector<std::string> lines = fresh_settings_lines();
    lines[13] = "2025-01-02  03:04:05";
    p.add_used_folder(lines);
    p.corvane.start();
    EXPECT_EQ(p.form.caption, "Corvane V1.0.0        上次使用时间：2025-01-02  03:04:05");
}

TEST(Start, MoreThanTheLimitOfSelectedDirectoriesIsCutOff) {
    test_program p;
    p.files.add_directory("/d");
    std::string lines;
    for (int i = 0; i < 2500; ++i) lines += "/d\r\n";
    p.files.add_file("/prog/比较文件_目录清单.txt", lines);
    p.add_used_folder();
    p.corvane.start();
    EXPECT_EQ(p.state.selected_dir_count, 2000);
}

TEST(Close, WritesTheSelectionAndEndsOnce) {
    test_program p;
    p.select({"/d"});
    p.form.run("exit_sub");
    EXPECT_EQ(p.stored_lines("比较文件_目录清单.txt"), texts{"/d"});
    EXPECT_TRUE(p.screen.ended);
    EXPECT_EQ(p.state.quit_requested, -1);
    p.files.erase("/prog/比较文件_目录清单.txt");
    p.corvane.close();
    EXPECT_FALSE(p.files.has("/prog/比较文件_目录清单.txt"));
}

TEST(Close, WithinATaskTheFormStaysAndSaysSoUntilTheTaskHasReturned) {
    test_program p;
    p.files.add_file("/d/a", "x");
    p.select({"/d"});
    p.form.visible = true;
    bool seen = false;
    p.screen.acts[2] = [&] {
        p.corvane.close();
        p.corvane.close();
        seen = true;
        EXPECT_TRUE(p.form.visible);
        EXPECT_NE(p.form.caption.find("正在结束…"), std::string::npos);
        p.corvane.tick();
        EXPECT_NE(p.form.caption.find("正在结束…"), std::string::npos) << "the clock has stopped";
        EXPECT_FALSE(p.screen.ended);
        EXPECT_TRUE(p.files.has("/prog/比较文件_目录清单.txt")) << "what must survive is safe at once";
    };
    p.form.run("search_check_m");
    ASSERT_TRUE(seen);
    EXPECT_TRUE(p.screen.ended);
    EXPECT_FALSE(p.form.visible);
}

TEST(Tasks, NoneStartsWhileAnotherRunsWhicheverWayItIsAskedFor) {
    test_program p;
    for (int i = 0; i < 60; ++i)
        p.files.add_file("/d/" + std::to_string(100 + i), std::string(std::size_t(1 + i / 2), 'x'));
    p.search({"/d"});
    const std::int64_t start = p.screen.yields;
    const char* const ways[] = {"picture2_Click",
                                "Picture3_Click",
                                "Picture4_Click",
                                "Command21_Click",
                                "Command18_Click",
                                "search_check_m",
                                "目录选择.cmd_dir_firm_Click"};
    for (std::int64_t yield = 70; yield < 140; ++yield)
        p.screen.acts[start + yield] = [&, yield] { p.form.run(ways[yield % 7]); };
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.stored_pairs().size(), 30u);
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(HelpMode, TheMenuTogglesThePointer) {
    test_program p;
    p.form.run("help_spirit");
    EXPECT_EQ(p.form.mouse_pointer, 14);
    p.form.run("Picture1_Click");
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.desktop.calls, (texts{"help aux09_Corvane帮助_Link.htm", "help aux15_Corvane帮助_Link.htm"}));
    EXPECT_FALSE(p.corvane.directory_window().visible);
    p.form.run("help_spirit");
    EXPECT_EQ(p.form.mouse_pointer, 0);
}

TEST(Forms, AreFoundByNameWithoutCase) {
    test_program p;
    EXPECT_EQ(p.corvane.find_form(""), &p.form);
    EXPECT_EQ(p.corvane.find_form("tavrel"), &p.form);
    EXPECT_EQ(p.corvane.find_form("目录选择"), &p.corvane.directory_window());
    EXPECT_EQ(p.corvane.find_form("none"), nullptr);
}

TEST(Program, InAFolderThatCannotBeWrittenEveryTaskWorksFromMemory) {
    test_program p;
    p.add_used_folder();
    const std::string stale = "内容相同文件清单            \r\n 1 \r\n 1 \r\n/d/one\r\n/d/other\r\n";
    p.files.add_file("/prog/相同文件.txt", stale);
    p.files.add_file("/d/one", "1");
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.files.folder_locked = true;
    p.corvane.start();
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_FALSE(p.screen.messages[0].failure);
    p.select({"/d"});
    p.form.run("search_check_m_Click");
    ASSERT_EQ(p.form.ListView1.row_count(), 1);
    EXPECT_EQ(p.form.ListView1.cell(1, 3), "/d/a");
    EXPECT_EQ(p.form.ListView1.cell(1, 4), "/d/b");
    p.form.run("result_refresh");
    EXPECT_EQ(p.form.ListView1.row_count(), 1);
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"), stale) << "nothing is written";
    EXPECT_FALSE(p.files.has("/prog/文件清单.txt"));
    EXPECT_EQ(p.screen.messages.size(), 2u) << "said once at start, and the end of the comparison";
    // Asked for many paths, the folder tells of what it holds beside what the disk does.
    const std::vector<std::string_view> asked = {"/prog/文件清单.txt", "/d/a", "/prog/none", "/d/none"};
    std::vector<std::uint8_t> found(asked.size());
    EXPECT_EQ(p.form.outside.files.many_exist(asked, found), asked.size());
    EXPECT_EQ(found, (std::vector<std::uint8_t>{1, 1, 0, 0}));
    p.files.blur_state = [](std::string_view, file_facts& state) { state.link_count = 0; };
    std::vector<file_facts> states(asked.size());
    EXPECT_EQ(p.form.outside.files.many_states(asked, states), asked.size());
    EXPECT_TRUE(states[0].exists && states[1].exists && !states[2].exists && !states[3].exists);
    EXPECT_EQ(states[1].link_count, 1u) << "asked one by one, as the facts are";
    EXPECT_EQ(p.form.outside.files.many_states(std::span(asked).subspan(1, 1), states), 1u);
    EXPECT_EQ(states[0].link_count, 0u) << "of the disk alone, which tells states in its own way";
    EXPECT_EQ(states[0].length, 4);
    // Without a twin the result of before is gone, the disk's old one included.
    p.files.erase("/d/b");
    p.form.run("search_check_m_Click");
    ASSERT_GE(p.screen.messages.size(), 4u);
    EXPECT_EQ(p.screen.messages[p.screen.messages.size() - 2].text, "没有相同文件");
    EXPECT_EQ(p.form.ListView1.row_count(), 0);
}

}  // namespace
}  // namespace corvane
