// The road round the comparison: preparation, panels, cancel, close, result files, history.
#include <gtest/gtest.h>

#include "core/tasks/help.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

void add_many(test_program& p, int count) {
    for (int i = 0; i < count; ++i)
        p.files.add_file("/d/" + std::to_string(10'000 + i),
                         std::string(1 + static_cast<std::size_t>(i) / 3, 'c'));
}

TEST(CompareTask, WithoutAnyListTellsSoAndOpensTheSelection) {
    test_program p;
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.last_message(), "没有文件，请重新选择目录,重新搜索");
    EXPECT_TRUE(p.corvane.directory_window().visible);
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(CompareTask, TheQuickSortLeavesAListAloneThatAViewHasUsedUp) {
    test_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    for (int i = 0; i < 30; ++i)
        p.files.add_file("/d/x" + std::to_string(i), std::string(10 + static_cast<std::size_t>(i), 'x'));
    p.search({"/d"});
    p.form.run("Command18_Click");
    EXPECT_EQ(p.state.file_list[1], "/d/a");
    p.form.run("Picture3_Click");
    p.form.run("Command18_Click");
    EXPECT_EQ(p.state.result_file1[1], "/d/a");
    EXPECT_EQ(p.state.file_list.size(), 0);
}

TEST(CompareTask, AnEmptyWalkBeforeAComparisonLeavesNoOldCount) {
    test_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.compare({"/d"});
    p.files.add_directory("/empty");
    p.select({"/empty"});
    p.form.run("Command19_Click");
    EXPECT_EQ(p.state.file_count, 0);
    EXPECT_EQ(p.last_message(), "没有文件，请重新选择目录");
}

TEST(CompareTask, InHelpModeOpensItsTopic) {
    test_program p;
    p.form.mouse_pointer = help_pointer;
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.desktop.calls, texts{"help aux12_Corvane帮助_Link.htm"});
}

TEST(CompareTask, TheClosingMessageTellsFilesPairsBytesAndTime) {
    test_program p;
    p.files.add_file("/d/a", std::string(1500, 'x'));
    p.files.add_file("/d/b", std::string(1500, 'x'));
    p.files.add_file("/d/c", std::string(1501, 'x'));
    p.compare({"/d"});
    const message& box = p.screen.messages.back();
    EXPECT_EQ(box.title, "检查同内容文件完毕");
    EXPECT_EQ(box.text, "已　检　查:3 个文件 \r\n相同文件有:1个,占用空间1,500 字节  用时: 0:0:0");
    EXPECT_EQ(box.help_context, 1000);
}

TEST(CompareTask, LeavesTheInterfaceAsItWas) {
    test_program p;
    p.files.add_file("/d/a", "x");
    p.files.add_file("/d/b", "x");
    p.compare({"/d"});
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
    EXPECT_FALSE(p.form.Command28.visible);
    EXPECT_FALSE(p.form.Label4.visible);
    EXPECT_TRUE(p.form.pictures[3]->enabled);
    EXPECT_TRUE(p.form.ListView1.visible);
    EXPECT_EQ(p.form.StatusBar1.panel(5), "");
    EXPECT_EQ(p.form.StatusBar1.panel(7), "显示相同文件");
    EXPECT_EQ(p.form.find("debug_err")->value, 0);
}

TEST(CompareTask, IsLockedAndCancelableWhileItRuns) {
    test_program p;
    add_many(p, 300);
    p.search({"/d"});
    bool seen = false;
    p.screen.acts[p.screen.yields + 900] = [&] {
        seen = true;
        EXPECT_FALSE(p.form.pictures[3]->enabled);
        EXPECT_TRUE(p.form.Command28.visible);
        EXPECT_EQ(p.form.Command28.caption, "取消[查相同文件]");
        p.form.run("Command28_Click");
    };
    p.form.run("Picture3_Click");
    ASSERT_TRUE(seen);
    const std::size_t pairs = p.stored_pairs().size();
    EXPECT_GT(pairs, 0u);
    EXPECT_LT(pairs, 200u);
    EXPECT_EQ(p.form.ListView1.row_count(), static_cast<std::int32_t>(pairs));
    EXPECT_EQ(p.stored_lines("不相同文件.txt").size(), 300u - p.state.result_count * 3u / 2u);
    EXPECT_TRUE(p.form.pictures[3]->enabled);
    EXPECT_EQ(p.screen.messages.back().title, "检查同内容文件完毕");
    EXPECT_TRUE(p.screen.messages.back().text.find(" 300 ") == std::string::npos);
}

