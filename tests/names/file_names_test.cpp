#include <gtest/gtest.h>

#include "tests/names/name_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(SameFileName, FilesOfOneNameFormAStarAroundTheFirstInEitherCase) {
    name_program p({"/a/x.txt", "/b/X.TXT", "/c/sub/x.Txt", "/z/zz"});
    p.check("mnu_same_filename", {"/a", "/b", "/c", "/z"});
    EXPECT_EQ(p.rows(), (name_pairs{{"/a/x.txt", "/b/X.TXT"}, {"/a/x.txt", "/c/sub/x.Txt"}}));
    EXPECT_EQ(p.cells(1), (texts{"1", "2"}));
    EXPECT_EQ(p.cells(2), (texts{"x.txt", "x.txt"})) << "the name of the first file";
    EXPECT_EQ(p.colours(3), (std::vector<std::uint32_t>{0, gray}));
    EXPECT_EQ(p.colours(4), (std::vector<std::uint32_t>{0, 0}));
    EXPECT_EQ(p.headers(), (texts{"", "序号", "同名文件名", "同名文件1", "同名文件2"}));
    EXPECT_EQ(p.state.list_mode, 3);
    EXPECT_EQ(p.list().tooltip,
              "双击鼠标，选中；Shift+鼠标，区域选择。双击序号栏，弹出相同文件名称[显示框].右键弹出菜单");
    EXPECT_TRUE(p.list().visible);
    EXPECT_EQ(p.files.total_opened(), p.files.opened["/prog/run_time_rem.txt"])
        << "no file of the list is opened";
}

TEST(SameFileName, TellsItsStateAndItsEnd) {
    name_program p({"/a/x", "/b/x", "/c/x", "/z/zz"});
    p.check("mnu_same_filename_Click", {"/a", "/b", "/c", "/z"});
    EXPECT_EQ(p.said(), (texts{"检查文件名相同完毕|已　检　查:4 个文件 \r\n相同_文件名有:2个  用时: 0:0:0"}));
    EXPECT_EQ(p.screen.messages.back().help_context, 1000);
    const status_bar& bar = p.form.StatusBar1;
    EXPECT_EQ(bar.panel(1), "文件数:4");
    EXPECT_EQ(bar.panel(3), "同名文件:");
    EXPECT_EQ(bar.panel(4), "2个文件");
    EXPECT_EQ(bar.panel(5), "");
    EXPECT_EQ(bar.panel(6), "0:0:0");
    EXPECT_EQ(bar.panel(7), "同名文件");
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
    EXPECT_EQ(p.form.pic_gressbar1.back_colour(), 0xFF8080);
    EXPECT_EQ(p.form.pic_gressbar1.total(), 2);
    EXPECT_EQ(p.form.pic_gressbar1.place.width, 11800) << "a margin of 100 at both sides";
    EXPECT_FALSE(p.form.Command28.visible);
    EXPECT_EQ(p.form.Command28.caption, "取消[查相同_文件名]");
    EXPECT_TRUE(p.form.pictures[3]->enabled);
    EXPECT_EQ(p.state.same_fresh_flag, 0);
    EXPECT_EQ(p.state.result_count, 2);
}

TEST(SameFileName, AListOfOneFileIsNotScanned) {
    name_program p({"/a/x"});
    p.check("mnu_same_filename", {"/a"});
    EXPECT_EQ(p.said(), (texts{"提示|没有相同_文件名",
                               "检查文件名相同完毕|已　检　查:1 个文件 \r\n相同_文件名有:0个  用时: 0:0:0"}));
    EXPECT_EQ(p.screen.messages.front().help_context, 1000);
    EXPECT_EQ(p.state.same_fresh_flag, 0);
    EXPECT_EQ(p.list().row_count(), 0);
    EXPECT_TRUE(p.form.pictures[3]->enabled);
}

TEST(SameFileName, TheLastKeyInOrderIsNeverLookedAt) {
    name_program two({"/a/x", "/b/x"});
    two.check("mnu_same_filename", {"/a", "/b"});
    EXPECT_EQ(two.state.result_count, 0) << "its one pair is lost";
    name_program three({"/a/x", "/b/x", "/c/x", "/c/b"});
    three.check("mnu_same_filename", {"/a", "/b", "/c"});
    EXPECT_EQ(three.rows(), (name_pairs{{"/a/x", "/b/x"}})) << "the third sorts last of all";
}

