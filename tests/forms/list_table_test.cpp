// ListView1 on the screen: texts, colours, selection, a million rows.
#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <cmath>

#include "core/tasks/progress.h"
#include "forms/colours.h"
#include "forms/list_model.h"
#include "forms/list_table.h"
#include "forms/main_window.h"
#include "forms/menu_bar.h"
#include "tests/forms/pairs_shown.h"
#include "tests/forms/processor_time.h"

namespace corvane {
namespace {
TEST(list_table, shows_texts_numbers_and_headers) {
    forms_program shown;
    shown.show_pairs(3);
    list_model& cells = shown.windows.main().list().cells();
    ASSERT_EQ(cells.rowCount(), 3);
    ASSERT_EQ(cells.columnCount(), 5);
    EXPECT_EQ(cells.headerData(3, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("重复文件1"));
    EXPECT_EQ(cells.text(1, 1), QStringLiteral("2"));
    EXPECT_EQ(cells.text(1, 2), QStringLiteral("15838"));
    EXPECT_EQ(cells.text(0, 3), QStringLiteral("/home/li/照片/2023/夏天/图片_1.jpg"));
    EXPECT_EQ(cells.text(0, 0), QString());
}

TEST(list_table, the_selection_goes_both_ways) {
    forms_program shown;
    shown.show_pairs(10);
    list_table& table = shown.windows.main().list();
    int& clicks = shown.count_runs("ListView1_Click");
    const QRect cell = table.visualRect(table.model()->index(4, 3));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(shown.form.ListView1.selected_row, 5);
    EXPECT_EQ(clicks, 1);
    shown.form.ListView1.selected_row = 2;
    shown.windows.sync();
    EXPECT_EQ(table.currentIndex().row(), 1);
    shown.form.ListView1.selected_row = 0;
    shown.windows.sync();
    EXPECT_FALSE(table.selectionModel()->hasSelection());
}

TEST(list_table, a_double_click_marks_the_cell_under_the_pointer) {
    pairs_shown shown;
    QTest::mouseDClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(3, 4));
    EXPECT_EQ(shown.colour(3, 4), cell_colour::mark_red);
    EXPECT_EQ(shown.colour(3, 3), cell_colour::colour_text);
    QTest::mouseDClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(3, 3));
    EXPECT_EQ(shown.colour(3, 3), cell_colour::mark_red);
    EXPECT_EQ(shown.colour(3, 4), cell_colour::colour_text);
    // At both edges of the cell as well.
    const QRect cell = shown.table.visualRect(shown.table.model()->index(5, 4));
    QTest::mouseDClick(shown.table.viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(1, 3));
    EXPECT_EQ(shown.colour(6, 4), cell_colour::mark_red);
    QTest::mouseDClick(shown.table.viewport(), Qt::LeftButton, {}, cell.topRight() + QPoint(-1, 3));
    EXPECT_EQ(shown.colour(6, 4), cell_colour::colour_text);
}

TEST(list_table, a_column_that_the_user_made_wider_is_hit_where_it_stands) {
    pairs_shown shown;
    shown.table.setColumnWidth(2, 240);
    shown.settle();
    QTest::mouseDClick(shown.table.viewport(), Qt::LeftButton, {},
                       QPoint(shown.table.columnViewportPosition(2) + 230, shown.centre(2, 3).y()));
    EXPECT_EQ(shown.form.state.clicked_column, 2);
    EXPECT_TRUE(shown.form.Frame4.visible);
    QTest::mouseDClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(2, 3));
    EXPECT_EQ(shown.form.state.clicked_column, 3);
}

TEST(list_table, a_shift_press_marks_the_range) {
    pairs_shown shown;
    QTest::mouseClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(2, 4));
    QTest::mouseClick(shown.table.viewport(), Qt::LeftButton, Qt::ShiftModifier, shown.centre(5, 4));
    for (int row = 1; row <= 6; ++row)
        EXPECT_EQ(shown.colour(row, 4) == cell_colour::mark_red, row >= 2 && row <= 5) << row;
}

