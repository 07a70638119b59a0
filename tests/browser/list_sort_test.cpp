#include "browser/list_acts.h"

#include <gtest/gtest.h>

#include "tests/browser/list_program.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

TEST(ColumnClick, GoesUpDownAndUpAgain) {
    five_rows p;
    p.header(2);
    EXPECT_EQ(p.cells(2), (texts{"5", "7", "10", "10", "10"}));
    p.header(2);
    EXPECT_EQ(p.cells(2), (texts{"10", "10", "10", "7", "5"}));
    EXPECT_EQ(p.state.last_sort_column, "");
    p.header(2);
    EXPECT_EQ(p.cells(2), (texts{"5", "7", "10", "10", "10"}));
    EXPECT_EQ(p.state.last_sort_column, "长度");
}

TEST(ColumnClick, AnotherHeadingStartsUpward) {
    five_rows p;
    p.header(2);
    p.header(2);
    p.header(3);
    EXPECT_EQ(p.cells(3), (texts{"/d/a", "/d/a", "/d/a", "/d/b", "/d/x.zip*m"}));
}

TEST(ColumnClick, NumbersSortByValueNotByText) {
    list_program p;
    std::vector<list_program::pair> pairs;
    for (const std::int64_t length : {5'000'000'000LL, 9LL, 10LL, 100LL, 0LL})
        pairs.push_back({length, std::string("/d/").append(std::to_string(length)), "/e"});
    p.show(pairs);
    p.header(2);
    EXPECT_EQ(p.cells(2), (texts{"0", "9", "10", "100", "5000000000"}));
    p.header(1);
    EXPECT_EQ(p.cells(1), (texts{"1", "2", "3", "4", "5"}));
}

TEST(ColumnClick, RecoloursColumn3AndKeepsMarksOfColumn4) {
    five_rows p;
    p.double_click(1, 4);
    p.double_click(4, 3);
    p.double_click(5, 4);
    p.header(4);  // /d/y.zip*n, /e/1, /e/2, /e/3, /e/4
    EXPECT_EQ(p.cells(4), (texts{"/d/y.zip*n", "/e/1", "/e/2", "/e/3", "/e/4"}));
    EXPECT_EQ(p.colours(3), (colour_row{purple, black, gray, gray, black})) << "the red of /d/b is wiped";
    EXPECT_EQ(p.colours(4), (colour_row{purple, red, black, black, black})) << "the member's red as well";
}

TEST(ColumnClick, AGrayCellThatLosesItsNeighbourTurnsPlain) {
    list_program p;
    p.show({{1, "/d/a", "/e/1"}, {1, "/d/a", "/e/3"}, {1, "/d/b", "/e/2"}});
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, black}));
    p.header(4);
    EXPECT_EQ(p.cells(3), (texts{"/d/a", "/d/b", "/d/a"}));
    EXPECT_EQ(p.colours(3), (colour_row{black, black, black}));
}

TEST(ColumnClick, OtherHeadingsAndModeFourSortNothing) {
    five_rows p;
    p.state.list_mode = 4;
    p.header(2);
    EXPECT_EQ(p.cells(2), (texts{"10", "10", "10", "7", "5"}));
    EXPECT_EQ(p.state.last_sort_column, "");
    p.state.list_mode = 0;
    p.header(0);
    EXPECT_EQ(p.cells(2), (texts{"10", "10", "10", "7", "5"}));
}

TEST(ColumnClick, LeavesTheResultColumnsInTheirOrder) {
    five_rows p;
    p.header(2);
    EXPECT_EQ(p.state.result_file1[1], "/d/a");
    EXPECT_EQ(p.state.result_length[5], 5);
}

TEST(ColumnClick, TheSelectionStaysWithItsRow) {
    five_rows p;
    p.list().selected_row = 5;
    p.header(2);
    EXPECT_EQ(p.list().selected_row, 1);
}

// What comes while the rows are ordered finds a task at work.
TEST(ColumnClick, AtItsYieldNoTaskStartsAndMarksMoveAlong) {
    five_rows p;
    int yields = 0;
    p.screen.on_yield = [&] {
        ++yields;
        p.form.run("Picture4_Click");
        p.form.run("Picture5_Click");
        p.form.run("only_disp");
        p.header(4);
        p.double_click(4, 4);  // "/e/4", of length 7
    };
    p.header(2);
    EXPECT_EQ(yields, 1);
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_EQ(p.cells(2), (std::vector<std::string>{"5", "7", "10", "10", "10"}));
    EXPECT_EQ(p.colours(3), (colour_row{purple, black, black, gray, gray}));
    EXPECT_EQ(p.colours(4), (colour_row{purple, red, black, black, black}));
    EXPECT_EQ(p.state.last_sort_column, "长度");
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(ColumnClick, AProgramThatClosesLeavesTheRowsInTheirOrder) {
    five_rows p;
    p.screen.on_yield = [&] { p.form.run("exit_sub"); };
    p.header(2);
    EXPECT_EQ(p.cells(2), (std::vector<std::string>{"10", "10", "10", "7", "5"}));
    EXPECT_TRUE(p.screen.ended);
}

}  // namespace
}  // namespace corvane
