// Undo and redo bring colours back on rows that still say the same, and on no others.
#include "browser/mark_history.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(UndoMarks, StepByStepAndForthAgain) {
    five_rows p;
    p.double_click(1, 4);
    p.double_click(4, 3);
    p.press(2, 4);
    p.press(3, 4, true);
    EXPECT_EQ(p.colours(4), (colour_row{red, red, red, black, purple}));
    p.form.run("undo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{red, black, black, black, purple}));
    p.form.run("undo_marks");
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, purple}));
    p.form.run("undo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, black, purple}));
    p.form.run("undo_marks");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "没有可撤销的标记");
    for (int step = 0; step < 3; ++step) p.form.run("redo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{red, red, red, black, purple}));
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, red, purple}));
    EXPECT_EQ(p.form.StatusBar1.panel(5), "已重做,标记:4");
    p.form.run("redo_marks");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "没有可重做的标记");
}

TEST(UndoMarks, ANewMarkEndsWhatCouldBeRedone) {
    five_rows p;
    p.double_click(1, 4);
    p.form.run("undo_marks");
    p.double_click(4, 4);
    p.form.run("redo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, red, purple}));
}

TEST(UndoMarks, AClickThatChangesNothingIsNoStep) {
    five_rows p;
    p.double_click(1, 4);
    p.press(2, 4);
    p.double_click(2, 3);  // a gray cell; its partner has no mark
    p.form.run("undo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, black, purple}));
}

TEST(UndoMarks, AllSelectHasWipedThePurpleOfArchivesWhichComesBack) {
    five_rows p;
    p.right_press(1, 3);
    p.form.run("all_select");
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, black, black}));
    p.form.run("undo_marks");
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, purple}));
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, black, purple}));
}

TEST(UndoMarks, FindsItsRowsAfterASortAndBringsBackWhatTheSortHasWiped) {
    five_rows p;
    p.double_click(4, 3);
    p.double_click(1, 4);
    p.header(2);  // by length: /d/x, /d/b, then the star
    ASSERT_EQ(p.cells(3), (texts{"/d/x.zip*m", "/d/b", "/d/a", "/d/a", "/d/a"}));
    EXPECT_EQ(p.colours(3), (colour_row{purple, black, black, gray, gray}));
    EXPECT_EQ(p.colours(4), (colour_row{purple, black, red, black, black}));
    p.form.run("undo_marks");  // the sort's
    EXPECT_EQ(p.colours(3), (colour_row{purple, red, black, gray, gray}));
    p.form.run("undo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{purple, black, black, black, black}));
    p.form.run("redo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{purple, black, red, black, black}));
}

TEST(UndoMarks, AFoundCellGetsItsMarkBack) {
    five_rows p;
    p.double_click(4, 3);
    p.screen.texts = {"d/b"};
    p.form.run("search_in_result");
    ASSERT_EQ(p.list().colour(4, 3), cell_colour::colour_found);
    p.form.run("undo_marks");
    EXPECT_EQ(p.list().colour(4, 3), red);
}

TEST(UndoMarks, WhatAFilterOrARefreshHasDroppedComesBackOnRowsThatAreThere) {
    deleting p;
    p.show_files({{3, "/d/a.txt", "/d/b.txt"}, {4, "/d/a.jpg", "/d/b.jpg"}});
    p.double_click(1, 4);
    p.double_click(2, 4);
    p.screen.texts = {"*.jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(p.colours(4), colour_row{black});
    p.form.run("undo_marks");
    EXPECT_EQ(p.cells(4), texts{"/d/b.jpg"});
    EXPECT_EQ(p.colours(4), colour_row{red}) << "the step of the filter, as far as there are rows";
    p.form.run("result_refresh");
    EXPECT_EQ(p.colours(4), (colour_row{black, black}));
    p.form.run("undo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{red, black})) << "by path: /d/b.jpg is row 1 now";
}

TEST(UndoMarks, ARowOfWhichAFileHasGoneStaysAsItIs) {
    deleting p;
    p.show_files({{3, "/d/a", "/d/b"}, {4, "/e/a", "/e/b"}});
    p.double_click(1, 4);
    p.run_recycle();
    ASSERT_EQ(p.recycled, texts{"/d/b"});
    p.form.run("undo_marks");
    p.form.run("redo_marks");
    EXPECT_EQ(p.cells(4), (texts{"", "/e/b"}));
    EXPECT_EQ(p.colours(3), (colour_row{black, black}));
    EXPECT_EQ(p.list().marked_cells(), 0);
}

TEST(UndoMarks, AGroupWhoseKeeperHasGoneSinceKeepsAnother) {
    deleting p;
    p.show_files({{3, "/d/c", "/d/m1"}, {3, "/d/c", "/d/m2"}});
    p.mark(1, 3);  // not in the history: the next step starts from here
    p.press(2, 4);
    p.double_click(2, 4);  // c and m2, m1 stays
    p.form.run("clear_marks");
    p.double_click(1, 4);
    p.run_recycle();
    ASSERT_EQ(p.recycled, texts{"/d/m1"});
    p.form.run("undo_marks");
    p.form.run("undo_marks");  // c and m2 again: m1, that was to stay, is gone
    EXPECT_LE(p.list().marked_cells(), 1);
}

TEST(UndoMarks, AnotherViewHasAHistoryOfItsOwn) {
    deleting p;
    p.show_files({{3, "/d/a", "/d/b"}});
    p.double_click(1, 4);
    p.files.add_directory("/x/empty");
    p.select({"/x"});
    p.form.run("Picture6_Click");
    ASSERT_EQ(p.state.list_mode, 1);
    p.form.run("undo_marks");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "没有可撤销的标记");
    EXPECT_EQ(p.list().colour(1, 2), black);
}

TEST(UndoMarks, AnotherResultHasNoHistory) {
    five_rows p;
    p.double_click(1, 4);
    p.show({{10, "/d/a", "/e/1"}});  // fresh
    p.form.run("undo_marks");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "没有可撤销的标记");
    EXPECT_EQ(p.colours(4), colour_row{black});
}

TEST(UndoMarks, IsRefusedWhileATaskWorksOnTheRows) {
    deleting p;
    p.show_files({{3, "/d/a", "/d/b"}, {3, "/d/a", "/d/c"}});
    p.double_click(1, 4);
    p.double_click(2, 4);
    p.screen.acts[p.screen.yields + 1] = [&] { p.form.run("undo_marks"); };
    p.run_recycle();
    EXPECT_EQ(p.recycled, (texts{"/d/b", "/d/c"}));
}

TEST(UndoMarks, NeverMarkAnotherPathAboveAGrayCell) {
    five_rows p;
    p.double_click(4, 3);
    p.form.run("undo_marks");
    p.list().set_colour(4, 3, gray);  // its own path stands nowhere above
    p.form.run("redo_marks");
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, gray, purple}));
}

