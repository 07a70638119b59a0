#include "browser/list_acts.h"

#include <gtest/gtest.h>

#include "tests/browser/list_program.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

TEST(LocateColumn, FollowsTheWidthsOfTheColumns) {
    five_rows p;
    // Widths 100, 700, 900, 4950, 4950.
    const std::vector<std::pair<int, int>> places = {{0, 1},    {99, 1},   {100, 1},  {799, 1},  {800, 2},
                                                     {1699, 2}, {1700, 3}, {6649, 3}, {6650, 4}, {99999, 4}};
    for (const auto& [x, column] : places) {
        p.form.list_event.x = x;
        locate_column(p.form);
        EXPECT_EQ(p.state.clicked_column, column) << x;
    }
    p.list().set_column_width(2, 2000);  // as the user may
    p.form.list_event.x = 1700;
    locate_column(p.form);
    EXPECT_EQ(p.state.clicked_column, 2);
}

TEST(LocateColumn, AnEmptyListKeepsTheColumn) {
    list_program p;
    p.state.clicked_column = 3;
    p.form.list_event.x = 0;
    locate_column(p.form);
    EXPECT_EQ(p.state.clicked_column, 3);
    EXPECT_EQ(p.state.clicked_row, 0);
}

TEST(MouseDown, NamesTheViewInPanel7) {
    const char* const names[] = {"选择要删除重复文件", "选择要删除空目录", "显示不相同文件",
                                 "显示相同_文件名", "显示同名目录"};
    for (int mode = 0; mode <= 4; ++mode) {
        five_rows p;
        p.state.list_mode = static_cast<std::int16_t>(mode);
        p.press(1, 3);
        EXPECT_EQ(p.form.StatusBar1.panel(7), names[mode]);
    }
}

TEST(DoubleClick, MarksACellAndTakesThePartnersMark) {
    five_rows p;
    p.double_click(4, 3);
    EXPECT_EQ(p.list().colour(4, 3), red);
    p.double_click(4, 4);
    EXPECT_EQ(p.list().colour(4, 4), red);
    EXPECT_EQ(p.list().colour(4, 3), black);
    p.double_click(4, 4);
    EXPECT_EQ(p.list().colour(4, 4), black);
    EXPECT_EQ(p.list().selected_row, 0);
}

TEST(DoubleClick, AGrayCellStaysGrayAndClearsThePartnersMark) {
    five_rows p;
    p.double_click(2, 4);
    EXPECT_EQ(p.list().colour(2, 4), red);
    EXPECT_EQ(p.list().colour(2, 3), gray);
    p.double_click(2, 3);
    EXPECT_EQ(p.list().colour(2, 3), gray);
    EXPECT_EQ(p.list().colour(2, 4), black);
}

TEST(DoubleClick, OnAMemberOfAnArchiveGoesBackToPurple) {
    five_rows p;
    EXPECT_EQ(p.list().colour(5, 3), purple);
    p.double_click(5, 3);
    EXPECT_EQ(p.list().colour(5, 3), red);
    p.double_click(5, 4);
    EXPECT_EQ(p.list().colour(5, 3), purple);
    EXPECT_EQ(p.list().colour(5, 4), red);
    p.double_click(5, 4);
    EXPECT_EQ(p.list().colour(5, 4), purple);
}

TEST(DoubleClick, BlueAndFoundCellsBecomeRed) {
    five_rows p;
    p.list().set_colour(4, 3, mark_blue);
    p.double_click(4, 3);
    EXPECT_EQ(p.list().colour(4, 3), red);
    p.list().set_colour(1, 3, colour_found);
    p.double_click(1, 3);
    EXPECT_EQ(p.list().colour(1, 3), red);
}

TEST(DoubleClick, ARowWithABlankCellIsRefused) {
    for (const int blank : {3, 4}) {
        for (const int clicked : {3, 4}) {
            five_rows p;
            p.list().set_text(4, blank, blank == 3 ? " " : "  ");
            p.double_click(4, clicked);
            EXPECT_EQ(p.last_message(), "两边不能都删除,须保留一个");
            EXPECT_EQ(p.list().colour(4, 3), black);
            EXPECT_EQ(p.list().colour(4, 4), black);
        }
    }
}

