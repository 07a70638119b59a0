// Groups sorted by what they could free.
#include "browser/group_sort.h"

#include <gtest/gtest.h>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

// Three groups: 2 x 10, 3 x 7 and 2 x 20 bytes.
struct three_groups : deleting {
    three_groups() { show_files({{10, "/a", "/a2"}, {7, "/b", "/b2"}, {7, "/b", "/b3"}, {20, "/c", "/c2"}}); }
};

TEST(SortByFreed, TheMostComesFirstAndAGroupStaysTogether) {
    three_groups p;
    p.header(4);
    p.form.run("sort_by_freed");
    EXPECT_EQ(p.cells(3), (texts{"/c", "/b", "/b", "/a"})) << "20, 14, 10";
    EXPECT_EQ(p.colours(3), (colour_row{black, black, gray, black}));
    EXPECT_EQ(p.state.last_sort_column, "");
}

TEST(SortByFreed, KeepsAllMarksAndColours) {
    deleting p;
    p.show_files({{3, "/z.zip*m", "/b"}, {9, "/d", "/e"}, {9, "/d", "/f"}, {9, "/d", "/z.zip*n"}});
    p.double_click(2, 4);
    p.double_click(4, 3);
    ASSERT_EQ(p.colours(3), (colour_row{black, gray, gray, red}));
    p.form.run("sort_by_freed");
    EXPECT_EQ(p.cells(4), (texts{"/e", "/f", "/z.zip*n", "/b"}));
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, red}));
    EXPECT_EQ(p.colours(4), (colour_row{black, red, purple, black}));
}

TEST(SortByFreed, AMarkMovesToTheCellThatIsNotGray) {
    three_groups p;
    p.header(4);
    p.header(4);  // /c2, /b3, /b2, /a2
    ASSERT_EQ(p.cells(4), (texts{"/c2", "/b3", "/b2", "/a2"}));
    p.double_click(2, 3);  // /b, in the row of /b3
    ASSERT_EQ(p.colours(3), (colour_row{black, red, gray, black}));
    p.header(2);  // by length: marks of the first path are wiped
    p.form.run("undo_marks");
    ASSERT_EQ(p.list().marked_cells(), 1);
    p.form.run("sort_by_freed");
    EXPECT_EQ(p.list().marked_cells(), 1);
    EXPECT_EQ(p.list().colour(2, 3), red);
    p.form.run("undo_marks");
    EXPECT_EQ(p.list().marked_cells(), 0) << "also where the marked cell is another row's now";
}

TEST(SortByFreed, RowsOfGoneFilesComeLast) {
    three_groups p;
    p.double_click(4, 4);
    p.run_recycle();
    p.form.run("sort_by_freed");
    EXPECT_EQ(p.cells(3), (texts{"/b", "/b", "/a", "/c"}));
    p.state.clicked_row = 4;
    p.form.StatusBar1.panel(5) = "old";
    p.form.run("group_of_row");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "old");
}

TEST(GroupOfRow, CountsHiddenRowsToo) {
    deleting p;
    p.show_files({{1000, "/a.txt", "/b.jpg"}, {1000, "/a.txt", "/c.txt"}});
    p.screen.texts = {"*.jpg"};
    p.form.run("only_disp");
    p.state.clicked_row = 1;
    p.form.run("group_of_row");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "同组:3 份, 可释放 2.0 KB");
}

TEST(MarkTotal, SaysWhatTheMarksWouldFreeEachFileOnce) {
    three_groups p;
    p.form.run("mark_total");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "没有标记的文件");
    p.double_click(1, 4);
    p.mark(2, 3);
    p.mark(3, 3);  // the same file
    p.form.run("mark_total");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "已标记:2 个文件, 17 字节");
}

TEST(SortByFreed, ARowOfAGoneFileIsNotGrayUnderAnotherPath) {
    three_groups p;
    p.double_click(3, 4);  // of the gray /b
    p.double_click(1, 4);
    p.run_recycle();
    ASSERT_EQ(p.recycled, (texts{"/a2", "/b3"}));
    p.form.run("sort_by_freed");
    EXPECT_EQ(p.cells(3), (texts{"/c", "/b", "/a", "/b"}));
    EXPECT_EQ(p.colours(3), (colour_row{black, black, black, black}));
}

TEST(SortByFreed, AMarkThatComesMeanwhileMovesWithItsRow) {
    three_groups p;
    p.screen.acts[p.screen.yields + 1] = [&] {
        EXPECT_TRUE(p.state.tasks_locked);
        p.double_click(1, 4);  // /a2
        p.double_click(2, 3);  // /b
    };
    p.form.run("sort_by_freed");
    ASSERT_EQ(p.cells(4), (texts{"/c2", "/b2", "/b3", "/a2"}));
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, red}));
    EXPECT_EQ(p.colours(3), (colour_row{black, red, gray, black}));
    EXPECT_FALSE(p.state.tasks_locked);
    p.form.run("undo_marks");
    p.form.run("undo_marks");
    EXPECT_EQ(p.list().marked_cells(), 0);
}

TEST(SortByFreed, AProgramThatClosesMeanwhileLeavesTheRows) {
    three_groups p;
    p.screen.on_yield = [&] { p.state.quit_requested = true; };
    p.form.run("sort_by_freed");
    EXPECT_EQ(p.cells(3), (texts{"/a", "/b", "/b", "/c"}));
}

}  // namespace
}  // namespace corvane
