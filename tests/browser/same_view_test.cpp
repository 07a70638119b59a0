#include "browser/same_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/browser/list_program.h"
#include "tests/browser/stored_rows.h"

namespace corvane {
namespace {
using texts = std::vector<std::string>;

TEST(SameView, AMissingOrEmptyStoreIsToldAndNothingElse) {
    for (const bool missing : {true, false}) {
        test_program p;
        p.state.list_mode = 2;
        if (!missing) p.files.add_file("/prog/相同文件.txt", "");
        p.form.run("Picture4_Click");
        EXPECT_EQ(p.last_message(), "没有相同文件");
        EXPECT_EQ(p.screen.messages[0].title, "提示");
        EXPECT_EQ(p.state.list_mode, 2);
        EXPECT_TRUE(p.form.pictures[4]->enabled);
    }
}

TEST(SameView, ARowWithAVanishedFileFallsOutUnlessTheStoreIsFresh) {
    test_program p;
    p.files.add_file("/d/a", "x");
    store(p, {{1, "/d/a", "/d/gone"}});
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.last_message(), "没有相同文件");
    EXPECT_EQ(p.form.ListView1.row_count(), 0);
    p.state.same_fresh_flag = -1;
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.form.ListView1.row_count(), 1);
    EXPECT_EQ(p.state.same_fresh_flag, 0);
}

TEST(SameView, AFailedLoadKeepsTheFreshFlag) {
    test_program p;
    p.state.same_fresh_flag = -1;
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.state.same_fresh_flag, -1);
}

TEST(SameView, AnArchiveMemberIsNotTestedForExistence) {
    test_program p;
    p.files.add_file("/d/a", "x");
    store(p, {{1, "/gone.zip*in", "/d/a"}});
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.form.ListView1.row_count(), 1);
    EXPECT_EQ(p.form.ListView1.colour(1, 3), cell_colour::colour_archive);
}

TEST(SameView, RowsAreSortedByTheFirstPathAndNumbered) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{30, "/c", "/x"}, {10, "/a", "/y"}, {20, "/b", "/z"}});
    p.form.run("Picture4_Click");
    const list_view& list = p.form.ListView1;
    for (std::int32_t row = 1; row <= 3; ++row) EXPECT_EQ(list.cell(row, 1), std::to_string(row));
    EXPECT_EQ(list.cell(1, 3) + list.cell(2, 3) + list.cell(3, 3), "/a/b/c");
    EXPECT_EQ(list.cell(1, 4), "/y");
    EXPECT_EQ(list.cell(3, 2), "30");
    EXPECT_EQ(p.state.result_file1[1], "/a");
    EXPECT_EQ(p.state.result_file2[1], "/y");
    EXPECT_EQ(p.state.result_length[1], 10);
    EXPECT_EQ(p.state.result_max_length, 30);
    EXPECT_EQ(p.state.list_mode, 0);
}

TEST(SameView, ARepeatedFirstPathTurnsGrayAndOnlyInItsColumn) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{1, "/a", "/x"},
              {1, "/a", "/z.zip*y"},
              {1, "/a", "/z"},
              {1, "/m.zip*a", "/1"},
              {1, "/m.zip*a", "/2"}});
    p.form.run("Picture4_Click");
    const list_view& list = p.form.ListView1;
    EXPECT_EQ(list.colour(1, 3), cell_colour::colour_text);
    EXPECT_EQ(list.colour(2, 3), cell_colour::colour_gray);
    EXPECT_EQ(list.colour(3, 3), cell_colour::colour_gray);
    EXPECT_EQ(list.colour(4, 3), cell_colour::colour_archive);
    EXPECT_EQ(list.colour(5, 3), cell_colour::colour_gray);  // gray, not purple
    for (std::int32_t row = 1; row <= 5; ++row) EXPECT_NE(list.colour(row, 4), cell_colour::colour_gray);
}