TEST(DoubleClick, TheTwoTestsForBlankDiffer) {
    five_rows p;
    // One blank and a sign that sorts below the second blank of the other test.
    p.list().set_text(4, 3, " \x01");
    p.double_click(4, 3);
    EXPECT_EQ(p.list().colour(4, 3), red) << "greater than one blank";
    p.list().set_text(4, 4, " \x01");
    p.double_click(4, 4);
    EXPECT_EQ(p.list().colour(4, 4), black) << "not greater than two blanks";
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(DoubleClick, LeftOfThePathsShowsTheRowPanelAndMarksNothing) {
    five_rows p;
    for (const int column : {1, 2}) {
        p.form.Frame4.visible = false;
        p.double_click(4, column);
        EXPECT_TRUE(p.form.Frame4.visible);
        EXPECT_EQ(p.form.Frame4.caption, "显示第 4 条");
        EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, purple}));
    }
}

TEST(DoubleClick, WithoutASelectedRowDoesNothing) {
    five_rows p;
    p.double_click(0, 3);
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, purple}));
}

TEST(ShiftRange, TogglesTheColumnAndClearsTheOther) {
    five_rows p;
    p.double_click(4, 3);
    p.press(1, 4);
    p.press(4, 4, true);
    EXPECT_EQ(p.colours(4), (colour_row{red, red, red, red, purple}));
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, purple}));
    EXPECT_EQ(p.state.anchor_row, 4);
    EXPECT_EQ(p.list().selected_row, 0);
}

TEST(ShiftRange, AGrayCellStaysGray) {
    five_rows p;
    p.press(4, 3);
    p.press(1, 3, true);
    EXPECT_EQ(p.colours(3), (colour_row{red, gray, gray, red, purple}));
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, black, purple}));
}

TEST(ShiftRange, ARedCellInsideGoesOffABlueOneRedOneOutsideStays) {
    five_rows p;
    p.double_click(1, 4);
    p.double_click(2, 4);
    p.list().set_colour(3, 4, mark_blue);
    p.press(2, 4);
    p.press(4, 4, true);
    EXPECT_EQ(p.colours(4), (colour_row{red, black, red, red, purple}));
}

TEST(ShiftRange, WithoutAnAnchorOrOnTheAnchorMarksNothing) {
    five_rows p;
    p.press(3, 4, true);
    EXPECT_EQ(p.state.anchor_row, 0);
    p.press(3, 4);
    p.press(3, 4, true);
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, black, purple}));
    EXPECT_EQ(p.state.anchor_row, 3);
}

TEST(ShiftRange, AnAnchorFromALongerListIsCutToTheRows) {
    five_rows p;
    p.state.anchor_row = 4000;
    p.press(4, 4, true);
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, red, red}));
}

TEST(ShiftRange, InOtherModesMarksTheirOwnColumn) {
    five_rows p;
    p.state.list_mode = 2;
    p.press(1, 4);
    p.press(2, 1, true);
    EXPECT_EQ(p.colours(4), (colour_row{red, red, black, black, purple}));
    EXPECT_EQ(p.list().colour(2, 3), gray);
    p.state.list_mode = 3;
    p.press(1, 4);
    p.press(3, 4, true);
    EXPECT_EQ(p.colours(4), (colour_row{red, red, black, black, purple}));
}

TEST(RightButton, OpensTheMenuOnAPathColumnOnly) {
    five_rows p;
    p.right_press(4, 2);
    EXPECT_EQ(p.form.popup_menu, "");
    EXPECT_FALSE(p.form.find("all_select")->enabled);
    p.right_press(4, 3);
    EXPECT_EQ(p.form.popup_menu, "reprod");
    for (const char* entry :
         {"all_select", "all_not_select", "open_same_file", "same_time_open_2file", "double_disp",
          "disp_same_file_attr", "search_in_result", "again_search", "only_disp", "not_list"})
        EXPECT_TRUE(p.form.find(entry)->enabled) << entry;
    EXPECT_EQ(p.state.clicked_row, 4);
}

TEST(RightButton, DisablesByMode) {
    five_rows p;
    p.state.list_mode = 1;
    p.right_press(1, 3);
    EXPECT_EQ(p.form.popup_menu, "reprod");
    EXPECT_FALSE(p.form.find("only_disp")->enabled);
    EXPECT_TRUE(p.form.find("all_select")->enabled);
    p.state.list_mode = 4;
    p.right_press(1, 1);
    EXPECT_EQ(p.form.popup_menu, "");
    p.right_press(1, 2);
    EXPECT_EQ(p.form.popup_menu, "reprod");
    EXPECT_FALSE(p.form.find("all_select")->enabled);
    p.state.list_mode = 3;
    p.right_press(1, 2);
    EXPECT_EQ(p.form.popup_menu, "");
    p.right_press(1, 3);
    EXPECT_EQ(p.form.popup_menu, "reprod");
    EXPECT_FALSE(p.form.find("all_select")->enabled) << "as they stand";
}

