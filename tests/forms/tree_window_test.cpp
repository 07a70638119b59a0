// The tree's window and the frame of the export's parameters: what is typed, clicked and double-clicked.
#include "forms/tree_window.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListView>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "core/tasks/progress.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"
#include "tests/forms/processor_time.h"

namespace corvane {
namespace {

struct open_tree {
    open_tree() : window(shown.windows.tree()), model(shown.corvane.tree_window()) {
        std::string lines;
        for (const char* path : {"/d/a.jpg", "/d/b.gif", "/d/e/c.jpg"}) {
            shown.files.add_file(path, "1");
            lines += std::string(path) + "\r\n";
        }
        shown.files.add_file("/prog/文件清单.txt", lines);
        shown.form.run("Command21_Click");
        shown.form.state.tree_levels = 4;
        shown.form.state.tree_date_from = 45000;
        shown.form.state.tree_date_to = 46000;
        shown.form.run("tree_select_m");
        update();
    }
    void update() {
        shown.windows.sync();
        shown.settle();
    }
    template <class Widget>
    Widget* widget(const char* name) {
        return static_cast<Widget*>(shown.widget(name, &window));
    }
    QLineEdit* field(const char* name) { return widget<QLineEdit>(name); }
    void type(const char* name, const char* words) {
        field(name)->setFocus();
        field(name)->selectAll();
        QTest::keyClicks(field(name), QString::fromUtf8(words));
    }
    void press(const char* name) {
        QTest::mouseClick(widget<QPushButton>(name), Qt::LeftButton);
        shown.settle();
    }
    void double_click(const char* name) {
        QTest::mouseDClick(field(name), Qt::LeftButton);
        shown.settle();
    }
    QStringList rows(const char* name) {
        QStringList found;
        const auto* view = widget<QAbstractItemView>(name);
        for (int row = 0; row < view->model()->rowCount(); ++row)
            found += view->model()->index(row, view->model()->columnCount() > 1 ? 1 : 0).data().toString();
        return found;
    }

