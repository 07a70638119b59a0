// What the list shows of marks, groups and protection, and the line below it.
#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QTest>

#include "core/tasks/progress.h"
#include "core/tasks/protected_folders.h"
#include "forms/list_model.h"
#include "tests/forms/pairs_shown.h"
#include "tests/forms/processor_time.h"

namespace corvane {
namespace {

TEST(list_marks, a_red_cell_is_struck_through) {
    forms_program shown;
    shown.show_pairs(2);
    shown.form.ListView1.set_colour(2, 3, cell_colour::mark_red);
    shown.windows.sync();
    list_model& cells = shown.windows.main().list().cells();
    EXPECT_TRUE(cells.data(cells.index(1, 3), list_model::struck_role).toBool());
    EXPECT_FALSE(cells.data(cells.index(0, 3), list_model::struck_role).toBool());
}

TEST(list_marks, a_protected_path_has_a_lock_and_says_so) {
    forms_program shown;
    shown.show_pairs(3);
    list_table& table = shown.windows.main().list();
    const auto cell_image = [&] {
        return table.grab(table.visualRect(table.model()->index(0, 3)).translated(table.viewport()->pos()))
            .toImage();
    };
    shown.settle();
    const QImage before = cell_image();
    const QString plain = table.model()->index(0, 3).data(Qt::AccessibleDescriptionRole).toString();
    set_protected_folders(shown.form, {"/home/li/照片/2023/"});
    shown.windows.sync();
    shown.settle();
    list_model& cells = table.cells();
    EXPECT_TRUE(cells.is_protected(0, 3));
    EXPECT_FALSE(cells.is_protected(0, 1)) << "a number";
    EXPECT_EQ(cells.index(0, 3).data(Qt::AccessibleDescriptionRole).toString(),
              QStringLiteral("受保护的文件"));
    EXPECT_NE(cell_image(), before);
    set_protected_folders(shown.form, {});
    shown.windows.sync();
    shown.settle();
    EXPECT_EQ(cell_image(), before);
    EXPECT_EQ(cells.index(0, 3).data(Qt::AccessibleDescriptionRole).toString(), plain);
}

TEST(list_marks, rows_of_a_star_share_a_band_and_the_first_says_what_it_holds) {
    forms_program shown;
    list_view& list = shown.form.ListView1;
    shown.show_pairs(4);
    list.set_text(2, 3, list.cell(1, 3));
    list.set_number(2, 2, list.number_cell(1, 2));
    list.set_colour(2, 3, cell_colour::colour_gray);
    shown.windows.sync();
    shown.settle();
    list_table& table = shown.windows.main().list();
    EXPECT_EQ(table.cells().group_words(0, 3), QStringLiteral("3 份, 15.5 KB"));  // 2 of 7,919 bytes
    EXPECT_EQ(table.cells().group_words(1, 3), QString());
    EXPECT_EQ(table.cells().group_words(0, 4), QString());
    const auto background = [&](int row) {
        const QRect cell = table.visualRect(table.model()->index(row, 1));
        return table.viewport()->grab().toImage().pixelColor(cell.left() + 1, cell.center().y());
    };
    EXPECT_EQ(background(0), background(1));
    EXPECT_NE(background(1), background(2));
    EXPECT_NE(background(2), background(3));
}

TEST(list_marks, the_line_below_the_list_says_what_the_marks_would_free) {
    forms_program shown;
    shown.show_pairs(3);
    auto* line = static_cast<QLabel*>(shown.widget("list_status"));
    ASSERT_TRUE(line->isVisible());
    EXPECT_EQ(line->text(), QStringLiteral("没有标记的文件"));
    list_table& table = shown.windows.main().list();
    const QRect cell = table.visualRect(table.model()->index(0, 4));
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_TRUE(QTest::qWaitFor([&] {
        shown.windows.sync();
        return line->text() == QStringLiteral("已标记:1 个文件, 7.7 KB");
    }));
    shown.form.state.list_mode = 1;
    shown.windows.sync();
    EXPECT_FALSE(line->isVisible());
}

TEST(list_marks, ctrl_z_takes_a_mark_back) {
    forms_program shown;
    shown.show_pairs(3);
    list_table& table = shown.windows.main().list();
    const QRect cell = table.visualRect(table.model()->index(1, 4));
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    ASSERT_EQ(shown.form.ListView1.colour(2, 4), cell_colour::mark_red);
    table.setFocus();
    QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown.form.ListView1.colour(2, 4), cell_colour::colour_text);
    QTest::keyClick(&table, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(shown.form.ListView1.colour(2, 4), cell_colour::mark_red);
}

// A star of three: two rows that share their first path, the second time in gray.
struct star_shown : pairs_shown {
    star_shown() : pairs_shown(3), cells(table.cells()), list(form.ListView1) {
        for (int row : {1, 2}) list.set_text(row, 3, "/d/centre");
        list.set_colour(2, 3, cell_colour::colour_gray);
        windows.sync();
    }
    bool looks_marked(int row, int column) {
        return cells.data(cells.index(row - 1, column), list_model::struck_role).toBool();
    }
    list_model& cells;
    list_view& list;
};

TEST(list_marks, a_path_looks_marked_in_every_row_that_shows_it) {
    star_shown shown;
    EXPECT_FALSE(shown.looks_marked(2, 3));
    QTest::mouseDClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(1, 3));
    EXPECT_TRUE(shown.looks_marked(1, 3));
    EXPECT_TRUE(shown.looks_marked(2, 3));
    EXPECT_EQ(shown.cells.painted_colour(1, 3), cell_colour::mark_red);
    EXPECT_FALSE(shown.looks_marked(1, 4));
    EXPECT_FALSE(shown.looks_marked(3, 3));
    EXPECT_EQ(shown.colour(2, 3), cell_colour::colour_gray) << "the mark itself stands in one row";
    QTest::mouseDClick(shown.table.viewport(), Qt::LeftButton, {}, shown.centre(1, 3));
    EXPECT_FALSE(shown.looks_marked(2, 3));
    EXPECT_EQ(shown.cells.painted_colour(1, 3), cell_colour::colour_gray);
}

TEST(list_marks, a_cell_that_refused_keeps_its_colour_beside_the_mark_of_its_path) {
    star_shown shown;
    shown.list.set_colour(1, 3, cell_colour::mark_red);
    shown.list.set_colour(2, 3, cell_colour::mark_blue);
    shown.windows.sync();
    EXPECT_TRUE(shown.looks_marked(2, 3));
    EXPECT_EQ(shown.cells.painted_colour(1, 3), cell_colour::mark_blue);
}

TEST(list_marks, the_marks_of_rows_that_a_task_replaces_are_forgotten_at_once) {
    star_shown shown;
    shown.list.set_colour(1, 3, cell_colour::mark_red);
    shown.windows.sync();
    lock_tasks(shown.form);
    shown.list.clear_rows();
    shown.list.add_row();
    shown.list.set_text(1, 3, "/d/centre");
    shown.windows.sync();
    EXPECT_FALSE(shown.looks_marked(1, 3));
}

TEST(list_marks, the_marks_that_a_task_has_taken_off_go_with_its_end) {
    star_shown shown;
    shown.list.set_colour(1, 3, cell_colour::mark_red);
    shown.list.set_colour(3, 4, cell_colour::mark_red);
    shown.windows.sync();
    lock_tasks(shown.form);
    shown.list.set_text(1, 3, "");
    shown.windows.sync();
    unlock_tasks(shown.form);
    shown.windows.sync();
    EXPECT_FALSE(shown.looks_marked(2, 3));
    EXPECT_TRUE(shown.looks_marked(3, 4));
}

TEST(list_marks, marks_are_taken_over_in_parts_and_those_of_other_rows_never) {
    star_shown shown;
    marked_paths& marks = shown.cells.marks;
    shown.list.set_colour(1, 3, cell_colour::mark_red);
    shown.list.set_colour(3, 4, cell_colour::mark_red);
    int calls = 1;
    while (marks.renew(shown.list, 1) == walk_progress::on_its_way) {
        EXPECT_FALSE(marks.holds("/d/centre")) << "not before all is taken";
        ++calls;
    }
    EXPECT_GT(calls, 3);
    EXPECT_TRUE(marks.holds("/d/centre"));
    shown.list.set_colour(1, 3, cell_colour::colour_text);
    ASSERT_EQ(marks.renew(shown.list, 1), walk_progress::on_its_way);
    EXPECT_TRUE(marks.holds("/d/centre")) << "what stood holds until then";
    shown.list.set_colour(3, 4, cell_colour::colour_text);
    EXPECT_EQ(marks.renew(shown.list, 1), walk_progress::renewed) << "no mark, nothing to look for";
    EXPECT_FALSE(marks.holds("/d/centre"));
    shown.list.set_colour(1, 3, cell_colour::mark_red);
    marks.renew(shown.list, 100);
    shown.show_pairs(3);
    shown.list.set_colour(3, 4, cell_colour::mark_red);
    ASSERT_EQ(marks.renew(shown.list, 1), walk_progress::on_its_way);
    EXPECT_FALSE(marks.holds("/d/centre")) << "of rows that are gone";
}

TEST(list_marks, a_million_marks_are_taken_once_and_painted_at_once) {
    pairs_shown shown(1'000'000);
    for (std::int32_t row = 1; row <= 1'000'000; ++row)
        shown.form.ListView1.set_colour(row, 4, cell_colour::mark_red);
    const processor_time taking;
    shown.windows.sync();
    list_model& cells = shown.table.cells();
    while (!cells.looks_marked(999'999, 4) || !cells.marks.holds(cells.text(999'999, 4).toStdString()))
        QCoreApplication::processEvents();
    EXPECT_LT(taking.milliseconds(), 3000);
    EXPECT_EQ(cells.marks.renew(shown.form.ListView1, 1), walk_progress::unchanged);
    const processor_time painting;
    for (int turn = 0; turn < 20; ++turn) {
        shown.windows.sync();
        shown.table.grab();
    }
    EXPECT_LT(painting.milliseconds(), 2000);
    EXPECT_TRUE(
        shown.table.cells().data(shown.table.cells().index(999'999, 4), list_model::struck_role).toBool());
    EXPECT_FALSE(
        shown.table.cells().data(shown.table.cells().index(999'999, 3), list_model::struck_role).toBool());
}

}  // namespace
}  // namespace corvane