TEST(UndoMarks, ARowThatIsRefusedKeepsItsOtherMark) {
    deleting p;
    p.show_files({{3, "/d/a", "/p/b"}});
    p.state.protected_folders = {"/p/"};
    ++p.state.protection_revision;
    p.double_click(1, 3);
    ASSERT_EQ(p.colours(3), colour_row{red});
    p.double_click(1, 4);
    EXPECT_EQ(p.form.StatusBar1.panel(5), "受保护,不标记:1");
    EXPECT_EQ(p.colours(3), colour_row{red});
    EXPECT_EQ(p.colours(4), colour_row{black});
}

TEST(UndoMarks, WhatProtectionTookIsAStepSoThatOneOfAGroupStays) {
    deleting p;
    p.show_files({{3, "/d/a", "/d/b"}, {3, "/d/a", "/p/c"}});
    p.double_click(1, 4);
    p.double_click(2, 4);
    p.state.protected_folders = {"/p/"};
    ++p.state.protection_revision;
    p.form.run("unmark_protected");
    ASSERT_EQ(p.colours(4), (colour_row{red, black}));
    p.double_click(1, 4);  // off
    p.double_click(1, 3);  // a: b and c stay
    p.state.protected_folders.clear();
    ++p.state.protection_revision;
    for (int step = 0; step < 5; ++step) {
        p.form.run("undo_marks");
        EXPECT_LE(p.list().marked_cells(), 2);
    }
    for (int step = 0; step < 5; ++step) {
        p.form.run("redo_marks");
        const bool all =
            p.list().colour(1, 3) == red && p.list().colour(1, 4) == red && p.list().colour(2, 4) == red;
        EXPECT_FALSE(all) << "step " << step;
    }
}

// So many marks that they are noted beside the event loop.
struct many_marks : deleting {
    static constexpr std::int32_t rows = 20'001;
    many_marks() {
        std::vector<pair> pairs;
        for (std::int32_t row = 1; row <= rows; ++row) {
            const std::string number = std::to_string(row);
            pairs.push_back({row, "/d/" + number + ".txt", "/e/" + number + (row % 2 ? ".txt" : ".jpg")});
        }
        show(pairs);
        for (std::int32_t row = 1; row <= rows; ++row) mark(row, 4);
    }
};

