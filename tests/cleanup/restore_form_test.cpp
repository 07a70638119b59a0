// The window of the runs to the recycle bin: what it lists, what it restores, and the rows that come back.
#include "cleanup/restore_form.h"

#include <gtest/gtest.h>

#include "tests/cleanup/restoring.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

// A star of three and a pair, of which the second columns have gone.
struct restore_window_test : testing::Test {
    restore_window_test() {
        p.show_files({{3, "/d/a", "/e/a"}, {3, "/d/a", "/f/a"}, {5, "/g/b", "/h/b"}});
        p.delete_cells({{1, 4}, {2, 4}, {3, 4}});
        EXPECT_EQ(p.recycled.size(), 3u);
        p.screen.messages.clear();
    }
    restoring_program p;
    restore_form& window = p.window();
};

TEST_F(restore_window_test, ItListsRunsAndTheFilesOfTheNewest) {
    p.form.run("restore_deleted");
    ASSERT_TRUE(window.visible);
    EXPECT_EQ(p.rows_of(window.List1), texts{"2026-03-04 05:06:07    3 个, 11 字节"});
    EXPECT_EQ(p.rows_of(window.List2),
              (texts{"在回收站    3    /e/a", "在回收站    3    /f/a", "在回收站    5    /h/b"}));
    EXPECT_EQ(window.Label1.caption, "在回收站 3 个, 已在原处或已恢复 0 个, 不能恢复 0 个");
    EXPECT_TRUE(window.Command2.enabled);
}

TEST_F(restore_window_test, AWholeRunComesBackWithItsRows) {
    p.form.run("restore_deleted");
    p.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(p.last_message(), "已恢复:3 个");
    for (const char* path : {"/e/a", "/f/a", "/h/b"}) EXPECT_TRUE(p.files.has(path)) << path;
    EXPECT_EQ(p.listed_pairs(), (texts{"/d/a /e/a", "/d/a /f/a", "/g/b /h/b"}));
    EXPECT_EQ(p.rows_of(window.List2)[0], "已恢复    3    /e/a");
    EXPECT_FALSE(window.Command2.enabled);
    // Once more there is nothing.
    p.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(p.last_message(), "没有选中可以恢复的文件。");
    EXPECT_EQ(p.bin.restores, 3u);
}

TEST_F(restore_window_test, CheckedFilesAreTheSelection) {
    p.form.run("restore_deleted");
    window.List2.check(0, true);
    window.List2.check(2, true);
    window.List2.select_only(1);
    p.form.run("restore_runs.Command1_Click");
    EXPECT_EQ(p.last_message(), "已恢复:2 个");
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_FALSE(p.files.has("/f/a"));
    EXPECT_TRUE(p.files.has("/h/b"));
    EXPECT_EQ(p.listed_pairs(), (texts{"/d/a /e/a", "/g/b /h/b"}));
}

TEST_F(restore_window_test, ADoubleClickRestoresOneFile) {
    p.form.run("restore_deleted");
    window.List2.select_only(1);
    p.form.run("restore_runs.List2_DblClick");
    EXPECT_TRUE(p.files.has("/f/a"));
    EXPECT_FALSE(p.files.has("/e/a"));
    EXPECT_EQ(p.listed_pairs(), texts{"/d/a /f/a"});
    // The same for what is selected where nothing is checked.
    window.List2.select_only(0);
    p.form.run("restore_runs.Command1_Click");
    EXPECT_TRUE(p.files.has("/e/a"));
}