TEST(CompareTask, ClosingEndsTheRunAndLeavesTheOldResults) {
    test_program p;
    add_many(p, 300);
    p.files.add_file("/prog/相同文件.txt", "old");
    p.search({"/d"});
    p.screen.acts[p.screen.yields + 700] = [&] { p.corvane.close(); };
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"), "old");
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_TRUE(p.screen.ended);
}

TEST(CompareTask, ClosingAtEveryYieldNeverReachesAMessageOrAStore) {
    for (std::int64_t at = 1; at < 200; at += 7) {
        test_program p;
        add_many(p, 40);
        p.search({"/d"});
        p.screen.acts[p.screen.yields + at] = [&] { p.corvane.close(); };
        p.form.run("Picture3_Click");
        EXPECT_TRUE(p.screen.ended);
        EXPECT_TRUE(p.screen.messages.empty());
    }
}

TEST(CompareTask, AvoidedFilesAreBlankedAndStayInTheColumns) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path, "equal");
    p.files.add_file("/prog/avoid.txt", "/d/b\r\n/d/B\r\n/gone\r\n");
    p.select({"/d"});
    p.corvane.start();
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"5 /d/a /d/c"});
    EXPECT_EQ(p.stored_lines("不相同文件.txt"), texts{""});
    EXPECT_EQ(p.files.opened.count("/d/b"), 0u);
}

TEST(CompareTask, ARunOf500FilesNeitherReadsNorWritesTheHistory) {
    test_program p;
    add_many(p, 500);
    p.files.add_file("/prog/run_history.txt", "untouched");
    p.compare({"/d"});
    EXPECT_EQ(p.files.content_of("/prog/run_history.txt"), "untouched");
    EXPECT_EQ(p.files.opened.count("/prog/run_history.txt"), 0u);
}

TEST(CompareTask, ARunOf501FilesReadsAndWritesTheHistory) {
    test_program p;
    add_many(p, 501);
    p.compare({"/d"});
    const texts rows = p.stored_lines("run_history.txt");
    EXPECT_EQ(rows[0], "501         ");
    const file_facts facts = p.files.facts("/d/10000");
    EXPECT_EQ(rows[1], "/d/10000\t1\t" + std::to_string(facts.date_high) + "\t" +
                           std::to_string(facts.date_low) + "\t99");
    EXPECT_EQ(rows.size(), 502u);
    EXPECT_TRUE(std::is_sorted(rows.begin() + 1, rows.end()));
}

TEST(History, AnUnchangedFileIsNotOpenedForItsSignature) {
    test_program p;
    add_many(p, 501);
    p.compare({"/d"});
    p.files.opened.clear();
    p.files.add_file("/d/10002", "d").date_low = 9;  // changed since
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.files.opened.count("/d/10000"), 0u);
    EXPECT_EQ(p.files.opened.count("/d/10002"), 1u);
}

TEST(History, CommaRowsAreReadFromTheRightAndRewrittenInTabForm) {
    test_program p;
    add_many(p, 501);
    p.files.add_file("/prog/run_history.txt",
                     "2           \r\n/c,d/a,b,70133152,30187723,1049853184,982351125\r\n"
                     "/e,1,2,3,-4\r\n");
    p.compare({"/d"});
    const texts rows = p.stored_lines("run_history.txt");
    EXPECT_EQ(rows[0], "503         ");
    EXPECT_EQ(rows[1], "/c,d/a,b\t70133152\t30187723\t1049853184\t982351125");
    EXPECT_EQ(rows.back(), "/e\t1\t2\t3\t-4");
}

TEST(History, ACountOfZeroIsTreatedAsEmpty) {
    test_program p;
    add_many(p, 501);
    p.files.add_file("/prog/run_history.txt", "0           \r\n/c/kept?\t1\t2\t3\t4\r\n");
    p.compare({"/d"});
    EXPECT_EQ(p.stored_lines("run_history.txt").size(), 502u);
}

