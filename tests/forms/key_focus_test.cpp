// Keys while tasks lock and unlock the window: they stay where the user meant them, and never run into a
// task.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "browser/list_views.h"
#include "core/tasks/progress.h"
#include "forms/list_table.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

struct keys_program : forms_program {
    keys_program() { windows.main().activateWindow(); }

    std::string focus() {
        const QWidget* widget = windows.main().focusWidget();
        return widget ? widget->objectName().toStdString() : "";
    }
    void press(Qt::Key key) {
        QWidget* widget = windows.main().focusWidget();
        QTest::keyClick(widget ? widget : &windows.main(), key);
    }
    void lock(bool with_cancel) {
        lock_tasks(form);
        form.Command28.visible = with_cancel;
        windows.sync();
    }
    void unlock() {
        form.Command28.visible = false;
        unlock_tasks(form);
        windows.sync();
    }
};

// Presses the only button of each box that opens.
struct box_closer : QTimer {
    box_closer() {
        callOnTimeout([] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                box->buttons().front()->click();
        });
        start(1);
    }
};

TEST(keys, after_a_comparison_down_and_space_mark_the_next_row) {
    keys_program shown;
    for (const char* path : {"/d/a", "/d/b"}) shown.files.add_file(path, "one");
    for (const char* path : {"/d/x", "/d/y"}) shown.files.add_file(path, "three");
    shown.form.state.selected_dirs.push_back("/d");
    shown.form.state.selected_dir_count = 1;
    shown.windows.act("picture2_Click");
    int& deletions = shown.count_runs("Picture5_Click");
    int& others = shown.count_runs("Picture11_Click");
    const box_closer closer;

    shown.widget("Picture3")->setFocus(Qt::TabFocusReason);
    shown.press(Qt::Key_Return);
    ASSERT_EQ(shown.form.ListView1.row_count(), 2);
    EXPECT_EQ(shown.focus(), "ListView1");
    const list_table& table = shown.windows.main().list();
    EXPECT_EQ(table.currentIndex().row(), 0);
    EXPECT_EQ(table.currentIndex().column(), 3) << "the first path";
    EXPECT_EQ(shown.form.ListView1.selected_row, 0) << "current, not selected";
    shown.press(Qt::Key_Down);
    shown.press(Qt::Key_Space);
    EXPECT_EQ(shown.form.ListView1.cell(2, 3), "/d/x");
    EXPECT_EQ(shown.form.ListView1.colour(2, 3), cell_colour::mark_red);
    EXPECT_EQ(shown.form.ListView1.marked_cells(), 1);
    EXPECT_EQ(deletions + others, 0);
}

TEST(keys, a_load_begins_anew_at_the_first_row) {
    keys_program shown;
    shown.show_pairs(5);
    for (int step = 0; step < 3; ++step) shown.press(Qt::Key_Down);
    ASSERT_EQ(shown.windows.main().list().currentIndex().row(), 3);
    shown.windows.sync();
    EXPECT_EQ(shown.windows.main().list().currentIndex().row(), 3) << "the same rows";
    shown.show_pairs(5);
    EXPECT_EQ(shown.windows.main().list().currentIndex().row(), 0);
    EXPECT_EQ(shown.windows.main().list().currentIndex().column(), 3);
}

TEST(keys, a_lock_gives_the_focus_to_the_cancel_button) {
    keys_program shown;
    int& runs = shown.count_runs("Picture11_Click");
    shown.widget("Picture3")->setFocus(Qt::TabFocusReason);
    shown.lock(true);
    EXPECT_EQ(shown.focus(), "Command28");
    for (const Qt::Key arrow : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left}) {
        shown.press(arrow);
        EXPECT_EQ(shown.focus(), "Command28");
    }
    shown.unlock();
    EXPECT_EQ(shown.focus(), "Picture3") << "where the user was";
    EXPECT_EQ(runs, 0);
}

TEST(keys, a_lock_without_a_cancel_button_takes_the_keys) {
    keys_program shown;
    for (const char* picture : {"Picture1", "Picture2", "Picture5", "Picture11"}) {
        int& runs = shown.count_runs(std::string(picture) + "_Click");
        shown.widget("Picture2")->setFocus(Qt::TabFocusReason);
        shown.lock(false);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Space, Qt::Key_Return}) shown.press(key);
        EXPECT_EQ(runs, 0) << picture;
        shown.unlock();
        EXPECT_EQ(shown.focus(), "Picture2");
    }
}

TEST(keys, a_list_that_a_task_hides_does_not_hand_the_focus_to_a_task) {
    keys_program shown;
    shown.show_pairs(5);
    ASSERT_EQ(shown.focus(), "ListView1");
    shown.form.ListView1.visible = false;
    shown.lock(false);
    EXPECT_FALSE(QString::fromStdString(shown.focus()).startsWith(QStringLiteral("Picture")));
    shown.form.ListView1.visible = true;
    shown.unlock();
    EXPECT_EQ(shown.focus(), "ListView1");
    shown.form.ListView1.visible = false;
    shown.windows.sync();
    EXPECT_FALSE(QString::fromStdString(shown.focus()).startsWith(QStringLiteral("Picture")));
}

TEST(keys, after_a_deletion_the_keys_work_on_the_list) {
    keys_program shown;
    shown.show_pairs(5);
    shown.widget("Picture5")->setFocus(Qt::TabFocusReason);
    shown.lock(false);
    shown.unlock();
    EXPECT_EQ(shown.focus(), "ListView1");
}

TEST(keys, arrows_do_not_walk_among_the_tasks) {
    keys_program shown;
    shown.show_pairs(2);
    shown.widget("Picture4")->setFocus(Qt::TabFocusReason);
    for (const Qt::Key arrow : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left}) {
        shown.press(arrow);
        EXPECT_EQ(shown.focus(), "Picture4");
    }
}

}  // namespace
}  // namespace corvane
