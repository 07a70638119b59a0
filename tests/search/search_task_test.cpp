#include "search/search_task.h"

#include <gtest/gtest.h>

#include "core/archives/archive_entry.h"
#include "core/tasks/help.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(Search, WithoutASelectionAsksForOneAndOpensTheSelection) {
    test_program p;
    p.form.run("picture2_Click");
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.screen.messages[0].text, "请选择要清理的目录");
    EXPECT_EQ(p.screen.messages[0].help_context, 1009);
    EXPECT_TRUE(p.screen.messages[0].help_button);
    EXPECT_TRUE(p.corvane.directory_window().visible);
}

TEST(Search, FindingNothingKeepsTheStoredList) {
    test_program p;
    p.files.add_directory("/d");
    p.files.add_file("/prog/文件清单.txt", "/old\r\n");
    p.search({"/d"});
    EXPECT_EQ(p.files.content_of("/prog/文件清单.txt"), "/old\r\n");
    EXPECT_EQ(p.last_message(),
              "没搜索到文件。\r\n请检查 [不参加比较的文件类型] 和 [不参加搜索的目录]。或看看目录选择的内容");
    EXPECT_TRUE(p.form.pictures[2]->enabled);
    EXPECT_EQ(p.state.file_count, 0);
}

TEST(Search, InHelpModeOpensTheTopicAndRunsNothing) {
    test_program p;
    p.files.add_file("/d/f");
    p.form.mouse_pointer = help_pointer;
    p.search({"/d"});
    EXPECT_EQ(p.desktop.calls, texts{"help aux11_Corvane帮助_Link.htm"});
    EXPECT_EQ(p.state.file_count, 0);
    EXPECT_FALSE(p.files.has("/prog/文件清单.txt"));
    EXPECT_EQ(p.form.mouse_pointer, help_pointer);
}

TEST(Search, SavesTheSelectionBeforeItWalks) {
    test_program p;
    p.files.add_file("/d/f");
    p.search({"/d", "/e"});
    EXPECT_EQ(p.stored_lines("比较文件_目录清单.txt"), (texts{"/d", "/e"}));
}

TEST(Search, ClosingDuringTheWalkLeavesNoCount) {
    test_program p;
    for (int i = 0; i < 700; ++i) p.files.add_file("/d/" + std::to_string(i));
    p.screen.acts[3] = [&] { p.corvane.close(); };
    p.search({"/d"});
    EXPECT_EQ(p.state.file_count, 0);
    EXPECT_EQ(p.state.walk_count, 700);  // the directory in work is read to its end
    EXPECT_FALSE(p.files.has("/prog/文件清单.txt"));
    EXPECT_TRUE(p.screen.ended);
}

TEST(Search, ClosingEndsTheWalkAtItsNextDirectory) {
    test_program p;
    // The yield of the walk is at file 561, of the 600 of the first directory.
    for (int i = 0; i < 600; ++i) p.files.add_file("/d/a/" + std::to_string(i));
    for (int i = 0; i < 50; ++i) p.files.add_file("/d/b/" + std::to_string(i));
    p.screen.acts[3] = [&] { p.corvane.close(); };
    p.search({"/d/a", "/d/b"});
    EXPECT_EQ(p.state.walk_count, 600);
    EXPECT_EQ(p.state.file_count, 0);
    EXPECT_FALSE(p.files.has("/prog/文件清单.txt"));
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_TRUE(p.screen.ended);
}

TEST(Search, CancelHasNoEffect) {
    test_program p;
    for (int i = 0; i < 700; ++i) p.files.add_file("/d/" + std::to_string(i));
    p.screen.acts[3] = [&] { p.form.run("Command28_Click"); };
    p.search({"/d"});
    EXPECT_EQ(p.state.file_count, 700);
}

TEST(Search, ALongListGetsTheRowOfItsOldBound) {
    test_program p;
    for (int i = 0; i < 32'737; ++i) p.files.add_file("/d/" + std::to_string(i));
    p.search({"/d"});
    ASSERT_EQ(p.form.listleft.rows().size(), 1u);
    EXPECT_EQ(p.form.listleft.rows()[0].text, "... ...");
}

TEST(Search, AFullDiskIsToldAndTheOldListStaysWhole) {
    test_program p;
    p.files.add_file("/d/f");
    p.files.add_file("/prog/文件清单.txt", "/old\r\n");
    p.files.write_failure_path = "/prog/文件清单.txt";
    p.search({"/d"});
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.screen.messages[0].title, "提示");
    EXPECT_NE(p.last_message().find("disk full"), std::string::npos);
    EXPECT_EQ(p.files.content_of("/prog/文件清单.txt"), "/old\r\n");
    EXPECT_TRUE(p.form.pictures[2]->enabled);
}

