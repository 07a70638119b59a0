// The text exports and the parameters of an export.
#include "tests/reports/report_program.h"

namespace corvane {
namespace {

constexpr char paths_file[] = "filelist_txt_.txt";

struct exports : report_program {
    using report_program::report_program;
    texts exported(const std::string& levels, const std::string& types) {
        form.Text3.text = levels;
        form.Text4.text = types;
        form.run("文件清单_M");
        return stored_lines(paths_file);
    }
    texts filtered(const std::string& levels, const std::string& types) {
        form.Text3.text = levels;
        form.Text4.text = types;
        form.Frame6.visible = true;
        form.run("Frame6_DblClick");
        form.run("filter_export_list");
        texts found;
        for (std::int32_t i = 1; i <= state.export_count; ++i) found.emplace_back(state.export_list[i]);
        return found;
    }
};

const texts some = {"/a.gif", "/d/a.txt", "/d/b.GIF", "/d/e/c.txt", "/d/e/d.txt", "/d/e/f/g.txt", "/d/none"};

TEST(ExportParams, TheMenuShowsThePanelAndADoubleClickStoresAndHidesIt) {
    exports p;
    EXPECT_FALSE(p.form.Frame6.visible);
    EXPECT_EQ(p.form.Frame6.caption, "清单导出选择");
    EXPECT_EQ(p.form.Frame6.tooltip, "双击退出");
    p.form.run("out_sele");
    EXPECT_TRUE(p.form.Frame6.visible);
    p.form.Text3.text = " 2.6x";
    p.form.Text4.text = "  gif/Ä ";
    p.form.run("Frame6_DblClick");
    EXPECT_FALSE(p.form.Frame6.visible);
    EXPECT_EQ(p.state.export_levels, 3);
    EXPECT_EQ(p.state.export_skip_types, "GIF/Ä");
}

TEST(ExportParams, AListedSuffixIsLeftOutInEitherCase) {
    exports p;
    p.list(some);
    EXPECT_EQ(p.filtered("0", "gif"),
              (texts{"/d/a.txt", "/d/e/c.txt", "/d/e/d.txt", "/d/e/f/g.txt", "/d/none"}));
}

TEST(ExportParams, ASuffixCountsAsListedWhereverItOccursInTheList) {
    exports p;
    p.list({"/d/a.if", "/d/b.gif", "/d/c.f/d", "/d/d.gi", "/d/e.gif2", "/d/f.", "/d/g"});
    // "F/D" is what stands behind the last dot of the third one, and it occurs in the list.
    EXPECT_EQ(p.filtered("0", "GIF/DLL"), (texts{"/d/e.gif2", "/d/g"}));
}

TEST(ExportParams, ADepthFoldsWhatLiesDeeperIntoOneDirectoryEach) {
    exports p;
    p.list(some);
    EXPECT_EQ(p.filtered("2", "gif"), (texts{"/d/a.txt", "/d/e/", "/d/none"}));
    EXPECT_EQ(p.filtered("3", "gif"), (texts{"/d/a.txt", "/d/e/c.txt", "/d/e/d.txt", "/d/e/f/", "/d/none"}));
    EXPECT_EQ(p.filtered("1", "txt"), (texts{"/a.gif", "/d/"}));
}

TEST(ExportParams, ADepthWithoutSuffixesDoesNothing) {
    exports p;
    p.list(some);
    EXPECT_EQ(p.filtered("1", ""), some);
    EXPECT_EQ(p.filtered("1", "  "), some);
    EXPECT_EQ(p.exported("2", ""), some);
}

TEST(ExportParams, AListedSuffixIsLeftOutBeforeItCouldFold) {
    exports p;
    p.list({"/d/e/f/a.gif", "/d/e/f/b.gif"});
    EXPECT_EQ(p.filtered("1", "gif"), texts{});
}

TEST(ExportParams, WhatStandsInsideAnArchiveIsNoDepthOfTheDisk) {
    exports p;
    p.list({"/d/z.zip*in/deep/a.txt*1A2B3C4D*77"});
    EXPECT_EQ(p.filtered("2", "gif"), (texts{"/d/z.zip*in/deep/a.txt*1A2B3C4D*77"}));
    EXPECT_EQ(p.filtered("1", "gif"), texts{"/d/"});
}

TEST(ExportParams, OnADiskWithDriveLettersBackslashesCount) {
    exports p('\\');
    p.list({"C:\\a.txt", "C:\\d\\b.txt", "C:\\d\\e\\c.txt"});
    EXPECT_EQ(p.filtered("1", "gif"), (texts{"C:\\a.txt", "C:\\d\\"}));
    EXPECT_EQ(p.filtered("2", "gif"), (texts{"C:\\a.txt", "C:\\d\\b.txt", "C:\\d\\e\\"}));
}

TEST(ExportText, WithoutSuffixesEveryFileHasItsLine) {
    exports p;
    p.list(some);
    EXPECT_EQ(p.exported("0", ""), some);
    EXPECT_EQ(p.desktop.calls, texts{"open /prog/filelist_txt_.txt"});
    EXPECT_EQ(p.form.StatusBar1.panel(7), "导出文本格式的文件清单");
    for (int panel = 1; panel <= 6; ++panel) EXPECT_EQ(p.form.StatusBar1.panel(panel), "");
}

TEST(ExportText, WithSuffixesAndDepthFoldsStayInTheFile) {
    exports p;
    p.list(some);
    EXPECT_EQ(p.exported("2", "gif"), (texts{"/d/a.txt", "/d/e/", "/d/none"}));
}

TEST(ExportText, WithSuffixesAndNoDepthItIsTheStoredListByteByByte) {
    exports p;
    p.files.add_file("/prog/文件清单.txt", "/d/z.zip*a.gif*1A2B3C4D*77\r\n/d/b.gif\nno end");
    EXPECT_EQ(p.exported("0", "gif").size(), 2u);
    EXPECT_EQ(p.files.content_of("/prog/filelist_txt_.txt"), p.files.content_of("/prog/文件清单.txt"));
    EXPECT_EQ(p.state.file_count, 0);  // no list was needed
}

TEST(ExportText, AMissingStoredListIsTold) {
    exports p;
    p.exported("0", "gif");
    EXPECT_EQ(p.messages(), texts{"提示|/prog/文件清单.txt\r\nno such file"});
    EXPECT_FALSE(p.files.has("/prog/filelist_txt_.txt"));
    EXPECT_TRUE(p.desktop.calls.empty());
    EXPECT_FALSE(p.form.task_runs());
}

TEST(ExportText, WithoutAnyListNothingIsWrittenAndAnEarlierFileStays) {
    exports p;
    p.files.add_file("/prog/filelist_txt_.txt", "the earlier one");
    p.exported("0", "");
    EXPECT_EQ(p.last_message(), "没有文件，请重新选择目录,重新搜索");
    EXPECT_EQ(p.files.content_of("/prog/filelist_txt_.txt"), "the earlier one");
}

TEST(ExportText, AFailureOfTheDiskIsToldOnEitherBranch) {
    for (const char* types : {"", "gif"}) {
        exports p;
        p.list(some);
        p.files.write_failure_path = "/prog/filelist_txt_.txt";
        p.exported("0", types);
        EXPECT_EQ(p.messages(), texts{"提示|/prog/filelist_txt_.txt\r\ndisk full"});
        EXPECT_FALSE(p.form.task_runs());
        EXPECT_TRUE(p.desktop.calls.empty());
    }
}

TEST(ExportText, AnEndAtALineLeavesTheEarlierFile) {
    exports p;
    p.list(some);
    p.files.add_file("/prog/filelist_txt_.txt", "the earlier one");
    p.screen.acts[p.screen.yields + 3] = [&] { p.form.run("Command28_Click"); };
    p.exported("0", "");
    EXPECT_EQ(p.files.content_of("/prog/filelist_txt_.txt"), "the earlier one");
    EXPECT_TRUE(p.desktop.calls.empty());
}

// The machine is to go down while the stored list is still being read: that must not be forgotten with the
// next step.
TEST(ExportText, AShutdownWhileTheListIsReadWritesNothingAndGoesThrough) {
    for (const char* task : {"文件清单_M_Click", "Command33_Click"}) {
        exports p;
        p.store({"/a", "/b", "/c"});
        for (const char* path : {"/a", "/b", "/c"}) p.add(path);
        p.state.shut_action = 4;
        p.screen.acts[1] = [&p] { p.form.run("shout_close"); };
        p.form.run(task);
        ASSERT_GE(p.screen.yields, 1) << task;
        EXPECT_FALSE(p.files.has("/prog/filelist_txt_.txt")) << task;
        EXPECT_FALSE(p.files.has("/prog/filelist.xls")) << task;
        EXPECT_EQ(p.desktop.calls, texts{"power_off"}) << task;
    }
}

TEST(ExportText, ALineBreakInANameBreaksNoLine) {
    exports p;
    p.list({"/d/a\uF00Ab", "/d/c\uF02A"});
    EXPECT_EQ(p.exported("0", ""), (texts{"/d/a␊b", "/d/c*"}));
}

TEST(SameFileLists, TheTextIsTheStoreItself) {
    exports p;
    p.form.panel(1, "old");
    p.form.run("相同文件清单_m");
    EXPECT_EQ(p.desktop.calls, texts{"open /prog/相同文件.txt"});
    EXPECT_EQ(p.form.StatusBar1.panel(7), "察看相同文件清单文本");
    EXPECT_EQ(p.form.StatusBar1.panel(1), "");
}

TEST(SameFileLists, TheSpreadsheetIsAByteCopyOfTheStore) {
    exports p;
    const std::string pairs = "内容相同文件清单            \r\n 1 \r\n 3 \r\n/d/a\r\n/d/b\r\n";
    p.files.add_file("/prog/相同文件.txt", pairs);
    p.form.run("相同文件XLS清单_M");
    EXPECT_EQ(p.files.content_of("/prog/相同文件.xls"), pairs);
    EXPECT_EQ(p.desktop.calls, texts{"open /prog/相同文件.xls"});
    EXPECT_EQ(p.form.StatusBar1.panel(7), "察看相同文件的xls清单");
}

TEST(SameFileLists, WithoutAStoreItsPathIsTold) {
    exports p;
    p.form.run("Command9_Click");
    EXPECT_EQ(p.messages(), texts{"提示|/prog/相同文件.txt  不存在"});
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(SameFileLists, ACopyThatFailsLeavesTheEarlierOne) {
    exports p;
    p.files.add_file("/prog/相同文件.txt", "new pairs").read_failure = 3;
    p.files.add_file("/prog/相同文件.xls", "old pairs");
    p.form.run("Command9_Click");
    EXPECT_EQ(p.files.content_of("/prog/相同文件.xls"), "old pairs");
    EXPECT_EQ(p.messages(), texts{"提示|/prog/相同文件.xls\r\n不能读出。"});
    EXPECT_EQ(p.files.open_now, 0);
}

// A comparison with pairs gives the list's memory back, one without leaves it in its own order.
TEST(CurrentList, WhatAComparisonHasUsedUpIsReadAgain) {
    for (const char* second : {"the same", "longer than the other one"}) {
        exports p;
        p.files.add_file("/d/a", second);
        p.files.add_file("/d/b", "the same");
        p.files.add_file("/d/c", "1");
        p.compare({"/d"});
        const bool rows_shown = p.form.ListView1.visible;
        EXPECT_EQ(p.exported("0", ""), (texts{"/d/a", "/d/b", "/d/c"}));
        EXPECT_EQ(p.form.ListView1.visible, rows_shown);
        p.form.run("Picture3_Click");
        p.form.run("tree_select_m");
        p.form.run("tree_dir.Command4_Click");
        EXPECT_EQ(p.corvane.tree_window().suffixes.suffix_counts[1], 3);
        p.form.run("mnu_same_filename");
        p.form.run("tree_dir.Command1_Click");
        EXPECT_EQ(p.state.file_count, 3);
        EXPECT_FALSE(p.form.task_runs());
    }
}

TEST(CurrentList, WhereTheStoredListHasGoneTooNothingIsExported) {
    exports p;
    p.files.add_file("/d/a", "the same");
    p.files.add_file("/d/b", "the same");
    p.compare({"/d"});
    p.files.erase("/prog/文件清单.txt");
    EXPECT_EQ(p.exported("0", ""), texts{});
    EXPECT_EQ(p.last_message(), "没有文件，请重新选择目录,重新搜索");
    p.form.run("tree_dir.Command4_Click");
    p.form.run("tree_dir.Command1_Click");
    EXPECT_EQ(p.last_message(), "没有文件清单,请选择目录,搜索文件,再进行这个步骤");
}

}  // namespace
}  // namespace corvane
