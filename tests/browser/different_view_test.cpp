#include "browser/different_view.h"

#include <gtest/gtest.h>

#include "tests/browser/list_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(DifferentView, AMissingListIsTold) {
    list_program p;
    p.state.list_mode = 3;
    p.form.run("Picture11_Click");
    EXPECT_EQ(p.last_message(), "/prog/不相同文件.txt  不存在");
    EXPECT_EQ(p.state.list_mode, 3);
    EXPECT_TRUE(p.form.pictures[2]->enabled);
}

TEST(DifferentView, AnEmptyListIsTold) {
    list_program p;
    p.files.add_file("/prog/不相同文件.txt", "");
    p.form.run("disp_dispatch");
    EXPECT_EQ(p.last_message(), "没有不相同文件");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "不相同文件数:0");
    EXPECT_EQ(p.form.StatusBar1.panel(7), "显示不相同文件");
}

TEST(DifferentView, ShowsTheStoredFilesSortedWithLengthAndDate) {
    list_program p;
    p.files.add_file("/d/b", "12345");
    p.files.add_file("/d/a", "1");
    p.files.add_file("/prog/不相同文件.txt", "/d/b\r\n/d/gone\r\n/d/x.zip*member\r\n/d/a\r\n");
    p.form.Frame4.visible = p.form.Label4.visible = true;
    p.form.run("Command35_Click");
    EXPECT_EQ(p.state.list_mode, 2);
    EXPECT_EQ(p.cells(1), (texts{"1", "2"})) << "no gaps";
    EXPECT_EQ(p.cells(2), (texts{"1", "5"}));
    EXPECT_EQ(p.cells(4), (texts{"/d/a", "/d/b"}));
    // 30,000,000 * 2^32 units of 100 ns since 1601, as the screen of the tests cuts it into a day.
    const std::int64_t seconds = (std::int64_t{30'000'000} << 32) / 10'000'000 - 11'644'473'600;
    const local_time date = p.screen.local_date(seconds);
    EXPECT_EQ(p.list().cell(1, 3).substr(11, 2), (date.hour < 10 ? "0" : "") + std::to_string(date.hour));
    EXPECT_FALSE(p.form.Frame4.visible);
    EXPECT_FALSE(p.form.Label4.visible);
    EXPECT_TRUE(p.list().visible);
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
    EXPECT_EQ(p.form.StatusBar1.panel(5), "不相同文件数:4");
    EXPECT_EQ(p.list().columns()[4].header, "不相同文件");
    EXPECT_EQ(p.list().columns()[3].header, "日期");
    EXPECT_EQ(p.list().help_context, 1015);
}

TEST(DifferentView, LeavesSystemTypesOut) {
    list_program p;
    for (const char* path : {"/d/a.dat", "/d/b.DAT", "/d/c.data", "/d/e.Dll", "/d/f.ocx", "/d/g", "/d/dat"})
        p.files.add_file(path, "x");
    p.files.add_file("/prog/不相同文件.txt",
                     "/d/a.dat\r\n/d/b.DAT\r\n/d/c.data\r\n/d/e.Dll\r\n/d/f.ocx\r\n/d/g\r\n/d/dat\r\n");
    p.form.run("Picture11_Click");
    EXPECT_EQ(p.cells(4), (texts{"/d/c.data", "/d/dat", "/d/g"}));
}

TEST(DifferentView, AfterAComparisonIsShownFromMemory) {
    list_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.files.add_file("/d/c", "other");
    p.compare({"/d"});
    EXPECT_EQ(p.state.different_count, 1);
    p.files.erase("/prog/不相同文件.txt");
    p.form.run("Picture11_Click");
    EXPECT_EQ(p.cells(4), texts{"/d/c"});
    EXPECT_TRUE(p.screen.messages.size() == 1u) << "only the comparison's own message";
}

TEST(DifferentView, AfterAComparisonOfALongListIsShownFromMemory) {
    list_program p;
    texts expected;
    for (std::int32_t i = 0; i <= many_files; ++i) {
        std::string path = "/d/" + std::to_string(100'000 + i);
        p.files.add_file(path).stated_length = 1 + i / 2 * 2;  // pairs that cannot be read, and one alone
        expected.push_back(std::move(path));
    }
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, std::string(9, 's')).stated_length = -1;
    p.compare({"/d"});
    EXPECT_EQ(p.state.result_count, 1);
    EXPECT_EQ(p.state.different_count, many_files + 1);
    EXPECT_EQ(p.state.different_files.size(), 0) << "put away";
    p.files.erase("/prog/不相同文件.txt");
    for (int turn = 0; turn < 2; ++turn) {
        p.form.run("Picture11_Click");
        EXPECT_EQ(p.cells(4), expected);
    }
}

TEST(DifferentView, WithoutFilesAfterAComparisonSaysSo) {
    list_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.compare({"/d"});
    p.form.run("Picture11_Click");
    EXPECT_EQ(p.last_message(), "没有不相同文件");
}

TEST(DifferentView, InHelpModeOpensItsTopic) {
    list_program p;
    p.form.mouse_pointer = 14;
    p.form.run("Picture11_Click");
    EXPECT_EQ(p.desktop.calls, texts{"help aux21_Corvane帮助_Link.htm"});
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(DifferentView, ClosingWhileItFillsEndsIt) {
    list_program p;
    std::string lines;
    for (int i = 100; i < 200; ++i) {
        const std::string path = std::string("/d/").append(std::to_string(i));
        p.files.add_file(path, "x");
        lines += path + "\r\n";
    }
    p.files.add_file("/prog/不相同文件.txt", lines);
    p.screen.acts[50] = [&] { p.form.run("exit_sub"); };
    p.form.run("Picture11_Click");
    EXPECT_LT(p.list().row_count(), 100);
}

TEST(DifferentView, ADoubleClickBesideThePathOpensItsDirectory) {
    list_program p;
    p.files.add_file("/d/e/a", "1");
    p.files.add_file("/prog/不相同文件.txt", "/d/e/a\r\n");
    p.form.run("Picture11_Click");
    p.double_click(1, 2);
    EXPECT_EQ(p.desktop.calls, texts{"open /d/e/"});
    EXPECT_EQ(p.list().colour(1, 4), cell_colour::colour_text);
}

TEST(DifferentView, TheFileListSurvivesMarksAndSort) {
    list_program p;
    p.files.add_file("/d/b", "12345");
    p.files.add_file("/d/a", "1");
    p.files.add_file("/prog/不相同文件.txt", "/d/b\r\n/d/a\r\n");
    p.form.run("Picture11_Click");
    p.double_click(1, 4);
    p.header(2);
    p.header(2);
    EXPECT_EQ(p.cells(4), (texts{"/d/b", "/d/a"}));
    EXPECT_EQ(p.list().colour(2, 4), cell_colour::mark_red) << "marks stay in this view";
    EXPECT_EQ(p.state.different_files[1], "/d/a");
}

}  // namespace
}  // namespace corvane
