#include "cleanup/delete_files.h"

#include <gtest/gtest.h>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {
using namespace cell_colour;
using texts = std::vector<std::string>;

constexpr auto yes = box_answer::yes;
constexpr auto no = box_answer::no;

TEST(Recycle, TakesMarkedFilesAndNothingElse) {
    deleting p;
    p.show_files({{10, "/d/a", "/e/a"}, {2'000'000, "/d/b", "/e/b"}, {5, "/d/c", "/e/c"}});
    p.double_click(1, 4);
    p.double_click(2, 3);
    p.run_recycle();
    EXPECT_EQ(p.recycled, (texts{"/e/a", "/d/b"}));
    EXPECT_TRUE(p.files.removed.empty());
    for (const char* kept : {"/d/a", "/e/b", "/d/c", "/e/c"}) EXPECT_TRUE(p.files.has(kept)) << kept;
    EXPECT_EQ(p.cells(4), (texts{"", "/e/b", "/e/c"}));
    EXPECT_EQ(p.cells(3), (texts{"/d/a", "", "/d/c"}));
    EXPECT_EQ(p.screen.messages[0].text, "将所选定的文件放入回收站吗?\r\n    Y 放入回收站\r\n    N 直接删除");
    EXPECT_EQ(p.screen.messages[0].buttons, box_buttons::yes_no);
    EXPECT_EQ(p.last_message(), "放入回收站:2 个文件\r\n 释放空间: 2,000,010");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "已删除:2");
    EXPECT_EQ(p.form.StatusBar1.panel(7), "删除内容相同文件");
    EXPECT_EQ(p.state.same_count, 1);
    EXPECT_EQ(p.stored_lines("相同文件.txt"),
              (texts{"内容相同文件清单            ", " 1 ", "5", "/d/c", "/e/c"}));
    EXPECT_TRUE(p.form.pictures[5]->enabled);
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
}

TEST(Recycle, WithoutAResultSaysSo) {
    deleting p;
    p.run_recycle();
    EXPECT_EQ(p.last_message(), "没有选中的要删除的文件,请重选");
    EXPECT_EQ(p.screen.messages[0].help_context, 1015);
    EXPECT_TRUE(p.screen.messages[0].help_button);
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(Recycle, WithoutAMarkSaysSoAndLeavesTheStore) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}});
    const std::string before = p.files.content_of("/prog/相同文件.txt");
    p.run_recycle();
    EXPECT_EQ(p.last_message(), "没有要删除的文件\r\n请在文件1或文件2栏中选择要删除的文件");
    EXPECT_EQ(p.screen.messages.back().help_context, 1015);
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"), before);
    EXPECT_TRUE(p.form.pictures[5]->enabled);
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
}

TEST(Recycle, InOtherModesGoesElsewhere) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}});
    p.mark(1, 4);
    int emptied = 0;
    p.form.bind("Picture8_Click", [&] { ++emptied; });
    p.state.list_mode = 1;
    p.run_recycle();
    EXPECT_EQ(emptied, 1);
    EXPECT_TRUE(p.screen.messages.empty());
    p.state.list_mode = 3;
    p.run_recycle();
    EXPECT_EQ(p.last_message(), "因文件内容不一定相同,请在资源管理器中选择删除");
    EXPECT_TRUE(p.recycled.empty());
}

TEST(Recycle, InHelpModeOpensTheTopic) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}});
    p.mark(1, 4);
    p.form.mouse_pointer = 14;
    p.run_recycle();
    EXPECT_EQ(p.desktop.calls, texts{"help aux20_Corvane帮助_Link.htm"});
    EXPECT_TRUE(p.files.has("/e/a"));
}

TEST(Recycle, AVanishedFileKeepsItsMarkAndCountsNowhere) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}});
    p.double_click(1, 4);
    p.files.erase("/e/a");
    p.run_recycle();
    EXPECT_EQ(p.last_message(), "放入回收站:0 个文件\r\n 释放空间: ");
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
    EXPECT_EQ(p.list().cell(1, 4), "/e/a");
    EXPECT_EQ(p.state.same_count, 1);
    EXPECT_EQ(p.screen.messages.size(), 2u);
}