TEST(Search, GlidesThePointerOntoTheComparison) {
    test_program p;
    p.files.add_file("/d/f");
    p.screen.pointer_place = screen_point{0, 0};
    p.search({"/d"});
    ASSERT_EQ(p.screen.pointer_path.size(), 41u);
    EXPECT_EQ(p.screen.pointer_path.back().y, 80);
}

TEST(StoredList, ReadBackGivesTheSameListInTheSameOrder) {
    test_program p;
    for (const char* path : {"/d/b", "/d/a", "/d/s/c"}) p.files.add_file(path);
    p.search({"/d"});
    const texts before = p.listed();
    p.state.file_list.clear();
    p.state.file_count = 0;
    p.form.run("Command21_Click");
    EXPECT_EQ(p.listed(), before);
    EXPECT_EQ(p.form.StatusBar1.panel(1), "文件数:3");
    EXPECT_EQ(p.form.StatusBar1.panel(2), "字节:");
    EXPECT_EQ(p.form.RichTextBox2.path(), "/prog/文件清单.txt");
    EXPECT_FALSE(p.form.ListView1.visible);
}

TEST(StoredList, ShowsTheRunningCountAtEvery821thLine) {
    test_program p;
    std::string lines;
    for (int i = 0; i < 821; ++i) lines += "/d/" + std::to_string(i) + "\r\n";
    p.files.add_file("/prog/文件清单.txt", lines);
    texts shown;
    for (std::int64_t yield = 1; yield <= 821; ++yield)
        p.screen.acts[yield] = [&] {
            if (!p.form.StatusBar1.panel(1).empty()) shown.push_back(p.form.StatusBar1.panel(1));
        };
    p.form.run("Command21_Click");
    EXPECT_EQ(shown, texts{"总文件数:821"});
}

TEST(StoredList, BlankLinesCountAsEntries) {
    test_program p;
    p.files.add_file("/prog/文件清单.txt", "/d/a\r\n\r\n/d/b\r\n");
    p.form.run("Command21_Click");
    EXPECT_EQ(p.listed(), (texts{"/d/a", "", "/d/b"}));
}

TEST(StoredList, AMissingOrEmptyListOpensTheSelection) {
    for (const bool missing : {true, false}) {
        test_program p;
        if (!missing) p.files.add_file("/prog/文件清单.txt", "");
        p.form.run("Command21_Click");
        EXPECT_EQ(p.last_message(), "没有文件，请重新选择目录,重新搜索");
        EXPECT_EQ(p.screen.messages.back().help_context, 1009);
        EXPECT_TRUE(p.corvane.directory_window().visible);
        EXPECT_EQ(p.state.file_count, 0);
    }
}

TEST(StoredList, ClosingDuringTheReadLeavesTheCountAsItWas) {
    test_program p;
    p.files.add_file("/prog/文件清单.txt", "/d/a\r\n/d/b\r\n/d/c\r\n");
    p.state.file_count = 9;
    p.screen.acts[2] = [&] { p.state.quit_requested = -1; };
    p.form.run("Command21_Click");
    EXPECT_EQ(p.state.file_count, 9);
}

TEST(ArchiveEntry, WritesEightHexadecimalDigitsAndThePlainSize) {
    EXPECT_EQ(archive_entry_text("/d/x.zip", "docs/a.txt", 0x1A2B3C4D, 1024),
              "/d/x.zip*docs/a.txt*1A2B3C4D*1024");
    EXPECT_EQ(archive_entry_text("/d/x.zip", "b", 0xC0FFEE, 4'000'000'000), "/d/x.zip*b*00C0FFEE*4000000000");
    EXPECT_EQ(archive_path_of("/d/x.zip*b*00C0FFEE*4000000000"), "/d/x.zip");
    EXPECT_EQ(archive_path_of("/d/plain"), "/d/plain");
}

TEST(SearchAndCompare, RunsBothAndNamesTheRoad) {
    test_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.select({"/d"});
    p.form.run("search_check_m");
    EXPECT_EQ(p.stored_pairs(), texts{"4 /d/a /d/b"});
    EXPECT_EQ(p.form.StatusBar1.panel(7), "搜索和比对");
    EXPECT_EQ(p.form.StatusBar1.panel(6), "0:0:0");
}

TEST(SearchAndCompare, AsksOnceAboutTheShutdownAndNoDisarmsIt) {
    test_program p;
    p.files.add_file("/d/a", "x");
    p.select({"/d"});
    p.state.shutdown_after_task = 1;
    p.state.shutdown_action_text = "关闭计算机.";
    p.screen.answers = {box_answer::no};
    p.form.run("search_check_m");
    int questions = 0;
    for (const message& box : p.screen.messages) questions += box.buttons == box_buttons::yes_no;
    EXPECT_EQ(questions, 1);
    EXPECT_EQ(p.screen.messages[0].text, "  运行完毕后,关闭计算机.同意吗(Y/N)?");
    EXPECT_EQ(p.state.shutdown_after_task, 0);
    EXPECT_EQ(p.state.chained_run_flag, -1);
}

TEST(DirectorySelection, KeepsOnlyOuterDirectoriesAndOneCopy) {
    test_program p;
    directory_form& window = p.corvane.directory_window();
    window.add_paths({"/a/b/", "/a/", "/ab/", "/c", "/c/d", "/c"});
    window.confirm_selection();
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"/a/", "/ab/", "/c"}));
    EXPECT_EQ(p.state.selected_dir_count, 3);
}