TEST(UndoMarks, AGreatManyAreNotedWithTheTasksLockedAndComeBack) {
    many_marks p;
    int asides = 0;
    p.screen.on_yield = [&] {
        ++asides;
        EXPECT_TRUE(p.state.tasks_locked);
        p.header(4);
        p.right_press(1, 3);
    };
    p.header(2);
    EXPECT_EQ(p.state.last_sort_column, p.list().columns()[2].header)
        << "what was clicked, and nothing beside it";
    EXPECT_EQ(p.state.remembered.value("sort.0"), "2");
    EXPECT_EQ(p.list().cell(1, 3), "/d/1.txt");
    EXPECT_GE(asides, 3) << "the marks before, the sort, the marks after";
    EXPECT_FALSE(p.state.tasks_locked);
    p.screen.on_yield = nullptr;
    p.screen.texts = {"*.jpg"};
    p.form.run("only_disp");
    ASSERT_EQ(p.list().marked_cells(), 0);
    ASSERT_EQ(p.list().row_count(), 10'000);
    p.form.run("undo_marks");
    EXPECT_EQ(p.list().marked_cells(), 10'000) << "of the rows that are there";
    p.form.run("redo_marks");
    EXPECT_EQ(p.list().marked_cells(), 0);
}

TEST(UndoMarks, AMarkThatComesWhileAGreatManyAreNotedIsLostToNobody) {
    many_marks p;
    p.list().set_colour(7, 4, black);
    p.screen.acts[p.screen.yields + 1] = [&] { p.double_click(7, 4); };
    p.screen.texts = {"*.txt"};
    p.form.run("only_disp");
    ASSERT_EQ(p.list().marked_cells(), 0);
    while (p.form.StatusBar1.panel(5) != "没有可撤销的标记" && p.list().colour(7, 4) != red)
        p.form.run("undo_marks");
    EXPECT_EQ(p.list().colour(7, 4), red);
}

TEST(UndoMarks, AMarkThatGoesWhileTheyAreNotedBehindTheActComesBack) {
    many_marks p;
    const auto before = p.screen.yields;
    p.screen.acts[before + 3] = [&] { p.double_click(5, 4); };  // the marks before, the sort, these behind it
    p.header(2);
    ASSERT_EQ(p.list().marked_cells(), many_marks::rows - 1);
    p.form.run("undo_marks");
    EXPECT_EQ(p.list().marked_cells(), many_marks::rows);
    p.form.run("undo_marks");
    EXPECT_EQ(p.list().marked_cells(), many_marks::rows) << "nothing else was noted";
    EXPECT_EQ(p.form.StatusBar1.panel(5), "没有可撤销的标记");
}

TEST(UndoMarks, AMarkThatComesDuringAFindIsOneStep) {
    many_marks p;
    p.list().set_colour(300, 4, black);
    p.screen.acts[p.screen.yields + 1] = [&] { p.double_click(300, 4); };
    p.screen.texts = {"no such file"};
    p.form.run("search_in_result");
    ASSERT_EQ(p.list().colour(300, 4), red);
    p.form.run("undo_marks");
    EXPECT_EQ(p.list().marked_cells(), many_marks::rows - 1);
    p.form.run("undo_marks");
    EXPECT_EQ(p.list().marked_cells(), many_marks::rows - 1);
}

TEST(UndoMarks, AProgramThatClosesWhileTheyAreNotedMovesNoRows) {
    many_marks p;
    p.screen.on_yield = [&] { p.state.quit_requested = true; };
    p.screen.texts = {"*.jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(p.screen.texts.size(), 1u) << "nothing was asked";
    EXPECT_EQ(p.list().row_count(), many_marks::rows);
    EXPECT_EQ(p.list().marked_cells(), many_marks::rows);
}

// A program that is closed at each of the moments in which the rows of an act are only looked at.
TEST(UndoMarks, AProgramThatClosesWhileRowsAreLookedAtKeepsTheMarks) {
    for (const char* act : {"ListView1_ColumnClick", "sort_by_freed"})
        for (int moment = 1; moment <= 4; ++moment) {
            many_marks p;
            p.screen.acts[p.screen.yields + moment] = [&] { p.corvane.close(); };
            p.form.list_event = {};
            p.form.list_event.column = 2;
            p.form.run(act);
            p.corvane.close();
            const std::string marks = p.files.content_of("/prog/标记.txt");
            EXPECT_EQ(std::count(marks.begin(), marks.end(), '\n'), 2 + 4 * many_marks::rows + 1)
                << act << ", moment " << moment;
        }
}

}  // namespace
}  // namespace corvane