TEST(Recycle, AProtectedFileTurnsBlueAndGoesOnTheSecondRun) {
    for (const bool hidden : {true, false}) {
        deleting p;
        p.show_files({{1, "/d/a", "/e/a"}, {1, "/d/b", "/e/b"}});
        (hidden ? p.files.add_file("/e/a", "x").hidden : p.files.add_file("/e/a", "x").read_only) = true;
        p.double_click(1, 4);
        p.run_recycle({yes, yes});
        EXPECT_EQ(p.last_message(),
                  "放入回收站:0 个文件\r\n 释放空间: \r\n无法删除:1 个文件 (隐藏或只读文件)\r\n"
                  "如需删除隐藏或只读文件,请按 yes,并重新运行<删除内容相同文件>");
        EXPECT_EQ(p.list().colour(1, 4), mark_blue);
        EXPECT_TRUE(p.recycled.empty());
        EXPECT_EQ(p.state.force_protected, -1);
        p.run_recycle();
        EXPECT_EQ(p.recycled, texts{"/e/a"});
        EXPECT_EQ(p.list().cell(1, 4), "");
        EXPECT_EQ(p.state.force_protected, 0);
        EXPECT_EQ(p.last_message(), "放入回收站:1 个文件\r\n 释放空间: 1");
    }
}

TEST(Recycle, BlueWithoutTheFlagIsNoMark) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}});
    p.list().set_colour(1, 4, mark_blue);
    p.run_recycle();
    EXPECT_EQ(p.last_message(), "没有要删除的文件\r\n请在文件1或文件2栏中选择要删除的文件");
    p.state.force_protected = -1;
    p.files.add_file("/e/a", "x").keeps_attributes = true;
    p.files.add_file("/e/a", "x").read_only = true;
    p.run_recycle({yes, no});
    EXPECT_EQ(p.list().colour(1, 4), mark_blue);
    EXPECT_TRUE(p.recycled.empty());
    EXPECT_EQ(p.state.force_protected, -1) << "no batch was run";
}

TEST(Recycle, WhatTheBinRefusesStaysWithItsCellAndIsSaid) {
    deleting p;
    p.show_files({{7, "/d/a", "/e/a"}});
    p.refused = {"/e/a"};
    p.double_click(1, 4);
    p.run_recycle();
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_EQ(p.last_message(), "放入回收站:0 个文件\r\n 释放空间: \r\n回收站未收下 1 个: /e/a");
    EXPECT_EQ(p.list().cell(1, 4), "/e/a");
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
    EXPECT_EQ(p.state.same_count, 1);
}

TEST(Recycle, AnArchiveEntryGoesOnItsList) {
    deleting p;
    p.show_files({{3, "/d/a", "/z.zip*in/a"}, {4, "/d/b", "/z.zip*b"}});
    p.files.add_file("/z.zip", "archive");
    p.mark(1, 4);
    p.mark(2, 4);
    p.run_recycle();
    EXPECT_EQ(p.files.content_of("/prog/winrar_del_file.txt"), "/z.zip*in/a\r\n/z.zip*b\r\n");
    EXPECT_EQ(p.state.archive_mark_count, 2);
    EXPECT_EQ(p.cells(4), (texts{"", ""}));
    EXPECT_TRUE(p.recycled.empty());
}

TEST(Recycle, AListOfEntriesThatCouldNotBeWrittenIsNotHandedOn) {
    deleting p;
    p.show_files({{5, "/d/a", "/z.zip*in/a"}});
    p.files.add_file("/z.zip", "archive");
    p.files.add_file("/prog/winrar_del_file.txt", "/other.zip*of an earlier run\r\n");
    p.files.write_failure_path = "/prog/winrar_del_file.txt";
    p.mark(1, 4);
    p.state.rar_tool_path = "/usr/bin/7z";
    p.run_recycle();
    EXPECT_TRUE(p.desktop.started.empty());
    EXPECT_EQ(p.screen.messages[1].text, "/prog/winrar_del_file.txt\r\ndisk full");
    EXPECT_EQ(p.list().cell(1, 4), "/z.zip*in/a");
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
}

