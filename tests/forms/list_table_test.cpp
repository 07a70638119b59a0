// ListView1 on the screen: texts, colours, selection, a million rows.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>
#include <QTest>
#include <cmath>

#include "core/progress.h"
#include "forms/colours.h"
#include "forms/list_model.h"
#include "forms/list_table.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

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

TEST(list_table, a_red_cell_is_struck_through) {
    forms_program shown;
    shown.show_pairs(2);
    shown.form.ListView1.set_colour(2, 3, cell_colour::mark_red);
    shown.windows.sync();
    list_model& cells = shown.windows.main().list().cells();
    EXPECT_TRUE(cells.data(cells.index(1, 3), list_model::struck_role).toBool());
    EXPECT_FALSE(cells.data(cells.index(0, 3), list_model::struck_role).toBool());
}

double contrast(const QColor& a, const QColor& b) {
    const auto light = [](const QColor& colour) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
    };
    const double high = std::max(light(a), light(b)), low = std::min(light(a), light(b));
    return (high + 0.05) / (low + 0.05);
}

TEST(list_table, every_mark_reads_well_in_both_palettes) {
    for (const QPalette& palette : {light_palette(), dark_palette()})
        for (const std::uint32_t cell :
             {cell_colour::colour_text, cell_colour::window_text, cell_colour::colour_archive,
              cell_colour::colour_gray, cell_colour::mark_red, cell_colour::mark_blue,
              cell_colour::colour_found})
            EXPECT_GE(contrast(cell_text_colour(cell, palette), palette.color(QPalette::Base)), 4.5) << cell;
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

TEST(list_table, acts_are_told_with_row_and_column) {
    forms_program shown;
    shown.show_pairs(10);
    list_table& table = shown.windows.main().list();
    std::vector<list_act> acts;
    table.list_input = [&acts](const list_act& what) { acts.push_back(what); };
    int& doubles = shown.count_runs("ListView1_DblClick");
    const QPoint place = table.visualRect(table.model()->index(2, 4)).center();
    QTest::mouseClick(table.viewport(), Qt::RightButton, Qt::ShiftModifier, place);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
    QTest::keyClick(&table, Qt::Key_Delete);
    ASSERT_GE(acts.size(), 3u);
    EXPECT_EQ(acts.front().what, list_act::press);
    EXPECT_EQ(acts.front().row, 3);
    EXPECT_EQ(acts.front().column, 4);
    EXPECT_EQ(acts.front().button, 2);
    EXPECT_TRUE(acts.front().shift);
    EXPECT_EQ(acts.back().key_code, 46);
    EXPECT_EQ(doubles, 1);
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
    QElapsedTimer clock;
    shown.show_pairs(10);
    list_view& list = shown.form.ListView1;
    list.reserve_rows(1'000'000);
    for (std::int32_t row = list.row_count(); row < 1'000'000; ++row) list.add_row();
    list.set_text(1'000'000, 3, "/the/last/one");
    clock.start();
    shown.windows.sync();
    list_table& table = shown.windows.main().list();
    table.grab();
    table.scrollToBottom();
    table.grab();
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_EQ(table.model()->rowCount(), 1'000'000);
    EXPECT_GE(table.rowAt(table.viewport()->height() - 2), 999'990);
}

TEST(list_table, filling_rows_under_a_lock_stays_cheap) {
    forms_program shown;
    shown.show_pairs(10);
    lock_tasks(shown.form);
    QElapsedTimer clock;
    clock.start();
    for (std::int32_t row = 0; row < 200'000; ++row) {
        shown.form.ListView1.add_row();
        if (row % 100 == 0) shown.windows.sync();
    }
    EXPECT_LT(clock.elapsed(), 3000);
    unlock_tasks(shown.form);
    shown.windows.sync();
    EXPECT_EQ(shown.windows.main().list().cells().rowCount(), 200'010);
}

}  // namespace
}  // namespace corvane