TEST(DirectorySelection, ADirectoryPickedTwiceStandsOnceAtTheEnd) {
    test_program p;
    directory_form& window = p.corvane.directory_window();
    window.add_paths({"/a"});
    window.add_paths({"/b"});
    window.add_paths({"/a"});
    ASSERT_EQ(window.list_selected_dir.rows().size(), 2u);
    EXPECT_EQ(window.list_selected_dir.rows()[0].text, "/b");
    EXPECT_EQ(window.list_selected_dir.rows()[1].text, "/a");
}

TEST(DirectorySelection, ConfirmingNothingTellsHowAndStaysOpen) {
    test_program p;
    p.form.run("Picture1_Click");
    p.form.run("目录选择.Command34_Click");
    EXPECT_TRUE(p.last_message().starts_with("   你未选择清查目录\r\n\r\n在驱动器框和目录框："));
    EXPECT_TRUE(p.last_message().ends_with("选中的目录自动放入右边的选中目录框。"));
    EXPECT_EQ(p.screen.messages.back().help_context, 1009);
    EXPECT_TRUE(p.corvane.directory_window().visible);
    p.form.run("目录选择.cmd_dir_firm_Click");
    EXPECT_TRUE(p.last_message().ends_with("选中的目录放入右边的选中目录框。"));
}

TEST(DirectorySelection, DiscardPutsTheListBackAndLeavesTheSelection) {
    test_program p;
    p.select({"/a"});
    p.form.run("Picture1_Click");
    p.corvane.directory_window().add_paths({"/b"});
    p.form.run("目录选择.cmd_dir_discard_Click");
    ASSERT_EQ(p.corvane.directory_window().list_selected_dir.rows().size(), 1u);
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"/a"}));
    EXPECT_TRUE(p.corvane.directory_window().visible);
}

TEST(SearchTask, SearchAndCompareAtOnceLocksWhileItWalks) {
    test_program p;
    for (int i = 0; i < 561; ++i) p.files.add_file("/d/" + std::to_string(i));
    p.select({"/d"});
    bool locked = false;
    p.screen.acts[1] = [&] { locked = p.state.tasks_locked && !p.form.pictures[2]->enabled; };
    p.form.run("Command19_Click");
    EXPECT_TRUE(locked);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(StoredList, InHelpModeOpensTheTopicOfTheSearch) {
    test_program p;
    p.files.add_file("/prog/文件清单.txt", "/d/a\r\n");
    p.form.mouse_pointer = help_pointer;
    p.form.run("Command21_Click");
    EXPECT_EQ(p.desktop.calls, texts{"help aux11_Corvane帮助_Link.htm"});
    EXPECT_EQ(p.state.file_count, 0);
}

TEST(SideList, ARightClickWritesItsRowsAsText) {
    test_program p;
    p.form.List1.add("/d/a   -1");
    p.form.List1.add("6");
    p.form.list_event = {};
    p.form.run("List1_MouseDown");
    EXPECT_FALSE(p.files.has("/prog/temp.txt"));
    p.form.list_event.button = list_pointer::right_button;
    p.form.run("List1_MouseDown");
    EXPECT_EQ(p.stored_lines("temp.txt"), (texts{"/d/a   -1", "6"}));
    p.files.write_failure_path = "/prog/temp.txt";
    p.form.run("List1_MouseDown");
    EXPECT_EQ(p.last_message(), "/prog/temp.txt\r\ndisk full");
}

}  // namespace
}  // namespace corvane