    forms_program shown;
    tree_window& window;
    tree_form& model;
};

TEST(tree_window, it_opens_with_the_preview) {
    open_tree open;
    EXPECT_TRUE(open.window.isVisible());
    EXPECT_EQ(open.window.windowTitle(), QStringLiteral("树状目录输出"));
    EXPECT_EQ(open.rows("List1"),
              (QStringList{"\\", "   \\d", "      \\e", "         c.jpg", "      a.jpg", "      b.gif"}));
    EXPECT_FALSE(open.widget<QWidget>("ListView1")->isVisible());
    EXPECT_FALSE(open.widget<QWidget>("MonthView1")->isVisible());
    EXPECT_FALSE(open.widget<QWidget>("ProgressBar1")->isVisible());
}

TEST(tree_window, what_is_typed_stands_in_the_model_and_a_bound_gives_way) {
    open_tree open;
    EXPECT_FALSE(open.field("Text3")->isEnabled());
    QTest::mouseClick(open.widget<QCheckBox>("Check5"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(open.field("Text3")->isEnabled());
    open.type("Text3", "12");
    EXPECT_EQ(open.model.texts[3]->text, "12");
    EXPECT_EQ(open.field("Text4")->text(), QStringLiteral("13"));
    open.type("Text7", "jpg,x");
    EXPECT_EQ(open.model.texts[7]->text, "jpg,x");
}

TEST(tree_window, the_formats_exclude_one_another) {
    open_tree open;
    QTest::mouseClick(open.widget<QRadioButton>("Option1(1)"), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_EQ(open.model.Option1[1]->value, 1);
    EXPECT_EQ(open.model.Option1[0]->value, 0);
    EXPECT_FALSE(open.widget<QRadioButton>("Option1(0)")->isChecked());
}

TEST(tree_window, a_double_click_on_the_types_shows_the_suffixes_and_on_a_row_takes_one) {
    open_tree open;
    open.double_click("Text8");
    auto* view = open.widget<QTableView>("ListView1");
    ASSERT_TRUE(view->isVisible());
    EXPECT_FALSE(open.widget<QWidget>("List1")->isVisible());
    EXPECT_EQ(open.rows("ListView1"), (QStringList{"jpg", "gif"}));
    const QPoint second = view->visualRect(view->model()->index(1, 1)).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, second);
    open.shown.settle();
    EXPECT_EQ(open.field("Text8")->text(), QStringLiteral("gif"));
    EXPECT_TRUE(view->model()->index(1, 1).data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(view->model()->index(0, 1).data(Qt::ForegroundRole).isValid());
    view->setCurrentIndex(view->model()->index(0, 1));
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(open.field("Text8")->text(), QStringLiteral("gif,jpg"));
}

TEST(tree_window, a_heading_sorts_the_suffixes) {
    open_tree open;
    open.press("Command4");
    auto* view = open.widget<QTableView>("ListView1");
    emit view->horizontalHeader()->sectionClicked(1);
    open.shown.settle();
    EXPECT_EQ(open.rows("ListView1"), (QStringList{"gif", "jpg"}));
    emit view->horizontalHeader()->sectionClicked(2);
    emit view->horizontalHeader()->sectionClicked(2);
    EXPECT_EQ(open.rows("ListView1"), (QStringList{"jpg", "gif"}));
}

TEST(tree_window, a_double_click_on_a_date_opens_its_month_and_a_day_fills_it) {
    open_tree open;
    QTest::mouseClick(open.widget<QCheckBox>("Check6"), Qt::LeftButton, {}, QPoint(8, 8));
    open.double_click("Text5");
    auto* month = open.widget<QCalendarWidget>("MonthView1");
    ASSERT_TRUE(month->isVisible());
    EXPECT_EQ(month->selectedDate(), QDate(2023, 3, 15));  // day 45000
    emit month->clicked(QDate(2024, 2, 29));
    open.shown.settle();
    EXPECT_EQ(open.field("Text5")->text(), QStringLiteral("2024-02-29"));
    QTest::keyClick(month, Qt::Key_Escape);
    EXPECT_FALSE(month->isVisible());
    EXPECT_TRUE(open.window.isVisible());
}

TEST(tree_window, the_output_fills_the_list_and_names_the_file) {
    open_tree open;
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &closer, [] {
        if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
    closer.start(5);
    open.model.checks[1]->value = 1;
    open.update();
    open.press("Command1");
    EXPECT_EQ(open.rows("List1").size(), 6);
    EXPECT_EQ(open.shown.files.content_of("/prog/tree_file_list.txt"),
              "\\\r\n   \\d\r\n      \\e\r\n         c.jpg\t1\r\n      a.jpg\t1\r\n      b.gif\t1\r\n");
    EXPECT_EQ(open.shown.desktop.calls, std::vector<std::string>{"open /prog/tree_file_list.txt"});
}

TEST(tree_window, while_a_task_runs_nothing_starts_that_works_on_the_list) {
    open_tree open;
    lock_tasks(open.shown.form);
    open.update();
    EXPECT_FALSE(open.widget<QPushButton>("Command1")->isEnabled());
    EXPECT_FALSE(open.widget<QPushButton>("Command4")->isEnabled());
    EXPECT_TRUE(open.widget<QPushButton>("Command2")->isEnabled());
    EXPECT_FALSE(open.shown.action("out_excel_form")->isEnabled());
    EXPECT_FALSE(open.shown.action("文件清单_M")->isEnabled());
    EXPECT_FALSE(open.shown.action("tree_select_m")->isEnabled());
    unlock_tasks(open.shown.form);
    open.update();
    EXPECT_TRUE(open.widget<QPushButton>("Command1")->isEnabled());
    EXPECT_TRUE(open.shown.action("tree_select_m")->isEnabled());
}

TEST(tree_window, the_progress_stands_in_the_bar) {
    open_tree open;
    open.model.ProgressBar1.visible = true;
    open.model.ProgressBar1.maximum = 50;
    open.model.ProgressBar1.value = 20;
    open.update();
    const auto* bar = open.widget<QProgressBar>("ProgressBar1");
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->maximum(), 50);
    EXPECT_EQ(bar->value(), 20);
}

TEST(tree_window, closing_it_stores_its_place_and_f1_opens_its_topic) {
    open_tree open;
    QTest::keyClick(&open.window, Qt::Key_F1);
    EXPECT_EQ(open.shown.desktop.calls, std::vector<std::string>{"help aux50_Corvane帮助_Link.htm"});
    open.window.move(150, 120);
    open.shown.settle();
    open.press("Command2");
    EXPECT_FALSE(open.window.isVisible());
    EXPECT_EQ(open.shown.form.state.treeform_left, 150 * twips_per_pixel);
    EXPECT_EQ(open.shown.form.state.treeform_top, 120 * twips_per_pixel);
}

TEST(tree_window, a_million_lines_are_shown_at_once) {
    open_tree open;
    std::vector<list_box::row> lines(1'000'000);
    for (std::size_t i = 0; i < lines.size(); ++i) lines[i].text = "      file_" + std::to_string(i);
    open.model.List1.take(std::move(lines));
    const processor_time clock;
    open.update();
    const double taken = clock.milliseconds();
    EXPECT_EQ(open.widget<QListView>("List1")->model()->rowCount(), 1'000'000);
    EXPECT_LT(taken, 2000);
    std::printf("a million lines: %.0f ms\n", taken);
}

TEST(export_frame, the_menu_opens_it_and_a_double_click_stores_what_was_typed) {
    forms_program shown;
    shown.windows.sync();
    auto* frame = shown.widget("Frame6");
    EXPECT_FALSE(frame->isVisible());
    shown.action("out_sele")->trigger();
    shown.settle();
    ASSERT_TRUE(frame->isVisible());
    EXPECT_EQ(frame->toolTip(), QStringLiteral("双击退出"));
    auto* levels = static_cast<QLineEdit*>(shown.widget("Text3"));
    auto* types = static_cast<QLineEdit*>(shown.widget("Text4"));
    EXPECT_TRUE(levels->hasFocus());
    levels->selectAll();
    QTest::keyClicks(levels, QStringLiteral("7"));
    types->setFocus();
    QTest::keyClicks(types, QStringLiteral("gif/dll"));
    QTest::mouseDClick(frame, Qt::LeftButton, {}, QPoint(4, 4));
    shown.settle();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_EQ(shown.form.state.export_levels, 7);
    EXPECT_EQ(shown.form.state.export_skip_types, "GIF/DLL");
}

TEST(export_frame, escape_closes_it_and_its_button_exports) {
    forms_program shown;
    int& exports = shown.count_runs("Command33_Click");
    shown.form.run("out_sele");
    shown.windows.sync();
    QTest::mouseClick(shown.widget("Command33"), Qt::LeftButton);
    EXPECT_EQ(exports, 1);
    QTest::keyClick(shown.widget("Text4"), Qt::Key_Escape);
    shown.settle();
    EXPECT_FALSE(shown.widget("Frame6")->isVisible());
}

TEST(export_frame, it_stands_clear_of_the_task_column_and_inside_the_window) {
    forms_program shown;
    shown.form.run("out_sele");
    shown.windows.sync();
    shown.settle();
    const QWidget* frame = shown.widget("Frame6");
    const QRect place(frame->mapTo(&shown.windows.main(), QPoint(0, 0)), frame->size());
    EXPECT_TRUE(shown.windows.main().rect().contains(place));
    const QWidget* column = shown.widget("Picture8")->parentWidget();
    EXPECT_GT(place.left(), column->mapTo(&shown.windows.main(), QPoint(column->width(), 0)).x());
}

}  // namespace
}  // namespace corvane
