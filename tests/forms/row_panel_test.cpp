// The panel of a row: where it stands, what it shows of long paths, and that it belongs to the list.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTest>

#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

struct open_panel : forms_program {
    open_panel() {
        show_pairs(20);
        form.samefile_disp1.text = "/照片/a.jpg          2024-1-2 3:4:5\t77";
        form.samefile_disp2.text = "/backup/old/a.jpg    2023-11-12 13:14:15\t77";
        form.Frame4.visible = true;
        windows.sync();
        settle();
    }
    QWidget* panel() { return widget("Frame4"); }
    // Of a part in the window.
    QRect place(const char* name) {
        QWidget* part = widget(name);
        return {part->mapTo(&windows.main(), QPoint(0, 0)), part->size()};
    }
};

TEST(row_panel, paths_dates_and_lengths_stand_in_columns) {
    open_panel shown;
    EXPECT_EQ(static_cast<QLineEdit*>(shown.widget("samefile_disp1"))->text(), QStringLiteral("/照片/a.jpg"));
    EXPECT_EQ(static_cast<QLabel*>(shown.widget("samefile_disp1_date"))->text(),
              QStringLiteral("2024-1-2 3:4:5"));
    EXPECT_EQ(static_cast<QLabel*>(shown.widget("samefile_disp2_length"))->text(), QStringLiteral("77"));
    EXPECT_EQ(shown.place("samefile_disp1_date").left(), shown.place("samefile_disp2_date").left());
    EXPECT_EQ(shown.place("samefile_disp1_length").right(), shown.place("samefile_disp2_length").right());
}

TEST(row_panel, a_path_without_date_or_with_blanks_is_taken_apart) {
    open_panel shown;
    shown.form.samefile_disp1.text = "/d/two    parts.txt    \t5";
    shown.form.samefile_disp2.text = "/only/a/path    ";
    shown.windows.sync();
    EXPECT_EQ(static_cast<QLineEdit*>(shown.widget("samefile_disp1"))->text(),
              QStringLiteral("/d/two    parts.txt"));
    EXPECT_EQ(static_cast<QLabel*>(shown.widget("samefile_disp1_date"))->text(), QString());
    EXPECT_EQ(static_cast<QLabel*>(shown.widget("samefile_disp1_length"))->text(), QStringLiteral("5"));
    EXPECT_EQ(static_cast<QLineEdit*>(shown.widget("samefile_disp2"))->text(),
              QStringLiteral("/only/a/path"));
}

TEST(row_panel, dates_and_lengths_are_seen_beside_the_longest_paths) {
    open_panel shown;
    shown.form.samefile_disp1.text = '/' + std::string(400, 'x') + "    2023-11-12 13:14:15\t123456789012";
    shown.windows.sync();
    shown.settle();
    const QRect panel = shown.place("Frame4");
    for (const char* part : {"samefile_disp1_date", "samefile_disp1_length", "Frame4_Close"}) {
        EXPECT_TRUE(panel.contains(shown.place(part))) << part;
        EXPECT_GE(shown.widget(part)->width(), shown.widget(part)->sizeHint().width()) << part;
    }
}

TEST(row_panel, stands_inside_the_list_and_never_over_bar_and_tasks) {
    open_panel shown;
    // With the line above it.
    const QRect list = shown.place("ListView1").united(shown.place("list_hint"));
    EXPECT_TRUE(list.contains(shown.place("Frame4")));
    // Dragged as far as the mouse goes.
    for (const QPoint far : {QPoint(-4000, 4000), QPoint(4000, -4000)}) {
        QTest::mousePress(shown.panel(), Qt::LeftButton, {}, QPoint(4, 4));
        QTest::mouseMove(shown.panel(), far);
        QTest::mouseRelease(shown.panel(), Qt::LeftButton, {}, QPoint(4, 4));
        EXPECT_TRUE(list.contains(shown.place("Frame4")));
        EXPECT_FALSE(shown.place("Picture1").intersects(shown.place("Frame4")));
    }
}

TEST(row_panel, follows_when_the_list_gets_less_room) {
    open_panel shown;
    shown.windows.main().resize(640, 420);
    shown.settle();
    EXPECT_TRUE(shown.place("ListView1").contains(shown.place("Frame4")));
}

TEST(row_panel, goes_with_the_list) {
    open_panel shown;
    ASSERT_TRUE(shown.panel()->isVisible());
    shown.form.ListView1.visible = false;
    shown.windows.sync();
    EXPECT_FALSE(shown.panel()->isVisible());
}

// Read-only boxes hand keys on: what deletes in the list must not hear them from here.
TEST(row_panel, keys_in_it_do_nothing_to_the_list) {
    open_panel shown;
    int& keys = shown.count_runs("ListView1_KeyDown");
    int& clicks = shown.count_runs("ListView1_DblClick");
    shown.widget("samefile_disp2")->setFocus(Qt::MouseFocusReason);
    for (const Qt::Key key : {Qt::Key_Delete, Qt::Key_Space, Qt::Key_Return})
        QTest::keyClick(shown.widget("samefile_disp2"), key);
    EXPECT_EQ(keys + clicks, 0);
    QTest::keyClick(shown.widget("samefile_disp2"), Qt::Key_Escape);
    EXPECT_FALSE(shown.panel()->isVisible());
}

}  // namespace
}  // namespace corvane
