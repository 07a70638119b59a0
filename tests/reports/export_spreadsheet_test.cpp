// The spreadsheet export: rows, sums, limits, messages, and what stands in the way of a whole file.
#include "tests/reports/report_program.h"

namespace corvane {
namespace {

constexpr char sheet[] = "filelist.xls";
constexpr char heading[] = "名称\t大小\t创建日期";
constexpr char day[] = "1899-12-30";  // what the test's clock makes of every moment

// A row of each file, its size cell alone.
texts sizes(const report_program& p) {
    texts found;
    for (const std::string& line : p.stored_lines(sheet)) {
        const std::size_t first = line.find('\t');
        found.push_back(line.substr(first + 1, line.find('\t', first + 1) - first - 1));
    }
    return found;
}

TEST(ExportSpreadsheet, HeadingRowsAndSumArePartedByTabs) {
    report_program p;
    p.add("/d/a.txt", 1023);
    p.add("/d/b.txt", 1'048'576);
    p.list({"/d/a.txt", "/d/b.txt"});
    p.form.run("out_excel_form");
    EXPECT_EQ(p.files.content_of("/prog/filelist.xls"), std::string(heading) + "\r\n/d/a.txt\t1,023 B\t" +
                                                            day + "\r\n/d/b.txt\t1,024 KB\t" + day +
                                                            "\r\n空间总计\t1,025 KB\r\n");
    EXPECT_EQ(p.form.StatusBar1.panel(7), "导出相同文件清单->Excel");
    EXPECT_EQ(p.form.StatusBar1.panel(6), "0:0:0");
    EXPECT_FALSE(p.form.task_runs());
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
}

// Whole parts of (size + 1) / 1024 + 0.5, worked out by hand: 1535 + 1 is 1.5 KB, which makes 2.
TEST(ExportSpreadsheet, SizesFrom1024OnAreKilobytesRoundedByTheRule) {
    report_program p;
    const std::vector<std::pair<std::int64_t, std::string>> cases = {{0, " B"},
                                                                     {1, "1 B"},
                                                                     {1023, "1,023 B"},
                                                                     {1024, "1 KB"},
                                                                     {1534, "1 KB"},
                                                                     {1535, "2 KB"},
                                                                     {2558, "2 KB"},
                                                                     {2559, "3 KB"},
                                                                     {1024000, "1,000 KB"},
                                                                     {std::int64_t{5} << 30, "5,242,880 KB"}};
    texts paths, wanted;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        paths.push_back("/d/" + std::to_string(i));
        p.add(paths.back(), cases[i].first);
        wanted.push_back(cases[i].second);
    }
    p.list(paths);
    p.form.run("Command33_Click");
    texts found = sizes(p);
    found.erase(found.begin());
    found.pop_back();
    EXPECT_EQ(found, wanted);
}

TEST(ExportSpreadsheet, TheSumIsExactBeyondTwoGibibytes) {
    report_program p;
    p.add("/d/a", std::int64_t{3} << 30);
    p.add("/d/b", std::int64_t{6} << 40);
    p.list({"/d/a", "/d/b"});
    p.form.run("Command33_Click");
    // (3 GiB + 6 TiB) / 1024, by hand: 3,145,728 + 6,442,450,944.
    EXPECT_EQ(sizes(p).back(), "6,445,596,672 KB");
}

TEST(ExportSpreadsheet, AFileThatCannotBeReadRepeatsTheRowBefore) {
    report_program p;
    p.add("/d/b", 5);
    p.list({"/d/a gone", "/d/b", "/d/c gone", "/d/z.zip*in.txt*1A2B3C4D*77"});
    p.form.run("Command33_Click");
    EXPECT_EQ(p.stored_lines(sheet),
              (texts{heading, "/d/a gone\t\t", "/d/b\t5 B\t1899-12-30", "/d/c gone\t5 B\t1899-12-30",
                     "/d/z.zip*in.txt*1A2B3C4D*77\t5 B\t1899-12-30", "空间总计\t5 B"}));
}

TEST(ExportSpreadsheet, A65533RowsPassWithoutAWordAnd65534WithOne) {
    for (const std::int32_t count : {65'533, 65'534, 65'540}) {
        report_program p;
        std::string lines;
        for (std::int32_t i = 1; i <= count; ++i) lines += "/d/" + std::to_string(i) + "\r\n";
        p.files.add_file("/prog/文件清单.txt").content = lines;
        p.form.run("Command21_Click");
        p.form.run("Command33_Click");
        const auto rows = static_cast<std::int32_t>(p.stored_lines(sheet).size()) - 2;
        EXPECT_EQ(rows, std::min(count, 65'534));
        if (count == 65'533)
            EXPECT_EQ(p.messages(), texts{});
        else
            EXPECT_EQ(p.messages(), texts{"提示|文件数＝" + std::to_string(count) +
                                          " ,超过excel表的范围，只能转出前65534项"});
        EXPECT_EQ(p.state.export_count, std::min(count, 65'534));
    }
}

TEST(ExportSpreadsheet, WithoutAListItReadsTheStoredOneAndElseSaysSo) {
    report_program p;
    p.store({"/d/a"});
    p.form.run("Command33_Click");
    EXPECT_EQ(p.stored_lines(sheet).size(), 3u);
    report_program none;
    none.form.run("Command33_Click");
    EXPECT_EQ(none.last_message(), "没有文件，请重新选择目录,重新搜索");
    EXPECT_FALSE(none.files.has("/prog/filelist.xls"));
    EXPECT_FALSE(none.form.task_runs());
}

TEST(ExportSpreadsheet, NothingLeftByTheParametersIsSaidAndWritesNothing) {
    report_program p;
    p.list_files({"/d/a.gif"});
    p.form.Text4.text = " gif ";
    p.form.run("Command33_Click");
    EXPECT_EQ(p.messages(), texts{"提示|没有符合条件的文件,请重新搜索或重新选择导出参数"});
    EXPECT_FALSE(p.files.has("/prog/filelist.xls"));
}

TEST(ExportSpreadsheet, AFoldedDirectoryMakesNoRow) {
    report_program p;
    p.list_files({"/d/a.txt", "/d/e/f/b.txt"});
    p.form.Text3.text = "2";
    p.form.Text4.text = "bmp";
    p.form.run("Command33_Click");
    EXPECT_EQ(p.state.export_count, 2);
    EXPECT_EQ(std::string(p.state.export_list[2]), "/d/e/");
    EXPECT_EQ(p.stored_lines(sheet), (texts{heading, "/d/a.txt\t1 B\t1899-12-30", "空间总计\t1 B"}));
}

TEST(ExportSpreadsheet, TheEstimateStandsInPanel5OnlyWhereThereIsARate) {
    report_program p;
    p.list_files({"/d/a", "/d/b"});
    p.form.run("Command33_Click");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "");
    p.state.export_rate_count = 2;
    p.state.export_rate_time = 65;
    p.form.run("Command33_Click");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "预计:0:1:5");
}

TEST(ExportSpreadsheet, ATextViewerIsStartedAndTheNextExportLeavesItOpen) {
    report_program p;
    p.list_files({"/d/a"});
    p.desktop.programs = {{"mousepad", "/usr/bin/mousepad"}};
    p.desktop.waits_for_process = 1;
    p.form.run("Command33_Click");
    EXPECT_EQ(p.desktop.started, (std::vector<texts>{{"/usr/bin/mousepad", "/prog/filelist.xls"}}));
    EXPECT_EQ(p.state.export_viewer_recorded, -1);
    p.form.run("Command33_Click");
    EXPECT_EQ(p.desktop.started.size(), 2u);
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(ExportSpreadsheet, AViewerThatHasEndedAtOnceIsNotRecorded) {
    report_program p;
    p.list_files({"/d/a"});
    p.desktop.programs = {{"gedit", "/usr/bin/gedit"}};
    p.form.run("Command33_Click");
    EXPECT_EQ(p.state.export_viewer_recorded, 0);
}

TEST(ExportSpreadsheet, WithoutATextViewerTheAssociationOpensIt) {
    report_program p;
    p.list_files({"/d/a"});
    p.form.run("Command33_Click");
    EXPECT_EQ(p.desktop.calls, texts{"open /prog/filelist.xls"});
}

TEST(ExportSpreadsheet, AViewerThatCannotBeStartedIsTold) {
    report_program p;
    p.list_files({"/d/a"});
    p.desktop.programs = {{"gedit", "/usr/bin/gedit"}};
    p.desktop.on_start = [](const texts&) { return false; };
    p.form.run("Command33_Click");
    EXPECT_EQ(p.messages(), texts{"提示|cannot be started"});
    EXPECT_TRUE(p.files.has("/prog/filelist.xls"));
}

TEST(ExportSpreadsheet, OpenExcelAsksForNothing) {
    report_program p;
    p.form.run("open_excel");
    EXPECT_EQ(p.desktop.calls, texts{"open /prog/filelist.xls"});
}

TEST(ExportSpreadsheet, ARowYieldsAndAnEndAtOneLeavesTheEarlierFile) {
    for (const char* act : {"Command28_Click", "exit_sub"})
        for (const int row : {1, 2, 3}) {
            report_program p;
            p.list_files({"/d/a", "/d/b", "/d/c"});
            p.files.add_file("/prog/filelist.xls", "the earlier one");
            p.screen.acts[p.screen.yields + row] = [&] {
                EXPECT_TRUE(p.form.task_runs());
                EXPECT_TRUE(p.form.Command28.visible);
                EXPECT_TRUE(p.form.run(act));
            };
            p.form.run("Command33_Click");
            EXPECT_EQ(p.files.content_of("/prog/filelist.xls"), "the earlier one") << act << row;
            EXPECT_TRUE(p.desktop.started.empty() && p.desktop.calls.empty());
            EXPECT_EQ(p.form.task_runs(), p.state.quit_requested != 0);
        }
}

TEST(ExportSpreadsheet, NoOtherTaskStartsMeanwhile) {
    report_program p;
    p.list_files({"/d/a", "/d/b"});
    p.screen.acts[p.screen.yields + 1] = [&] {
        for (const char* task : {"文件清单_M", "Command33_Click", "Command8_Click", "Command9_Click",
                                 "picture2_Click", "tree_select_m", "tree_dir.Command1_Click"})
            p.form.run(task);
        EXPECT_EQ(p.form.StatusBar1.panel(7), "导出相同文件清单->Excel");
    };
    p.form.run("Command33_Click");
    EXPECT_EQ(p.stored_lines(sheet).size(), 4u);
    EXPECT_FALSE(p.files.has("/prog/filelist_txt_.txt"));
}

TEST(ExportSpreadsheet, AFullDiskIsToldInTheSystemsWordsAndTheTaskIsFree) {
    report_program p;
    p.list_files({"/d/a"});
    p.files.add_file("/prog/filelist.xls", "the earlier one");
    p.files.write_failure_path = "/prog/filelist.xls";
    p.form.run("Command33_Click");
    EXPECT_EQ(p.messages(), texts{"提示|/prog/filelist.xls\r\ndisk full"});
    EXPECT_EQ(p.files.content_of("/prog/filelist.xls"), "the earlier one");
    EXPECT_FALSE(p.form.task_runs());
    EXPECT_TRUE(p.form.pictures[3]->enabled);
    EXPECT_TRUE(p.desktop.calls.empty());
}

// What a folder that cannot be written holds in memory no other program could open.
TEST(ExportSpreadsheet, InAFolderThatCannotBeWrittenTheExportFails) {
    report_program p;
    p.add_used_folder();
    p.files.folder_locked = true;
    p.files.write_failure_path = "/prog/filelist.xls";
    p.files.write_failure_words = "Permission denied";
    ASSERT_TRUE(p.corvane.start());
    p.list_files({"/d/a"});
    p.form.run("Command33_Click");
    EXPECT_EQ(p.messages(), texts{"提示|/prog/filelist.xls\r\nPermission denied"});
    EXPECT_TRUE(p.desktop.calls.empty());
}

// Names as the disk's port hands them over: control bytes are U+F000 + byte, `*` is U+F02A.
TEST(ExportSpreadsheet, NoNameBreaksARowOrAColumn) {
    report_program p;
    p.list_files({"/d/tab\uF009x", "/d/line\uF00D\uF00Ax", "/d/star\uF02A", "/d/\"q\"", "/d/\xFF\xFE",
                  // A name that holds such a character itself, and full-width signs beside them.
                  "/d/own\uF000\uF009", "/d/（，）\uF07F\uF000"});
    p.form.run("Command33_Click");
    EXPECT_EQ(p.stored_lines(sheet),
              (texts{heading, "/d/tab␉x\t1 B\t1899-12-30", "/d/line␍␊x\t1 B\t1899-12-30",
                     "/d/star*\t1 B\t1899-12-30", "/d/\"q\"\t1 B\t1899-12-30", "/d/\xFF\xFE\t1 B\t1899-12-30",
                     "/d/own\uF009\t1 B\t1899-12-30", "/d/（，）␡\uF000\t1 B\t1899-12-30", "空间总计\t7 B"}));
}

// A stored list that somebody has written by hand.
TEST(ExportSpreadsheet, ALineThatBeginsWithAQuoteIsQuoted) {
    report_program p;
    p.list({"\"a\tb", "plain"});
    p.form.run("Command33_Click");
    EXPECT_EQ(p.stored_lines(sheet)[1], "\"\"\"a␉b\"\t\t");
}

}  // namespace
}  // namespace corvane