TEST(History, TheSecondOfAMinuteForgetsFilesThatAreGone) {
    for (const int second : {0, 1}) {
        test_program p;
        add_many(p, 501);
        p.screen.date.second = second;
        p.files.add_file("/prog/run_history.txt", "1           \r\n/a/gone\t1\t2\t3\t4\r\n");
        p.compare({"/d"});
        EXPECT_EQ(p.stored_lines("run_history.txt").size(), second == 1 ? 502u : 503u);
    }
}

TEST(History, HostileFilesAreSurvived) {
    for (const std::string& content :
         {std::string("99999999999999999999\r\nx"), std::string("3"), std::string("\0\0\0", 3),
          std::string("5\r\n\t\t\t\t\r\n\xFF\xFE\tA\tB\tC\tD\r\n"), std::string("-1\r\na\t1\t2\t3\t4"),
          std::string(300'000, '9')}) {
        test_program p;
        p.state.limits.files = 1000;
        add_many(p, 501);
        p.files.add_file("/prog/run_history.txt", content);
        p.compare({"/d"});
        EXPECT_EQ(p.stored_pairs().size(), 334u);
    }
}

TEST(ResultFiles, OnePairGivesFiveLinesByteForByte) {
    test_program p;
    p.files.add_file("/d/a", "x");
    p.files.add_file("/d/b", "x");
    p.compare({"/d"});
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"),
              "内容相同文件清单            \r\n 1 \r\n 1 \r\n/d/a\r\n/d/b\r\n");
}

TEST(ResultFiles, NoPairsRemoveTheOldResult) {
    test_program p;
    p.files.add_file("/d/a", "x");
    p.files.add_file("/prog/相同文件.txt", "old");
    p.compare({"/d"});
    EXPECT_FALSE(p.files.has("/prog/相同文件.txt"));
    EXPECT_EQ(p.screen.messages[0].text, "没有相同文件");
}

TEST(ResultFiles, AFullDiskIsToldAndTheOldFileStaysWhole) {
    for (const char* name : {"相同文件.txt", "不相同文件.txt", "run_history.txt"}) {
        test_program p;
        add_many(p, 501);
        p.files.add_file("/d/unique", std::string(500, 'u'));
        p.files.write_failure_path = p.program_dir + name;
        p.files.add_file(p.files.write_failure_path, "old");
        p.compare({"/d"});
        ASSERT_EQ(p.screen.messages.size(), 1u) << name;
        EXPECT_NE(p.last_message().find("disk full"), std::string::npos) << name;
        EXPECT_EQ(p.files.content_of(p.files.write_failure_path), "old") << name;
        EXPECT_TRUE(p.form.pictures[3]->enabled);
        EXPECT_FALSE(p.form.Command28.visible);
    }
}

TEST(ResultFiles, ThatCouldNotBeWrittenDoNotPassAsFresh) {
    for (const char* name : {"相同文件.txt", "不相同文件.txt"}) {
        test_program p;
        p.files.add_file("/d/a", "x");
        p.files.add_file("/d/b", "x");
        p.files.write_failure_path = p.program_dir + name;
        p.compare({"/d"});
        EXPECT_EQ(p.state.same_fresh_flag, 0) << name;
    }
    test_program p;
    p.files.add_file("/d/a", "x");
    p.compare({"/d"});
    EXPECT_EQ(p.state.same_fresh_flag, 0) << "no pair, no store";
}

TEST(ResultFiles, AreWrittenUnderABarOfTheirOwnColours) {
    test_program p;
    for (int i = 0; i < 1000; ++i)
        p.files.add_file("/d/" + std::to_string(i), std::string(1 + static_cast<std::size_t>(i), 'x'));
    p.compare({"/d"});
    // The thousandth of a thousand files stands at the end colour; there are no pairs to show after it.
    EXPECT_EQ(p.form.pic_gressbar1.fill_colour(), 0xAAF0F0);
}

TEST(Shutdown, ArmedAsksOnceAndEndsWithoutTheClosingMessage) {
    test_program p;
    bool started = false;
    p.form.bind("start_shutdown", [&] { started = true; });
    p.files.add_file("/d/a", "x");
    p.search({"/d"});
    p.state.shutdown_after_task = 1;
    p.state.shutdown_action_text = "关闭计算机.";
    p.screen.answers = {box_answer::yes};
    p.form.run("Picture3_Click");
    EXPECT_TRUE(started);
    EXPECT_EQ(p.screen.messages[0].text, "  运行完毕后,关闭计算机.同意吗(Y/N)?");
    for (const message& box : p.screen.messages) EXPECT_NE(box.title, "检查同内容文件完毕");
    EXPECT_TRUE(p.form.pictures[3]->enabled);
}

TEST(Estimate, ComesFromTheRunRecordsWhenThereAreAny) {
    test_program p;
    add_many(p, 250);
    p.files.add_file("/prog/run_time_rem.txt", "100,200\r\n");
    p.search({"/d"});
    std::string shown;
    p.screen.acts[p.screen.yields + 300] = [&] { shown = p.form.StatusBar1.panel(7); };
    p.form.run("Picture3_Click");
    EXPECT_EQ(shown, "预计时间0:8:20");  // 250 files at 2 seconds each
}

TEST(Estimate, TheRunIsRecordedWithFilesAndSeconds) {
    test_program p;
    add_many(p, 30);
    p.search({"/d"});
    p.screen.seconds_per_yield = 0.5;
    p.form.run("Picture3_Click");
    const texts records = p.stored_lines("run_time_rem.txt");
    ASSERT_EQ(records.size(), 1u);
    EXPECT_TRUE(records[0].starts_with("30,"));
}

TEST(ErrorTrail, NamesEachFileBeforeItIsReadAndEndsWithTheRun) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path, "equal");
    p.form.run("debug_err");
    p.compare({"/d"});
    EXPECT_EQ(p.files.content_of("/prog/err_rec.txt"), "/d/c\r\n");
    EXPECT_EQ(p.state.error_trail_on, 0);
}