TEST(list_table, the_right_button_opens_the_menu_at_the_press) {
    pairs_shown shown;
    QTest::mouseClick(shown.table.viewport(), Qt::RightButton, {}, shown.centre(2, 3));
    QMenu* menu = shown.windows.main().menus().popup("reprod");
    ASSERT_TRUE(menu->isVisible());
    EXPECT_EQ(shown.form.state.clicked_row, 2);
    menu->close();
    QTest::mouseClick(shown.table.viewport(), Qt::RightButton, {}, shown.centre(2, 1));
    EXPECT_FALSE(menu->isVisible());
}

TEST(list_table, keys_move_mark_and_open_the_menu) {
    pairs_shown shown;
    QTest::mouseClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(2, 3));
    QTest::keyClick(&shown.table, Qt::Key_Down);
    QTest::keyClick(&shown.table, Qt::Key_Right);
    QTest::keyClick(&shown.table, Qt::Key_Space);
    EXPECT_EQ(shown.colour(3, 4), cell_colour::mark_red);
    EXPECT_EQ(shown.table.currentIndex().row(), 2) << "the keys go on from there";
    QTest::keyClick(&shown.table, Qt::Key_Return);
    EXPECT_EQ(shown.colour(3, 4), cell_colour::colour_text);
    for (int step = 0; step < 3; ++step) QTest::keyClick(&shown.table, Qt::Key_Down);
    QTest::keyClick(&shown.table, Qt::Key_Space, Qt::ShiftModifier);
    for (int row = 3; row <= 6; ++row) EXPECT_EQ(shown.colour(row, 4), cell_colour::mark_red) << row;
    QContextMenuEvent menu_key(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(&shown.table, &menu_key);
    QMenu* menu = shown.windows.main().menus().popup("reprod");
    EXPECT_TRUE(menu->isVisible());
    menu->close();
}

TEST(list_table, on_a_number_column_the_mark_key_means_the_first_path) {
    pairs_shown shown;
    QTest::mouseClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(4, 1));
    QTest::keyClick(&shown.table, Qt::Key_Space);
    EXPECT_EQ(shown.colour(4, 3), cell_colour::mark_red);
}

TEST(list_table, delete_and_find_keys_reach_their_handlers) {
    pairs_shown shown;
    int& deletions = shown.count_runs("delete_marked_recycle");
    int& finds = shown.count_runs("search_in_result");
    int& again = shown.count_runs("again_search");
    QTest::keyClick(&shown.table, Qt::Key_Delete);
    QTest::keyClick(&shown.table, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(&shown.table, Qt::Key_F3);
    EXPECT_EQ(deletions, 1);
    EXPECT_EQ(finds, 1);
    EXPECT_EQ(again, 1);
}

TEST(list_table, a_found_row_comes_into_view) {
    pairs_shown shown(500);
    shown.form.ListView1.reveal_row = 400;
    shown.windows.sync();
    EXPECT_TRUE(shown.table.viewport()->rect().contains(shown.centre(400, 3)));
    EXPECT_EQ(shown.form.ListView1.reveal_row, 0);
}

TEST(list_table, what_was_found_is_the_current_cell_and_the_mark_key_marks_it) {
    pairs_shown shown;
    QTest::mouseClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(2, 3));
    shown.form.ListView1.set_colour(5, 4, cell_colour::colour_found);
    shown.form.ListView1.reveal_row = 5;
    shown.windows.sync();
    shown.windows.sync();
    EXPECT_EQ(shown.table.currentIndex().row(), 4);
    EXPECT_EQ(shown.table.currentIndex().column(), 4);
    QTest::keyClick(&shown.table, Qt::Key_Space);
    EXPECT_EQ(shown.colour(5, 4), cell_colour::mark_red);
    EXPECT_EQ(shown.colour(2, 3), cell_colour::colour_text);
}

TEST(list_table, the_current_cell_is_framed_also_when_its_row_is_not_selected) {
    pairs_shown shown;
    QTest::mouseClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(3, 3));
    shown.form.ListView1.selected_row = 0;
    shown.windows.sync();
    shown.windows.main().activateWindow();
    shown.table.setFocus();
    shown.settle();
    const QRect cell = shown.table.visualRect(shown.table.model()->index(2, 3));
    const QImage picture = shown.picture(shown.table.viewport());
    const QRect other = shown.table.visualRect(shown.table.model()->index(4, 3));
    const qreal scale = picture.devicePixelRatio();
    EXPECT_NE(picture.pixelColor((QPointF(cell.center().x(), cell.top() + 1) * scale).toPoint()),
              picture.pixelColor((QPointF(other.center().x(), other.top() + 1) * scale).toPoint()));
}