TEST(SameFileName, TheListInMemoryIsUsedOnceAndThenTheDiskIsWalkedAgain) {
    name_program p({"/a/x", "/b/x", "/z/zz"});
    p.search({"/a", "/b", "/z"});
    p.files.add_file("/a/y");
    p.files.add_file("/b/y");
    p.form.run("mnu_same_filename");
    EXPECT_EQ(p.rows(), (name_pairs{{"/a/x", "/b/x"}})) << "as the search left it";
    EXPECT_EQ(p.state.file_list_loaded, 0);
    p.form.run("mnu_same_filename");
    EXPECT_EQ(p.rows(), (name_pairs{{"/a/x", "/b/x"}, {"/a/y", "/b/y"}}));
}

TEST(SameFileName, AComparisonAfterwardsReadsTheStoredListAgain) {
    name_program p({"/a/x", "/b/x", "/z/zz"});
    p.files.add_file("/a/one", "equal");
    p.files.add_file("/z/two", "equal");
    p.check("mnu_same_filename", {"/a", "/b", "/z"});
    EXPECT_EQ(p.state.file_list.size(), 0) << "used up";
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.stored_pairs(), (texts{"0 /a/x /b/x", "0 /a/x /z/zz", "5 /a/one /z/two"}));
}

TEST(SameFileName, WithoutASelectionNothingOldIsTakenForTheList) {
    name_program p({"/a/x", "/b/x", "/z/zz"});
    p.check("mnu_same_filename", {"/a", "/b", "/z"});
    p.screen.messages.clear();
    p.check("mnu_same_filename", {});
    EXPECT_EQ(p.said(), (texts{"提示|请选择要清理的目录"}));
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(SameFileName, ASearchWithoutAFileEndsTheTask) {
    name_program p;
    p.files.add_directory("/empty");
    p.check("mnu_same_filename", {"/empty"});
    EXPECT_EQ(p.screen.messages.size(), 1u) << "the words of the search";
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(SameFileName, AnEmptyListInMemoryStartsTheSelection) {
    name_program p;
    p.state.file_list_loaded = -1;
    p.form.run("mnu_same_filename");
    EXPECT_EQ(p.said(), (texts{"提示|没有文件，请重新选择目录"}));
    EXPECT_EQ(p.screen.messages.front().help_context, 1009);
    EXPECT_TRUE(p.screen.messages.front().help_button);
    EXPECT_TRUE(p.corvane.find_form("目录选择")->visible);
}

TEST(SameFileName, TheCancelButtonHasNoEffect) {
    name_program p({"/a/x", "/b/x", "/c/x", "/z/zz"});
    p.search({"/a", "/b", "/c", "/z"});
    for (std::int64_t number = 1; number < 100; ++number)
        p.screen.acts[p.screen.yields + number] = [&] { p.form.run("Command28_Click"); };
    p.form.run("mnu_same_filename");
    EXPECT_EQ(p.state.result_count, 2);
    EXPECT_EQ(p.list().row_count(), 2);
}

TEST(SameFileName, NoOtherTaskStartsMeanwhile) {
    name_program p({"/a/x", "/b/x", "/z/zz"});
    p.search({"/a", "/b", "/z"});
    p.screen.acts[p.screen.yields + 2] = [&] {  // while the rows are filled in
        EXPECT_FALSE(p.form.pictures[2]->enabled);
        p.form.run("search_repeat_dir_name");
    };
    p.form.run("mnu_same_filename");
    EXPECT_EQ(p.state.list_mode, 3);
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(SameFileName, ClosingTheProgramEndsTheFilling) {
    name_program p({"/a/x", "/b/x", "/c/x", "/z/zz"});
    p.search({"/a", "/b", "/c", "/z"});
    p.screen.acts[p.screen.yields + 3] = [&] { p.corvane.close(); };
    p.form.run("mnu_same_filename");
    EXPECT_EQ(p.list().row_count(), 1);
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(SameFileName, ClosingTheProgramBeforeTheScanSaysNothingMore) {
    name_program p({"/a/x"});
    p.search({"/a"});
    p.screen.acts[p.screen.yields + 1] = [&] { p.corvane.close(); };
    p.form.run("mnu_same_filename");
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(SameFileName, HelpModeOpensTheTopicInPlaceOfTheTask) {
    name_program p({"/a/x"});
    p.form.mouse_pointer = help_pointer;
    p.form.run("mnu_same_filename");
    p.form.run("check_same_1dir_filename");
    p.form.run("search_repeat_dir_name");
    EXPECT_EQ(p.desktop.calls, (texts{"help aux12_Corvane帮助_Link.htm", "help aux12_Corvane帮助_Link.htm",
                                      "help aux38_Corvane帮助_Link.htm"}));
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(SameFileName, TheRunIsRecordedWithTheNumberOfFiles) {
    name_program p({"/a/x", "/b/x", "/z/zz"});
    p.search({"/a", "/b", "/z"});
    p.screen.seconds_per_yield = 2;  // one yield before the scan, one for the row
    p.form.run("mnu_same_filename");
    EXPECT_EQ(p.stored_lines("run_time_rem.txt"), (texts{"3,4"}));
    EXPECT_EQ(p.form.StatusBar1.panel(6), "0:0:4");
}

TEST(SameFileName, TheRecordsOfEarlierRunsStay) {
    name_program p({"/a/x", "/b/x", "/z/zz"});
    p.files.add_file("/prog/run_time_rem.txt", "1000,10\r\n3000,90\r\n");
    p.check("mnu_same_filename", {"/a", "/b", "/z"});
    EXPECT_EQ(p.stored_lines("run_time_rem.txt"), (texts{"1000,10", "3000,90"}));
}

TEST(SameFileName, WithoutAHitTheStoredResultDoesNotPassAsFresh) {
    name_program p({"/a/x", "/b/y", "/z/zz"});
    p.files.add_file("/prog/相同文件.txt", "内容相同文件清单\r\n 1 \r\n 1 \r\n/gone/a\r\n/gone/b\r\n");
    p.check("mnu_same_filename", {"/a", "/b", "/z"});
    EXPECT_EQ(p.state.result_count, 0);
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.list().row_count(), 0) << "files that are gone are left out";
}

TEST(SameFileName, DropsTheFilesWithoutATwinFromMemory) {
    name_program p({"/a/x", "/b/x", "/z/zz"});
    p.state.different_count = 7;
    p.check("mnu_same_filename", {"/a", "/b", "/z"});
    EXPECT_EQ(p.state.different_count, 0);
}

TEST(SameFileName, StopsAtTheLimitOfPairsAndSaysSo) {
    name_program p({"/a/x", "/b/x", "/c/x", "/d/x", "/z/zz"});
    p.state.limits.result_rows = 2;
    p.check("mnu_same_filename", {"/a", "/b", "/c", "/d", "/z"});
    EXPECT_EQ(p.rows(), (name_pairs{{"/a/x", "/b/x"}, {"/a/x", "/c/x"}}));
    EXPECT_EQ(p.screen.messages.size(), 2u);
    EXPECT_EQ(p.last_message(), "同名的太多，只显示前 2 条。");
    EXPECT_FALSE(p.screen.messages.back().failure);
}

TEST(SameFileName, ExactlyAsManyPairsAsTheLimitAreNoReasonForAWord) {
    name_program p({"/a/x", "/b/x", "/c/x", "/z/zz"});
    p.state.limits.result_rows = 2;
    p.check("mnu_same_filename", {"/a", "/b", "/c", "/z"});
    EXPECT_EQ(p.state.result_count, 2);
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(SameDirectoryAndFileName, NeedsTheParentDirectoryToo) {
    name_program p({"/1/a/x.txt", "/2/A/X.TXT", "/2/b/x.txt", "/2/z/zz"});
    p.check("check_same_1dir_filename", {"/1", "/2"});
    EXPECT_EQ(p.rows(), (name_pairs{{"/1/a/x.txt", "/2/A/X.TXT"}}));
    EXPECT_EQ(p.cells(2), (texts{"x.txt"})) << "the bare name";
    EXPECT_EQ(p.said(), (texts{"检查文件名相同完毕|已　检　查:4 个文件 \r\n相同_文件名有:1个  用时: 0:0:0"}));
    EXPECT_EQ(p.form.Command28.caption, "取消[查相同_文件名]");
    EXPECT_EQ(p.state.list_mode, 3);
}

TEST(SameDirectoryAndFileName, FilesOfTwoRootsDoNotMatch) {
    test_program p('\\');
    for (const char* path : {"D:\\x.txt", "E:\\x.txt", "D:\\a\\y", "E:\\A\\Y", "E:\\z\\zz"})
        p.files.add_file(path);
    p.select({"D:\\", "E:\\"});
    p.form.run("check_same_1dir_filename");
    EXPECT_EQ(p.state.result_count, 1);
    EXPECT_EQ(p.form.ListView1.cell(1, 2), "y");
    EXPECT_EQ(p.form.ListView1.cell(1, 4), "E:\\A\\Y");
}

}  // namespace
}  // namespace corvane