TEST(Recycle, ANameWithABlankAtItsEndIsNotTheNameWithoutIt) {
    deleting p;
    p.files.add_file("/x/name", "abc");
    p.files.add_file("/x/name ", "xyz");
    p.show_files({{1, "/d/a", "/e/a"}});
    p.files.add_file("/prog/不相同文件.txt", "/x/name \r\n");
    p.form.run("Picture11_Click");
    p.double_click(1, 4);
    p.run_recycle();
    EXPECT_EQ(p.recycled, texts{"/x/name "});
    EXPECT_TRUE(p.files.has("/x/name"));
}

TEST(Recycle, ThePanelFollowsTheScanOnAllButEveryThousandthRow) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}, {1, "/d/b", "/e/b"}});
    p.mark(1, 4);
    std::string panel;
    p.screen.acts[p.screen.yields + 2] = [&] { panel = p.form.StatusBar1.panel(5); };
    p.run_recycle();
    EXPECT_EQ(panel, "删除分析:1");
}

TEST(Recycle, InTheDifferentFilesViewTakesTheMarkedFile) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}});
    p.files.add_file("/x/alone", "123");
    p.files.add_file("/prog/不相同文件.txt", "/x/alone\r\n");
    p.form.run("Picture11_Click");
    p.double_click(1, 4);
    p.run_recycle();
    EXPECT_EQ(p.recycled, texts{"/x/alone"});
    EXPECT_EQ(p.last_message(), "放入回收站:1 个文件\r\n 释放空间: 3");
}

TEST(Direct, AsksOnlyWhileTheOptionIsOnAndDeletesAtOnce) {
    deleting p;
    p.show_files({{10, "/d/a", "/e/a"}, {5, "/d/b", "/e/b"}});
    p.double_click(1, 4);
    p.run_direct();
    EXPECT_EQ(p.files.removed, texts{"/e/a"});
    EXPECT_TRUE(p.recycled.empty());
    EXPECT_EQ(p.last_message(), "已删除:1 个文件\r\n 释放空间: 10");
    EXPECT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.state.same_count, 1);
    EXPECT_EQ(p.stored_lines("相同文件.txt"),
              (texts{"内容相同文件清单            ", " 1 ", "5", "/d/b", "/e/b"}));
    p.state.delete_prompt_on = 1;
    p.double_click(2, 3);
    p.run_direct({no});
    EXPECT_EQ(p.screen.messages[1].text, "将所选定的文件放入回收站吗?");
    EXPECT_EQ(p.files.removed.size(), 1u);
    EXPECT_TRUE(p.form.pictures[5]->enabled);
    p.run_direct({yes});
    EXPECT_EQ(p.files.removed, (texts{"/e/a", "/d/b"}));
}

TEST(Direct, WhatChangesRightBeforeItsRemovalStaysWithItsMark) {
    deleting p;
    p.show_files({{10, "/d/a", "/e/a"}, {5, "/d/b", "/e/b"}});
    p.double_click(1, 4);
    p.double_click(2, 4);
    p.files.before_removal = [&](const std::string& path) {
        if (path == "/e/a") p.files.add_file(path, "xxxxxxxxxx").changed_ns += 1;
    };
    p.run_direct();
    EXPECT_EQ(p.files.removed, texts{"/e/b"});
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_EQ(p.list().cell(1, 4), "/e/a");
    EXPECT_EQ(p.list().colour(1, 4), cell_colour::mark_red);
}

TEST(Direct, IsTheRoadOfTheAnswerNo) {
    deleting p;
    p.show_files({{10, "/d/a", "/e/a"}});
    p.double_click(1, 4);
    p.run_recycle({no});
    EXPECT_EQ(p.files.removed, texts{"/e/a"});
    EXPECT_TRUE(p.form.pictures[5]->enabled) << "begun twice, ended once";
}