TEST(ErrorTrail, NamesBothFilesOfAPairThatIsComparedWithoutSignatures) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, std::string(300'000, 'x'));
    p.search({"/d"});
    p.form.run("debug_err");
    std::set<std::string> named;
    for (std::int64_t yield = 1; yield < 30; ++yield)
        p.screen.acts[p.screen.yields + yield] = [&] {
            named.insert(p.files.content_of("/prog/err_rec.txt"));
        };
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.files.content_of("/prog/err_rec.txt"), "/d/b\r\n");
    EXPECT_EQ(p.stored_pairs().size(), 1u);
    EXPECT_TRUE(named.count("/d/b\r\n"));
    EXPECT_EQ(p.files.opened["/d/a"], 1);
}

TEST(CompareTask, ShowsTheFileNamesWhileTheOptionIsOn) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path, "equal");
    p.state.show_run_filename = 1;
    p.compare({"/d"});
    EXPECT_EQ(p.form.Label4.caption, "/d/c");
    EXPECT_FALSE(p.form.Label4.visible);
}

TEST(CompareTask, TheQuickSortLeavesAListAloneOfWhichTheResultCouldNotBeStored) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path, "same");
    p.search({"/d"});
    p.files.write_failure_path = "/prog/相同文件.txt";
    p.form.run("Picture3_Click");
    ASSERT_EQ(p.state.file_list.size(), 3);
    p.form.run("Command18_Click");
    EXPECT_EQ(p.listed(), (texts{"/d/a", "/d/b", "/d/c"}));
}

TEST(History, OfThousandsTheGoneOnesAreForgottenAndNoOthers) {
    test_program p;
    add_many(p, 501);
    p.screen.date.second = 1;
    std::string rows = "2500           \r\n";
    texts kept;
    for (int i = 1000; i < 3500; ++i) {
        const std::string path = "/c/" + std::to_string(i);
        rows += path + "\t1\t2\t3\t4\r\n";
        if (i % 3 == 0) continue;
        p.files.add_file(path, "x");
        kept.push_back(path);
    }
    p.files.add_file("/prog/run_history.txt", rows);
    p.compare({"/d"});
    texts found;
    for (const std::string& line : p.stored_lines("run_history.txt"))
        if (line.starts_with("/c/")) found.push_back(line.substr(0, line.find('\t')));
    EXPECT_EQ(found, kept);
}

}  // namespace
}  // namespace corvane