TEST(SameView, ColumnsHaveTheirHeadersAndWidths) {
    test_program p;
    p.state.same_fresh_flag = -1;
    p.form.ListView1.place.width = 12'100;
    store(p, {{1, "/a", "/b"}});
    p.form.run("Picture4_Click");
    texts headers;
    std::vector<int> widths;
    for (const list_column& column : p.form.ListView1.columns()) {
        headers.push_back(column.header);
        widths.push_back(column.width);
    }
    EXPECT_EQ(headers, (texts{"", "序号", "长度", "重复文件1", "重复文件2"}));
    EXPECT_EQ(widths, (std::vector<int>{100, 700, 900, 5000, 5000}));
    p.form.ListView1.place.width = 22'100;
    p.form.run("layout_list");
    EXPECT_EQ(p.form.ListView1.columns()[3].width, 10'000);
}

TEST(SameView, TheTotalIsScaledWithItsUnit) {
    struct total {
        std::int64_t bytes;
        const char* text;
    };
    for (const total& expected :
         {total{999'999, "相同文件长度:999,999"}, total{1'000'000, "相同文件长度:976 K"},
          total{1'000'000'000, "相同文件长度:953 M"}, total{1'000'000'000'000, "相同文件长度:931 G"}}) {
        test_program p;
        p.state.same_fresh_flag = -1;
        store(p, {{expected.bytes, "/a", "/b"}});
        p.form.run("Picture4_Click");
        EXPECT_EQ(p.form.StatusBar1.panel(4), expected.text);
        EXPECT_EQ(p.form.StatusBar1.panel(3), "相同文件:1");
        EXPECT_EQ(p.form.StatusBar1.panel(5), "100%");
        EXPECT_EQ(p.form.StatusBar1.panel(7), "显示相同文件");
    }
}

TEST(SameView, TheLegendEndsInAFourfoldLine) {
    test_program p;
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.form.find("Picture4")->tooltip,
              "显示最近一次[查相同文件]的结果,选择欲删除的文件。右键<显示选择>菜单.\r\n----------------\r\n"
              "黑色:正常文件;\r\n紫色:压缩包内部文件;\r\n灰色:与上个文件为同一文件\r\n红色:欲删除的文件\r\n"
              "蓝色:因属性原因删不掉的文件\r\n水红:查找到的文件 \r\n空:该文件已删除 \r\n空:该文件已删除 \r\n"
              "空:该文件已删除 \r\n空:该文件已删除 ");
    EXPECT_EQ(p.form.ListView1.help_context, 1015);
}

TEST(SameView, RepaintsOnceAtRowOneHundredAndThinsTheFigures) {
    test_program p;
    p.state.same_fresh_flag = -1;
    std::vector<stored_row> rows;
    for (int i = 0; i < 2500; ++i)
        rows.push_back({1, std::string("/").append(std::to_string(10'000 + i)), "/z"});
    store(p, rows);
    texts shown;
    for (std::int64_t yield = 1; yield <= 2500; ++yield)
        p.screen.acts[yield] = [&] {
            const std::string& words = p.form.StatusBar1.panel(5);
            if (shown.empty() || shown.back() != words) shown.push_back(words);
        };
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.screen.repaints, 1);
    EXPECT_EQ(shown, (texts{"", "读入:918", "读入:1836", "读取: 40%", "读取: 80%"}));
}

// The rows that the rules keep, one triple after the other.
std::vector<stored_row> kept_rows(test_program& p, const std::vector<stored_row>& rows) {
    std::vector<stored_row> kept;
    const auto is_there = [&p](const std::string& path) {
        return path > " " && (path.find('*') != std::string::npos || p.files.has(path));
    };
    for (const stored_row& row : rows)
        if (is_there(row.path1) && is_there(row.path2)) kept.push_back(row);
    return kept;
}

// What the list shows, in the order of the store.
void expect_shown(test_program& p, std::vector<stored_row> rows) {
    const auto as_text = [](std::int64_t length, const std::string& path1, const std::string& path2) {
        return path1 + "|" + path2 + "|" + std::to_string(length);
    };
    texts expected, shown;
    for (const stored_row& row : rows) expected.push_back(as_text(row.length, row.path1, row.path2));
    const list_view& list = p.form.ListView1;
    for (std::int32_t row = 1; row <= list.row_count(); ++row)
        shown.push_back(as_text(list.number_cell(row, 2), list.cell(row, 3), list.cell(row, 4)));
    std::sort(expected.begin(), expected.end());
    std::sort(shown.begin(), shown.end());
    EXPECT_EQ(shown, expected);
    ASSERT_EQ(p.state.result_length.size(), list.row_count());
    ASSERT_EQ(p.state.result_file1.size(), list.row_count());
    ASSERT_EQ(p.state.result_file2.size(), list.row_count());
}

TEST(SameView, RowsAreKeptAsEachOfThemWouldBeAlone) {
    std::mt19937 dice(18);
    for (int round = 0; round < 40; ++round) {
        test_program p;
        // Few folders and names: paths that repeat in rows side by side, in both columns and across.
        const auto path = [&]() -> std::string {
            const auto kind = dice() % 20;
            if (kind == 0) return dice() % 2 == 0 ? "" : " ";
            std::string text = "/d" + std::to_string(dice() % 3) + "/f" + std::to_string(dice() % 12);
            if (kind == 1) return text + ".zip*member";
            if (kind == 2) return "no folder";
            return text;
        };
        for (int i = 0; i < 36; ++i)
            if (dice() % 3 != 0)
                p.files.add_file("/d" + std::to_string(i % 3) + "/f" + std::to_string(i / 3));
        std::vector<stored_row> rows;
        for (int i = 0; i < 400; ++i) {
            rows.push_back({i, path(), path()});
            while (dice() % 3 == 0) rows.push_back({i, rows.back().path1, path()});
            if (dice() % 5 == 0) rows.push_back({i, path(), rows.back().path2});
        }
        store(p, rows);
        p.form.run("Picture4_Click");
        expect_shown(p, kept_rows(p, rows));
    }
}

TEST(SameView, TheLimitCountsTheRowsThatAreKept) {
    for (const bool one_more : {false, true}) {
        test_program p;
        p.state.limits.result_rows = 2;
        p.files.add_file("/a");
        std::vector<stored_row> rows{
            {1, "/a", "/gone"}, {2, "/a", "/a"}, {3, "/gone", "/a"}, {4, "/a", "/a"}};
        for (int i = 0; i < 3000; ++i) rows.push_back({5, "/a", "/gone"});
        if (one_more) rows.push_back({6, "/a", "/a"});
        store(p, rows);
        p.form.run("Picture4_Click");
        expect_shown(p, {{2, "/a", "/a"}, {4, "/a", "/a"}});
        EXPECT_EQ(p.screen.messages.size(), one_more ? 1u : 0u);
    }
}

TEST(SameView, EventsRunWhileTheStoreIsReadAndNoOtherTask) {
    list_program p;
    std::vector<stored_row> rows;
    for (int i = 0; i < 500; ++i) {
        rows.push_back({1, "/d/" + std::to_string(1000 + i), "/e/" + std::to_string(1000 + i)});
        p.files.add_file(rows.back().path1);
        p.files.add_file(rows.back().path2);
    }
    store(p, rows);
    const std::string stored = p.files.content_of("/prog/相同文件.txt");
    int yields_before_rows = 0;
    p.screen.on_yield = [&] {
        EXPECT_TRUE(p.state.tasks_locked);
        if (p.form.ListView1.row_count() > 0) return;
        ++yields_before_rows;
        p.form.run("Picture4_Click");
        p.form.run("result_refresh");
        p.form.run("Picture5_Click");
        p.form.run("only_disp");
        p.form.run("rewrite_store");
        p.header(2);
        p.form.run("ListView1_DblClick");
    };
    p.form.run("Picture4_Click");
    EXPECT_GE(yields_before_rows, 500 / 50);
    p.screen.on_yield = {};
    expect_shown(p, rows);
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"), stored) << "the store is as it was";
}

TEST(SameView, AFileThatGoesWhileTheStoreIsReadTakesItsRowsAlong) {
    test_program p;
    std::vector<stored_row> rows;
    for (int i = 0; i < 100; ++i) rows.push_back({1, "/d/a" + std::to_string(i), "/d/b" + std::to_string(i)});
    for (const stored_row& row : rows) {
        p.files.add_file(row.path1);
        p.files.add_file(row.path2);
    }
    store(p, rows);
    p.screen.acts[1] = [&] { p.files.erase("/d/b7"); };
    p.form.run("Picture4_Click");
    rows.erase(rows.begin() + 7);
    expect_shown(p, rows);
}

TEST(SameView, AProgramThatClosesAtAnyYieldOfTheLoadShowsNothingMore) {
    std::int64_t yields = 1;
    for (std::int64_t at = 1; at <= yields; ++at) {
        test_program p;
        std::vector<stored_row> rows;
        for (int i = 0; i < 120; ++i) rows.push_back({1, "/d/" + std::to_string(i), "/e"});
        for (const stored_row& row : rows) p.files.add_file(row.path1);
        p.files.add_file("/e");
        store(p, rows);
        const std::string before = p.files.content_of("/prog/相同文件.txt");
        p.screen.acts[at] = [&] { p.form.run("exit_sub"); };
        p.form.run("Picture4_Click");
        EXPECT_EQ(p.screen.ended, true);
        EXPECT_TRUE(p.screen.messages.empty());
        EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"), before);
        // Two while it reads, one that asks the disk, three around the order of the rows.
        yields = 6;
        EXPECT_EQ(p.form.ListView1.row_count(), 0) << at;
    }
}

TEST(SameView, RowsBeyondTheLimitAreLeftOutAndSaidOnce) {
    test_program p;
    p.state.same_fresh_flag = -1;
    p.state.limits.result_rows = 2;
    store(p, {{1, "/a", "/b"}, {1, "/c", "/d"}, {1, "/e", "/f"}});
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.form.ListView1.row_count(), 2);
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(SameView, ATruncatedStoreShowsItsWholeTriples) {
    test_program p;
    p.state.same_fresh_flag = -1;
    p.files.add_file("/prog/相同文件.txt", "title\r\n 9 \r\n 5 \r\n/a\r\n/b\r\n 6 \r\n/c");
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.form.ListView1.row_count(), 1);
}

TEST(SameView, ABinaryStoreIsSurvived) {
    std::string noise;
    std::uint32_t state = 12345;
    for (int i = 0; i < 200'000; ++i)
        noise += static_cast<char>((state = state * 1664525u + 1013904223u) >> 24);
    for (const std::int16_t fresh : {std::int16_t{0}, std::int16_t{-1}}) {
        test_program p;
        p.state.same_fresh_flag = fresh;
        p.files.add_file("/prog/相同文件.txt", noise);
        p.form.run("Picture4_Click");
        EXPECT_TRUE(p.form.pictures[4]->enabled);
    }
}

TEST(SameView, ClosingStopsTheLoad) {
    test_program p;
    p.state.same_fresh_flag = -1;
    p.state.quit_requested = -1;
    store(p, {{1, "/a", "/b"}});
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.form.ListView1.row_count(), 0);
}

TEST(SameView, AFailedLoadLeavesNothingOfTheViewBefore) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{10, "/a", "/b"}});
    p.form.run("Picture4_Click");
    ASSERT_TRUE(p.form.ListView1.visible);
    p.files.erase("/prog/相同文件.txt");
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.form.ListView1.row_count(), 0);
    EXPECT_FALSE(p.form.ListView1.visible);
    EXPECT_EQ(p.state.same_count, 0);
    p.screen.texts = {"a"};
    p.form.run("only_disp");
    p.screen.texts = {"none"};
    p.form.run("not_list");
    EXPECT_EQ(p.form.ListView1.row_count(), 0);
}

TEST(SameView, ShowingAResultLeavesTheListOfASearchWhole) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "x");
    p.search({"/d"});
    p.state.same_fresh_flag = -1;
    store(p, {{10, "/x/1", "/x/2"}});
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.state.file_list_loaded, -1);
    EXPECT_EQ(p.listed(), (texts{"/d/a", "/d/b"}));
}

TEST(SameView, AskedForWhileItsRowsAreFilledIsRefused) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{10, "/a", "/b"}, {20, "/c", "/d"}, {30, "/e", "/f"}});
    p.screen.acts[1] = [&] {
        p.files.erase("/prog/相同文件.txt");
        p.form.run("load_same_view");
        p.form.run("rewrite_store");
    };
    p.form.run("Picture4_Click");
    EXPECT_EQ(p.form.ListView1.row_count(), 3);
    EXPECT_EQ(p.state.same_count, 3);
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_FALSE(p.files.has("/prog/相同文件.txt"));
}

}  // namespace
}  // namespace corvane