TEST(list_table, a_header_click_shows_the_direction) {
    pairs_shown shown;
    const auto click = [&] {
        const int x = shown.table.columnViewportPosition(2) + shown.table.columnWidth(2) / 2;
        QTest::mouseClick(shown.table.horizontalHeader()->viewport(), Qt::LeftButton, {},
                          QPoint(x, shown.table.horizontalHeader()->height() / 2));
    };
    click();
    EXPECT_TRUE(shown.table.horizontalHeader()->isSortIndicatorShown());
    EXPECT_EQ(shown.table.horizontalHeader()->sortIndicatorOrder(), Qt::AscendingOrder);
    for (int row = 2; row <= 10; ++row)
        EXPECT_LE(shown.form.ListView1.number_cell(row - 1, 2), shown.form.ListView1.number_cell(row, 2));
    click();
    EXPECT_EQ(shown.table.horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST(list_table, a_header_click_is_told) {
    forms_program shown;
    shown.show_pairs(2);
    list_table& table = shown.windows.main().list();
    int& runs = shown.count_runs("ListView1_ColumnClick");
    const int x = table.columnViewportPosition(2) + table.columnWidth(2) / 2;
    QTest::mouseClick(table.horizontalHeader()->viewport(), Qt::LeftButton, {},
                      QPoint(x, table.horizontalHeader()->height() / 2));
    EXPECT_EQ(runs, 1);
}

TEST(list_table, the_path_columns_share_the_width) {
    forms_program shown;
    shown.show_pairs(2);
    list_table& table = shown.windows.main().list();
    shown.windows.main().resize(1400, 700);
    shown.settle();
    EXPECT_EQ(shown.form.ListView1.columns()[3].width, (shown.form.ListView1.place.width - 2100) / 2);
    EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
}

TEST(list_table, rows_that_a_task_adds_are_taken_over_and_rows_that_go_leave) {
    forms_program shown;
    shown.show_pairs(5);
    list_model& cells = shown.windows.main().list().cells();
    shown.form.ListView1.add_row();
    shown.windows.sync();
    EXPECT_EQ(cells.rowCount(), 6);
    shown.form.ListView1.clear_rows();
    shown.windows.sync();
    EXPECT_EQ(cells.rowCount(), 0);
}

TEST(list_table, cells_of_rows_that_have_gone_are_empty_until_the_next_copy) {
    forms_program shown;
    shown.show_pairs(5);
    list_model& cells = shown.windows.main().list().cells();
    shown.form.ListView1.clear_rows();
    EXPECT_EQ(cells.text(4, 3), QString());
    shown.form.ListView1.clear_columns();
    EXPECT_EQ(cells.text(4, 3), QString());
    EXPECT_EQ(cells.colour(4, 3), cell_colour::colour_text);
}

TEST(list_table, a_million_rows_show_and_scroll_at_once) {
    forms_program shown;
    shown.show_pairs(10);
    list_view& list = shown.form.ListView1;
    list.reserve_rows(1'000'000);
    for (std::int32_t row = list.row_count(); row < 1'000'000; ++row) list.add_row();
    list.set_text(1'000'000, 3, "/the/last/one");
    const processor_time spent;
    shown.windows.sync();
    list_table& table = shown.windows.main().list();
    table.grab();
    table.scrollToBottom();
    table.grab();
    EXPECT_LT(spent.milliseconds(), 1000);
    EXPECT_EQ(table.model()->rowCount(), 1'000'000);
    EXPECT_GE(table.rowAt(table.viewport()->height() - 2), 999'990);
}

TEST(list_table, filling_rows_under_a_lock_stays_cheap) {
    forms_program shown;
    shown.show_pairs(10);
    lock_tasks(shown.form);
    const processor_time spent;
    for (std::int32_t row = 0; row < 200'000; ++row) {
        shown.form.ListView1.add_row();
        if (row % 100 == 0) shown.windows.sync();
    }
    EXPECT_LT(spent.milliseconds(), 3000);
    unlock_tasks(shown.form);
    shown.windows.sync();
    EXPECT_EQ(shown.windows.main().list().cells().rowCount(), 200'010);
}

}  // namespace
}  // namespace corvane