TEST_F(restore_window_test, WhatStandsThereKeepsItsNameAndTheRowHasTheNewOne) {
    p.files.add_file("/e/a", "new");
    p.form.run("restore_deleted");
    window.List2.select_only(0);
    p.form.run("restore_runs.Command1_Click");
    EXPECT_EQ(p.last_message(), "已恢复:1 个\r\n原处已有同名的,改名恢复 1 个: /e/a (恢复)");
    EXPECT_EQ(p.files.content_of("/e/a"), "new");
    EXPECT_EQ(p.listed_pairs(), texts{"/d/a /e/a (恢复)"});
    EXPECT_EQ(p.rows_of(window.List2)[0], "已恢复    3    /e/a  →  /e/a (恢复)");
    // So it is known after another start of the window, too.
    p.form.run("restore_deleted");
    EXPECT_EQ(p.rows_of(window.List2)[0], "已恢复    3    /e/a  →  /e/a (恢复)");
}

TEST_F(restore_window_test, WhatTheUserHasEmptiedIsShownAsGone) {
    p.bin.empty();
    p.form.run("restore_deleted");
    EXPECT_EQ(p.rows_of(window.List2)[1], "已清空    3    /f/a");
    EXPECT_FALSE(window.Command1.enabled);
    EXPECT_EQ(window.Label1.caption, "在回收站 0 个, 已在原处或已恢复 0 个, 不能恢复 3 个");
    // Asked for all the same, by a script.
    window.List2.select_only(1);
    p.form.run("restore_runs.Command1_Click");
    EXPECT_EQ(p.last_message(), "已恢复:0 个\r\n没有恢复 1 个: /f/a (已不在回收站)");
    EXPECT_EQ(p.listed_pairs().size(), 3u) << "the list is as it was";
}

TEST_F(restore_window_test, EmptiedBetweenLookAndActItIsSaid) {
    p.form.run("restore_deleted");
    p.bin.empty();
    p.form.run("restore_runs.Command2_Click");
    EXPECT_NE(p.last_message().find("没有恢复 3 个: /e/a (已不在回收站)"), std::string::npos);
    EXPECT_TRUE(p.screen.messages.back().failure);
}

TEST_F(restore_window_test, AVolumeThatIsNotMountedIsShown) {
    p.bin.mounted = false;
    p.form.run("restore_deleted");
    EXPECT_EQ(p.rows_of(window.List2)[0], "卷不在    3    /e/a");
}

TEST_F(restore_window_test, EachObstacleHasItsWords) {
    const std::pair<obstacle, const char*> cases[] = {
        {obstacle::other, "回收站里的已不是它"},
        {obstacle::out_of_reach, "回收站所在的卷不在"},
        {obstacle::strange_place, "记录指向回收站以外"},
        {obstacle::strange_note, "回收站自己的记录与此不符"},
        {obstacle::link_in_way, "原来的目录现在是指向别处的链接"},
        {obstacle::file_in_way, "原来的目录现在是文件"},
        {obstacle::other_device, "原来的位置现在在另一设备上"},
        {obstacle::no_name, "没有空闲的名称"},
        {obstacle::system, "the system's words"}};
    p.form.run("restore_deleted");
    for (const auto& [why, words] : cases) {
        p.bin.refusals["/e/a"] = why;
        window.List2.select_only(0);
        p.form.run("restore_runs.Command1_Click");
        EXPECT_EQ(p.last_message(), std::string("已恢复:0 个\r\n没有恢复 1 个: /e/a (") + words + ")");
    }
    // One that is refused keeps none of the others.
    p.form.run("restore_runs.Command2_Click");
    EXPECT_TRUE(p.files.has("/h/b"));
}

TEST_F(restore_window_test, ARowComesBackOnceAndOnlyWithBothFiles) {
    p.files.erase("/d/a");
    p.form.run("restore_deleted");
    p.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(p.listed_pairs(), texts{"/g/b /h/b"}) << "of the others a file is missing";
    EXPECT_EQ(p.stored_pairs(), texts{"5 /g/b /h/b"});
    // The row stands already.
    p.delete_cells({{1, 4}});
    p.files.add_file(p.program_dir + "相同文件.txt",
                     "内容相同文件清单            \r\n 1 \r\n 5 \r\n/g/b\r\n/h/b\r\n");
    p.form.run("restore_deleted");
    p.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(p.listed_pairs(), texts{"/g/b /h/b"});
}