TEST(Direct, RefusesOtherModes) {
    deleting p;
    p.show_files({{10, "/d/a", "/e/a"}});
    p.mark(1, 4);
    for (const int mode : {1, 2, 3, 4}) {
        p.state.list_mode = static_cast<std::int16_t>(mode);
        p.run_direct();
        EXPECT_EQ(p.last_message(), "非相同文件状态,不能删除");
    }
    EXPECT_TRUE(p.files.removed.empty());
    p.state.list_mode = 2;
    p.run_recycle({no});
    EXPECT_EQ(p.last_message(), "非相同文件状态,不能删除");
    EXPECT_TRUE(p.form.pictures[5]->enabled);
}

TEST(Direct, AFailureTurnsBlueAndTheScanGoesOn) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}, {2, "/d/b", "/e/b"}});
    p.files.add_file("/e/a", "x").keeps_itself = true;
    p.mark(1, 4);
    p.mark(2, 4);
    p.run_direct({yes});
    EXPECT_EQ(p.files.removed, texts{"/e/b"});
    EXPECT_EQ(p.list().colour(1, 4), mark_blue);
    EXPECT_EQ(p.last_message(),
              "已删除:1 个文件\r\n 释放空间: 2\r\n无法删除:1 个文件 (隐藏或只读文件)\r\n"
              "如需删除隐藏或只读文件,请按 yes,并重新运行<删除内容相同文件>");
    EXPECT_EQ(p.state.force_protected, -1);
    p.run_direct({no});
    EXPECT_EQ(p.state.force_protected, 0) << "cleared in every case";
}

TEST(NumberPanel, OpensAndClosesAndDeletesNothing) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}});
    p.form.listleft.place.top = 500;
    p.form.pictures[5]->place = {1000, 0, 600, 400};
    p.form.Frame1.place = {0, 0, 200, 100};
    p.form.run("按序号删除_m");
    EXPECT_TRUE(p.form.Frame1.visible);
    EXPECT_EQ(p.form.Frame1.place.top, 600);
    EXPECT_EQ(p.form.Frame1.place.left, 1200);
    EXPECT_EQ(p.form.StatusBar1.panel(7), "按序号删除");
    EXPECT_FALSE(p.form.has_handler("Command7_Click"));
    p.form.run("按序号删除_m");
    EXPECT_FALSE(p.form.Frame1.visible);
    EXPECT_EQ(p.form.StatusBar1.panel(7), "帮助");
    p.form.run("按序号删除_m");
    p.form.run("Command26_Click");
    EXPECT_FALSE(p.form.Frame1.visible);
    EXPECT_TRUE(p.recycled.empty() && p.files.removed.empty());
}

TEST(Delete, OnAHiddenListIsRefusedAndDoesNotShowIt) {
    for (const char* road : {"Picture5_Click", "Command45_Click"}) {
        deleting p;
        p.show_files({{2, "/d/a", "/e/a"}});
        p.mark(1, 4);
        p.list().visible = false;
        p.form.RichTextBox2.visible = true;
        p.screen.answers = {box_answer::yes, box_answer::yes};
        p.form.run(road);
        EXPECT_TRUE(p.files.has("/e/a"));
        EXPECT_FALSE(p.list().visible);
        EXPECT_TRUE(p.form.RichTextBox2.visible);
        ASSERT_EQ(p.screen.messages.size(), 1u);
        EXPECT_EQ(p.last_message(), "列表没有显示,请先显示结果");
        EXPECT_FALSE(p.state.tasks_locked);
    }
}

TEST(Delete, UnderAFilterKeepsTheOtherPairsInTheStore) {
    deleting p;
    p.show_files({{2, "/d/a.x", "/e/a.x"}, {3, "/d/b.y", "/e/b.y"}});
    p.screen.texts = {"x"};
    p.form.run("only_disp");
    p.mark(1, 4);
    p.run_recycle();
    EXPECT_EQ(p.recycled, std::vector<std::string>{"/e/a.x"});
    EXPECT_EQ(p.stored_lines("相同文件.txt"),
              (std::vector<std::string>{"内容相同文件清单            ", " 1 ", "3", "/d/b.y", "/e/b.y"}));
    p.form.run("result_refresh");
    EXPECT_EQ(p.cells(3), std::vector<std::string>{"/d/b.y"});
}

}  // namespace
}  // namespace corvane
