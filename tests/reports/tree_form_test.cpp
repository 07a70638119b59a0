// The window of the tree: what it shows when it opens, suffixes, days, bounds, its place.
#include "tests/reports/opened_tree.h"

namespace corvane {
namespace {

TEST(TreeForm, ItsWordsAndHelpContextsAreThoseStated) {
    opened_tree p;
    EXPECT_EQ(p.window.name(), "tree_dir");
    EXPECT_EQ(p.window.caption, "树状目录输出");
    texts captions;
    for (const char* name : {"Check1", "Check2", "Check3", "Check4", "Option1(0)", "Option1(1)", "Command1",
                             "Command2", "Command3", "Command4"})
        captions.push_back(p.window.find(name)->caption);
    EXPECT_EQ(captions, (texts{"长度", "日期", "正常", "隐含", "TXT", "Excel", "输出", "放弃", "帮助 F1",
                               "查找全部后缀"}));
    EXPECT_EQ(p.window.texts[5]->tooltip, "双击,打开日期选择表,或直接修改");
    EXPECT_EQ(p.window.texts[7]->tooltip, "双击,打开选择表");
    EXPECT_EQ(p.window.ListView1.tooltip, "双击鼠标，选中.点击标题,排序");
    EXPECT_EQ(p.window.help_context, 1050);
    const std::vector<std::pair<const char*, int>> contexts = {
        {"Text1", 1051},  {"Check1", 1051}, {"Check2", 1051}, {"Text3", 1053},
        {"Text4", 1053},  {"Text5", 1054},  {"Text6", 1054},  {"Check3", 1055},
        {"Check4", 1055}, {"Text7", 1056},  {"Text8", 1056},  {"Option1(0)", 1057}};
    for (const auto& [name, context] : contexts)
        EXPECT_EQ(p.window.find(name)->help_context, context) << name;
    const auto& columns = p.window.ListView1.columns();
    EXPECT_EQ(columns[0].header + "|" + columns[1].header + "|" + columns[2].header, "|后缀|数量");
    EXPECT_EQ(std::vector<int>({columns[0].width, columns[1].width, columns[2].width}),
              std::vector<int>({4, 900, 700}));
}

TEST(TreeForm, OpeningFillsTheControlsFromTheSettings) {
    opened_tree p;
    p.list_files({"/a"});
    p.state.tree_levels = 3;
    p.state.tree_min_kb = 7;
    p.state.tree_max_kb = 9;
    p.state.tree_date_from = 46085;  // 2026-03-04
    p.state.tree_only_types = "jpg";
    p.state.tree_not_types = "gif";
    p.state.tree_format = p.state.tree_length_filter = p.state.tree_show_hidden = 1;
    p.open();
    EXPECT_TRUE(p.window.visible);
    EXPECT_EQ((texts{p.text(1), p.text(2), p.text(3), p.text(4), p.text(5), p.text(6), p.text(7), p.text(8)}),
              (texts{"3", "", "7", "9", "2026-03-04", "0:00:00", "jpg", "gif"}));
    EXPECT_TRUE(p.window.texts[3]->enabled && p.window.texts[4]->enabled);
    EXPECT_FALSE(p.window.texts[5]->enabled || p.window.texts[6]->enabled);
    EXPECT_EQ(p.window.checks[4]->value, 1);
    EXPECT_EQ(p.window.Option1[1]->value, 1);
    EXPECT_EQ(p.window.Option1[0]->value, 0);
    p.window.checks[6]->value = 1;
    p.run("Check6_Click");
    EXPECT_TRUE(p.window.texts[5]->enabled && p.window.texts[6]->enabled);
    p.window.checks[5]->value = 0;
    p.run("Check5_Click");
    EXPECT_FALSE(p.window.texts[3]->enabled || p.window.texts[4]->enabled);
}

TEST(TreeForm, ThePreviewShowsTheFirstHundredFilesByTheLevelsAlone) {
    opened_tree p;
    p.state.tree_levels = 9;
    p.state.tree_show_length = 1;
    p.state.tree_only_types = "none";
    texts paths = {"/a/b/c/d/five", "/a/b/c/four"};
    for (int i = 0; i < 200; ++i) paths.push_back("/z/" + std::to_string(1000 + i));
    p.list_files(paths);
    p.open();
    texts wanted = {"\\",    "   \\a", "      \\b", "         \\c", "            \\d", "            four",
                    "   \\z"};
    for (int i = 0; i < 98; ++i) wanted.push_back("      " + std::to_string(1000 + i));
    EXPECT_EQ(p.preview(), wanted);
    EXPECT_EQ(p.state.file_count, 202);
}

TEST(TreeForm, ACancelOfAnEarlierTaskDoesNotEmptyThePreview) {
    opened_tree p;
    p.state.tree_levels = 9;
    p.list_files({"/a/b"});
    p.form.run("Command28_Click");
    p.open();
    EXPECT_EQ(p.window.List1.row_count(), 3);  // the root, its directory, the file
}

TEST(TreeForm, WhatHasGoneIsNotInThePreviewAndStaysInTheList) {
    opened_tree p;
    p.state.tree_levels = 4;
    p.list({"/gone", "/z.zip*in*1A2B3C4D*7"});
    p.open();
    EXPECT_EQ(p.preview(), texts{});
    EXPECT_EQ(p.state.file_count, 2);
    EXPECT_TRUE(p.window.visible);
}

TEST(TreeForm, OpeningReadsTheStoredListWhereThereIsNone) {
    opened_tree p;
    p.state.tree_levels = 4;
    p.add("/a");
    p.store({"/a"});
    p.form.run("Command36_Click");
    EXPECT_EQ(p.state.file_count, 1);
    EXPECT_EQ(p.preview(), (texts{"\\", "   a"}));
}

TEST(TreeForm, AProgramThatEndsWhileTheListIsReadOpensNoWindow) {
    opened_tree p;
    p.store({"/a", "/b"});
    p.screen.acts[1] = [&] { p.form.run("exit_sub"); };
    p.open();
    EXPECT_FALSE(p.window.visible);
}

TEST(TreeForm, ADoubleClickOnADateShowsItsMonthAndASecondOneHidesIt) {
    opened_tree p;
    p.list_files({"/a"});
    p.open();
    p.window.texts[5]->text = "2025/12/1";
    p.run("Text5_DblClick");
    EXPECT_TRUE(p.window.MonthView1.visible);
    EXPECT_EQ(p.window.MonthView1.text, "2025-12-01");
    p.run("Text5_DblClick");
    EXPECT_FALSE(p.window.MonthView1.visible);
    // No date yet: today.
    p.run("Text6_DblClick");
    EXPECT_EQ(p.window.MonthView1.text, "2026-03-04");
}

TEST(TreeForm, ADayGoesIntoItsBoxAndTheOtherBoxGivesWay) {
    opened_tree p;
    p.list_files({"/a"});
    p.open();
    p.window.texts[5]->text = "2025-01-01";
    p.window.texts[6]->text = "2025-06-01";
    p.run("Text5_DblClick");
    p.window.MonthView1.text = "2025-03-01";
    p.run("MonthView1_DateClick");
    EXPECT_EQ(p.text(5) + " " + p.text(6), "2025-03-01 2025-06-01");
    p.window.MonthView1.text = "2025-09-01";
    p.run("MonthView1_DateClick");
    EXPECT_EQ(p.text(5) + " " + p.text(6), "2025-09-01 2025-09-01");
    p.run("Text6_DblClick");
    p.run("Text6_DblClick");
    p.window.MonthView1.text = "2024-02-29";
    p.run("MonthView1_DateClick");
    EXPECT_EQ(p.text(5) + " " + p.text(6), "2024-02-29 2024-02-29");
}

TEST(TreeForm, LengthsGiveWayToOneAnother) {
    opened_tree p;
    p.list_files({"/a"});
    p.open();
    p.type("Text4", "10");
    p.type("Text3", "10");
    EXPECT_EQ(p.text(4), "10");
    p.type("Text3", "11");
    EXPECT_EQ(p.text(4), "12");
    p.type("Text4", "5");
    EXPECT_EQ(p.text(3), "4");
    p.type("Text3", "2147483647");
    EXPECT_EQ(p.text(4), "2147483648");
}

TEST(TreeForm, AStoredCornerOffTheScreenIsMended) {
    const auto corner = [](int left, int top) {
        opened_tree p;
        p.list_files({"/a"});
        p.state.treeform_left = left;
        p.state.treeform_top = top;
        p.open();
        EXPECT_EQ(p.window.place.left, p.state.treeform_left);
        EXPECT_EQ(p.window.place.top, p.state.treeform_top);
        return std::pair(p.state.treeform_left, p.state.treeform_top);
    };
    // The screen is 15360 by 11520.
    EXPECT_EQ(corner(-5, 300), std::pair(0, 300));
    EXPECT_EQ(corner(300, -1), std::pair(300, 0));
    EXPECT_EQ(corner(15361, 11521), std::pair(7680, 5760));
    EXPECT_EQ(corner(15360, 11520), std::pair(15360, 11520));
}

TEST(TreeForm, ItsPlaceIsKeptByItsOwnClose) {
    opened_tree p;
    p.list_files({"/a"});
    p.state.treepos_width = 9000;
    p.state.treepos_height = 6000;
    p.state.treepos_left = 5;
    p.state.treeform_left = 700;
    p.open();
    EXPECT_EQ(p.window.place, (rectangle{700, 0, 9000, 6000}));
    p.window.place = {100, 200, 9000, 6000};
    p.run("Command2_Click");
    EXPECT_FALSE(p.window.visible);
    EXPECT_EQ(p.state.treeform_left, 100);
    EXPECT_EQ(p.state.treeform_top, 200);
    EXPECT_TRUE(p.window.List1.rows().empty());
    p.open();
    p.window.place = {300, 400, 9000, 6000};
    p.form.run("exit_sub");
    EXPECT_EQ(p.state.treeform_left, 300);
    EXPECT_EQ(p.state.treepos_left, 300);
}

TEST(TreeForm, AClosedWindowComesBackWithoutWhatWasNotStored) {
    opened_tree p;
    p.list_files({"/a"});
    p.open();
    p.window.texts[7]->text = "jpg";
    p.run("Command4_Click");
    p.run("Command2_Click");
    p.open();
    EXPECT_EQ(p.text(7), "");
    EXPECT_EQ(p.window.suffixes.suffix_total, 0);
    EXPECT_TRUE(p.window.List1.visible);
    EXPECT_FALSE(p.window.ListView1.visible);
}

TEST(TreeForm, HelpOpensItsTopic) {
    opened_tree p;
    p.list_files({"/a"});
    p.open();
    p.run("Command3_Click");
    EXPECT_EQ(p.desktop.calls, texts{"help aux50_Corvane帮助_Link.htm"});
    p.run("Command2_Click");
    p.form.mouse_pointer = help_pointer;
    p.open();
    EXPECT_EQ(p.desktop.calls.size(), 2u);
    EXPECT_FALSE(p.window.visible);
}

TEST(TreeForm, ItDoesNotOpenWhileATaskWorksOnTheList) {
    opened_tree p;
    p.list_files({"/a", "/b"});
    p.screen.acts[p.screen.yields + 1] = [&] { p.form.run("tree_select_m"); };
    p.form.run("Command33_Click");
    EXPECT_FALSE(p.window.visible);
}

}  // namespace
}  // namespace corvane