TEST(RightButton, AmongDifferentFilesOpensTheFile) {
    five_rows p;
    p.state.list_mode = 2;
    p.right_press(4, 4);
    EXPECT_EQ(p.desktop.calls, texts{"open /e/4"});
    EXPECT_EQ(p.form.popup_menu, "");
    p.right_press(4, 3);
    EXPECT_EQ(p.desktop.calls.size(), 1u);
}

TEST(Click, AnOpenPanelFollowsTheSelection) {
    five_rows p;
    p.list().selected_row = 2;
    p.form.run("ListView1_Click");
    EXPECT_FALSE(p.form.Frame4.visible);
    p.double_click(4, 1);
    p.list().selected_row = 2;
    p.form.run("ListView1_Click");
    EXPECT_EQ(p.form.Frame4.caption, "显示第 2 条");
    EXPECT_EQ(p.state.clicked_row, 2);
}

TEST(Click, InHelpModeOpensTheTopic) {
    five_rows p;
    p.form.mouse_pointer = 14;
    p.form.run("ListView1_Click");
    EXPECT_EQ(p.desktop.calls, texts{"help aux15_Corvane帮助_Link.htm"});
}

TEST(KeyDown, DeleteRunsTheDeletionOfTheMode) {
    five_rows p;
    int recycled = 0, emptied = 0;
    p.form.bind("delete_marked_recycle", [&] { ++recycled; });
    p.form.bind("Picture8_Click", [&] { ++emptied; });
    p.key(46);
    p.key(46, true);
    p.key(46, false, true);
    EXPECT_EQ(recycled, 1);
    p.state.list_mode = 1;
    p.key(46);
    EXPECT_EQ(emptied, 1);
    p.state.list_mode = 3;
    p.key(46);
    EXPECT_EQ(p.last_message(), "因文件内容不一定相同,请在资源管理器中选择删除");
    p.state.list_mode = 2;
    p.key(46);
    EXPECT_EQ(recycled + emptied, 2);
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(KeyDown, CtrlFAndF3Find) {
    five_rows p;
    int asked = 0, again = 0;
    p.form.bind("search_in_result", [&] { ++asked; });
    p.form.bind("again_search", [&] { ++again; });
    p.key(70, true);
    p.key(70);
    p.key(114);
    p.key(114, true, true);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(again, 2);
}

TEST(SelectAll, MarksTheClickedColumnOfAllRows) {
    five_rows p;
    p.right_press(4, 4);
    p.form.run("all_select");
    EXPECT_EQ(p.colours(4), (colour_row{red, red, red, red, red}));
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, black})) << "purple is wiped";
    EXPECT_EQ(p.state.anchor_row, 1);
    p.right_press(4, 3);
    p.form.run("all_select");
    EXPECT_EQ(p.colours(3), (colour_row{red, gray, gray, red, red}));
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, black, black}));
    p.form.run("all_not_select");
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, black}));
}

TEST(SelectAll, OnAnotherColumnDoesNothing) {
    five_rows p;
    p.press(4, 2);
    p.form.run("all_select");
    p.form.run("all_not_select");
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, purple}));
}

TEST(SelectAll, AfterItAShiftClickStartsAtTheFirstRow) {
    five_rows p;
    p.right_press(4, 4);
    p.form.run("all_not_select");
    p.press(3, 4, true);
    EXPECT_EQ(p.colours(4), (colour_row{red, red, red, black, black}));
}

TEST(SelectAll, OnAHiddenListIsRefused) {
    five_rows p;
    p.press(1, 3);
    for (const char* handler : {"all_select", "all_not_select"}) {
        p.list().visible = true;
        p.list().set_colour(4, 3, red);
        p.list().visible = false;
        p.screen.messages.clear();
        const auto before = p.colours(3);
        p.form.run(handler);
        EXPECT_EQ(p.colours(3), before);
        EXPECT_EQ(p.last_message(), "列表没有显示,请先显示结果");
    }
}

TEST(Refresh, LoadsTheSameFileViewAnew) {
    five_rows p;
    for (const char* path : {"/d/a", "/e/1", "/e/2"}) p.files.add_file(path, "0123456789");
    p.double_click(1, 4);
    p.form.run("result_refresh");
    EXPECT_EQ(p.cells(4), (texts{"/e/1", "/e/2", "/d/y.zip*n"}));
    EXPECT_EQ(p.list().colour(1, 4), black);
}

}  // namespace
}  // namespace corvane