TEST_F(restore_window_test, AFileThatHasChangedMeanwhileMakesNoRow) {
    p.files.add_file("/d/a", "longer than three");
    p.form.run("restore_deleted");
    p.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(p.listed_pairs(), texts{"/g/b /h/b"});
}

TEST_F(restore_window_test, NotesThatBreakOffWhenReadStayAsTheyAre) {
    p.form.run("restore_deleted");
    const std::string path = window.List1.rows()[0].tooltip;
    const std::string notes = p.files.content_of(path);
    p.files.add_file(path, notes).read_failure = 40;
    EXPECT_FALSE(add_to_recycled_run(p.files, path, {"R\t1\t/e/a\t."}).ok);
    p.files.add_file(path, p.files.content_of(path));
    EXPECT_EQ(p.files.content_of(path), notes);
}

TEST_F(restore_window_test, ARunningTaskRefuses) {
    p.form.run("restore_deleted");
    p.screen.acts[p.screen.yields + 1] = [&] {
        p.form.run("restore_runs.Command2_Click");
        p.form.run("restore_deleted");
    };
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.bin.restores, 0u);
}

TEST_F(restore_window_test, ClosedWhileItRestoresItGoesOnAndForgets) {
    p.form.run("restore_deleted");
    p.screen.acts[p.screen.yields + 2] = [&] { p.form.run("restore_runs.Form_Unload"); };
    p.form.run("restore_runs.Command2_Click");
    EXPECT_FALSE(window.visible);
    for (const char* path : {"/e/a", "/f/a", "/h/b"}) EXPECT_TRUE(p.files.has(path)) << path;
    EXPECT_EQ(window.List2.row_count(), 0);
    EXPECT_EQ(p.listed_pairs().size(), 3u);
}

TEST_F(restore_window_test, AProgramThatClosesNotesWhatIsBack) {
    p.form.run("restore_deleted");
    p.screen.acts[p.screen.yields + 2] = [&] { p.form.run("exit_sub"); };
    p.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(p.bin.restores, 1u);
    const recycled_run run = read_recycled_run(p.files, p.note_path(1));
    EXPECT_EQ(run.files[0].restored_path, "/e/a");
    EXPECT_TRUE(run.files[1].restored_path.empty());
    EXPECT_EQ(p.stored_pairs(), texts{"3 /d/a /e/a"});
}

TEST_F(restore_window_test, FilesOfARunThatWasCutAreLookedForInTheBin) {
    const std::string notes = p.files.content_of(p.note_path(1));
    p.files.add_file(p.note_path(1), notes.substr(0, notes.find("E\t2")));
    p.bin.unfound.insert("/h/b");
    p.form.run("restore_deleted");
    EXPECT_EQ(p.rows_of(window.List1), texts{"2026-03-04 05:06:07    3 个, 11 字节  (记录不完整)"});
    EXPECT_EQ(p.rows_of(window.List2),
              (texts{"在回收站    3    /e/a", "在回收站    3    /f/a", "没有找到    5    /h/b"}));
    p.form.run("restore_runs.Command2_Click");
    EXPECT_TRUE(p.files.has("/f/a"));
    EXPECT_FALSE(p.files.has("/h/b"));
    EXPECT_EQ(read_recycled_run(p.files, p.note_path(1)).files[1].entry.name, "entry2") << "noted for later";
}

TEST_F(restore_window_test, WhatNeverWentIsInItsPlace) {
    const std::string notes = p.files.content_of(p.note_path(1));
    p.files.add_file("/i/c", "x");
    const recycled_item item = *p.bin.look("/i/c");
    p.files.add_file(p.note_path(1), notes.substr(0, notes.find("Z\t")) + "F\tf\t1\t" +
                                         std::to_string(item.identity.index) + "\t1\t" +
                                         std::to_string(item.modified_ns) + "\t/i\t/i/c\t.\r\n");
    p.form.run("restore_deleted");
    EXPECT_EQ(p.rows_of(window.List2).back(), "在原处    1    /i/c");
    window.List2.select_only(3);
    p.form.run("restore_runs.Command1_Click");
    EXPECT_EQ(p.last_message(), "没有选中可以恢复的文件。");
}

