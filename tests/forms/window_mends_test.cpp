// Small things of the main window that a user meets: panels, tips, the way out of help mode, the list after a
// filter, the list of abnormal files.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <QTest>

#include "core/tasks/progress.h"
#include "forms/directory_window.h"
#include "forms/list_table.h"
#include "forms/main_window.h"
#include "forms/menu_bar.h"
#include "forms/panel_bar.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

int words_width(const QWidget& bar, const QString& words) {
    return bar.fontMetrics().horizontalAdvance(words);
}

TEST(panels, a_value_takes_the_room_that_its_neighbours_do_not_need) {
    forms_program shown;
    shown.windows.main().resize(800, 600);
    for (int number = 1; number <= 7; ++number) shown.form.panel(number, "");
    shown.form.panel(4, "相同文件长度:123,456,789,012 M, 还有更多要说的");
    shown.windows.sync();
    shown.settle();
    auto* bar = static_cast<panel_bar*>(shown.widget("StatusBar1"));
    EXPECT_GE(bar->panel_place(4).width(), words_width(*bar, bar->panel_text(4)) + 16);
    int right = 0;
    for (int number = 1; number <= 7; ++number) {
        EXPECT_EQ(bar->panel_place(number).left(), right) << "no gap and no overlap";
        right += bar->panel_place(number).width();
    }
    EXPECT_EQ(right, bar->width());
}

TEST(panels, stay_where_they_are_while_everything_fits) {
    forms_program shown;
    for (int number = 1; number <= 7; ++number) shown.form.panel(number, "1");
    shown.windows.sync();
    auto* bar = static_cast<panel_bar*>(shown.widget("StatusBar1"));
    const QRect before = bar->panel_place(3);
    shown.form.panel(3, "12");
    shown.windows.sync();
    EXPECT_EQ(bar->panel_place(3), before);
}

TEST(panels, share_what_there_is_where_nothing_is_spare) {
    forms_program shown;
    shown.windows.main().resize(700, 500);
    for (int number = 1; number <= 7; ++number) shown.form.panel(number, std::string(60, 'w'));
    shown.windows.sync();
    shown.settle();
    auto* bar = static_cast<panel_bar*>(shown.widget("StatusBar1"));
    for (int number = 1; number <= 7; ++number) EXPECT_GT(bar->panel_place(number).width(), 40) << number;
}

TEST(tip, the_legend_of_colours_is_seen_to_its_last_line) {
    forms_program shown;
    shown.files.add_file("/prog/相同文件.txt", "x\r\n 0 \r\n");
    shown.form.state.tip_help_on = 1;
    const std::string legend = "一\r\n二\r\n三\r\n四\r\n五\r\n六\r\n七\r\n八\r\n九\r\n十";
    tip_show(shown.form, legend, shown.form.pictures[8]->place);
    shown.windows.sync();
    auto* tip = static_cast<QLabel*>(shown.widget("tiptext"));
    ASSERT_TRUE(tip->isVisible());
    EXPECT_GE(tip->height(), 10 * tip->fontMetrics().lineSpacing());
    EXPECT_TRUE(shown.windows.main().rect().contains(tip->geometry()));
}

TEST(help_mode, escape_ends_it_from_wherever_the_keys_are) {
    forms_program shown;
    shown.show_pairs(5);
    int& topics = shown.count_runs("ListView1_Click");
    for (const char* part : {"ListView1", "Picture3"}) {
        shown.windows.act("help_spirit");
        ASSERT_EQ(shown.form.mouse_pointer, help_pointer);
        shown.widget(part)->setFocus(Qt::OtherFocusReason);
        QTest::keyClick(shown.widget(part), Qt::Key_Escape);
        EXPECT_EQ(shown.form.mouse_pointer, 0) << part;
    }
    EXPECT_EQ(topics, 0) << "the key asks for no topic";
    EXPECT_EQ(shown.windows.main().cursor().shape(), Qt::ArrowCursor);
}