TEST_F(restore_window_test, NotesOfAnotherVersionAreNamedAndLeftAlone) {
    p.files.add_file(p.note_path(2), "Corvane recycled 9\r\nwho knows\r\n");
    p.form.run("restore_deleted");
    ASSERT_EQ(window.List1.row_count(), 2);
    EXPECT_EQ(window.List1.rows()[0].text, p.note_path(2) + "  不认识的删除记录");
    EXPECT_EQ(window.List2.row_count(), 0);
    p.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(p.files.content_of(p.note_path(2)), "Corvane recycled 9\r\nwho knows\r\n");
}

TEST_F(restore_window_test, NotesThatCannotBeWrittenAreSaidAndTheFileIsBack) {
    p.form.run("restore_deleted");
    p.files.write_failure_path = p.note_path(1);
    window.List2.select_only(0);
    p.form.run("restore_runs.Command1_Click");
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_NE(p.last_message().find("disk full"), std::string::npos);
    EXPECT_EQ(p.listed_pairs(), texts{"/d/a /e/a"});
    // The disk tells what the notes do not.
    p.files.write_failure_path.clear();
    p.form.run("restore_deleted");
    EXPECT_EQ(p.rows_of(window.List2)[0], "在原处    3    /e/a");
}

TEST_F(restore_window_test, AStoreThatCannotBeWrittenKeepsItsRows) {
    p.form.run("restore_deleted");
    p.files.write_failure_path = p.program_dir + "相同文件.txt";
    const std::string before = p.files.content_of(p.program_dir + "相同文件.txt");
    p.form.run("restore_runs.Command2_Click");
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_NE(p.last_message().find("没有写成"), std::string::npos);
    EXPECT_EQ(p.files.content_of(p.program_dir + "相同文件.txt"), before);
}

TEST_F(restore_window_test, ItsPlaceIsRemembered) {
    p.form.run("restore_deleted");
    window.place = {-30, 45, 9000, 6000};
    p.form.run("restore_runs.Command4_Click");
    EXPECT_EQ(p.state.remembered.value("place.restore_runs"), "-30 45 9000 6000");
    window.place = {};
    p.form.run("restore_deleted");
    EXPECT_EQ(window.place, (rectangle{-30, 45, 9000, 6000}));
    for (const char* wrong : {"", "1 2 3", "1 2 3 4 5", "1 2 0 4", "x 2 -3 4", "1 2 99999999999 4"}) {
        window.place = {};
        p.state.remembered.set("place.restore_runs", wrong);
        p.form.run("restore_deleted");
        EXPECT_EQ(window.place, rectangle()) << wrong;
    }
}

TEST(RestoreWindow, WithoutABinOrARunItSaysSo) {
    restoring_program p;
    p.form.run("restore_deleted");
    EXPECT_EQ(p.last_message(), "没有放入回收站的删除记录。");
    EXPECT_FALSE(p.window().visible);
    p.form.outside.bin = nullptr;
    p.form.run("restore_deleted");
    EXPECT_EQ(p.last_message(), "此系统不能从回收站恢复。");
    EXPECT_FALSE(p.window().visible);
}

TEST(RestoreWindow, ActsOfAClosedWindowDoNothing) {
    restoring_program p;
    for (const char* act :
         {"List1_Click", "List2_DblClick", "Command1_Click", "Command2_Click", "Form_Unload"})
        p.form.run(std::string("restore_runs.") + act);
    EXPECT_FALSE(p.window().visible);
    EXPECT_EQ(p.bin.restores, 0u);
}

}  // namespace
}  // namespace corvane