TEST(help_mode, escape_is_for_the_row_panel_once_the_mode_is_off) {
    forms_program shown;
    shown.show_pairs(5);
    shown.form.Frame4.visible = true;
    shown.windows.act("help_spirit");
    QTest::keyClick(shown.widget("ListView1"), Qt::Key_Escape);
    EXPECT_TRUE(shown.form.Frame4.visible);
    QTest::keyClick(&shown.windows.main(), Qt::Key_Escape);
    EXPECT_FALSE(shown.form.Frame4.visible);
}

TEST(list_place, other_rows_are_shown_from_the_first_one_on) {
    forms_program shown;
    shown.show_pairs(500);
    list_table& table = shown.windows.main().list();
    table.verticalScrollBar()->setValue(300);
    shown.form.ListView1.selected_row = 310;
    shown.windows.sync();
    ASSERT_GT(table.verticalScrollBar()->value(), 200);
    shown.show_pairs(400);
    EXPECT_EQ(table.verticalScrollBar()->value(), 0) << "fewer rows";
    table.verticalScrollBar()->setValue(300);
    shown.show_pairs(600);
    EXPECT_EQ(table.verticalScrollBar()->value(), 0) << "more rows";
    table.verticalScrollBar()->setValue(300);
    shown.form.ListView1.set_colour(302, 4, cell_colour::mark_red);
    shown.windows.sync();
    EXPECT_EQ(table.verticalScrollBar()->value(), 300) << "a mark moves nothing";
}

struct abnormal_list : forms_program {
    abnormal_list() {
        form.List1.add("/d/gone   -1");
        form.List1.add("7");
        form.List1.caption = "1 个异常文件: 清单里有,磁盘上读不到";
        form.List1.visible = true;
        windows.sync();
        settle();
    }
};

TEST(abnormal_files, say_what_they_are_and_close_by_button_and_by_escape) {
    abnormal_list shown;
    auto* heading = static_cast<QLabel*>(shown.widget("List1_heading"));
    ASSERT_TRUE(heading->isVisible());
    EXPECT_TRUE(heading->text().startsWith(QStringLiteral("1 个异常文件")));
    QTest::mouseClick(shown.widget("List1_Close"), Qt::LeftButton);
    EXPECT_FALSE(shown.form.List1.visible);
    EXPECT_FALSE(shown.widget("List1")->isVisible());
    EXPECT_FALSE(heading->isVisible());
    shown.form.List1.visible = true;
    shown.windows.sync();
    shown.widget("List1")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(shown.widget("List1"), Qt::Key_Escape);
    EXPECT_FALSE(shown.widget("List1")->isVisible());
    EXPECT_EQ(shown.form.List1.row_count(), 2) << "hidden, not thrown away";
}

TEST(selected_directories, delete_takes_the_row_that_the_keys_are_on) {
    forms_program shown;
    for (const char* path : {"/a", "/b", "/c"}) shown.files.add_directory(path);
    shown.form.run("Picture1_Click");
    shown.corvane.directory_window().add_paths({"/a/", "/b/", "/c/"});
    shown.windows.sync();
    auto* list = static_cast<QListView*>(shown.widget("list_selected_dir", &shown.windows.directory()));
    list->setFocus(Qt::TabFocusReason);
    list->selectionModel()->setCurrentIndex(list->model()->index(1, 0), QItemSelectionModel::NoUpdate);
    ASSERT_FALSE(list->selectionModel()->hasSelection());
    QTest::keyClick(list, Qt::Key_Delete);
    ASSERT_EQ(list->model()->rowCount(), 2);
    EXPECT_EQ(list->model()->index(1, 0).data().toString(), QStringLiteral("/c/"));
    EXPECT_EQ(list->currentIndex().row(), 1) << "the keys go on in the same place";
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(list->currentIndex().row(), 0);
    QTest::keyClick(list, Qt::Key_Delete);
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(list->model()->rowCount(), 0) << "nothing is left to take";
}

}  // namespace
}  // namespace corvane
