// The front end as a task sees it: yields, boxes, and a window closed in the middle of the task.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>

#include "core/tasks/progress.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

TEST(closing, the_window_closed_within_a_task_ends_the_program_after_the_task) {
    forms_program shown;
    bool unwound = false;
    int yields = 0;
    shown.form.bind("picture2_Click", [&] {
        lock_tasks(shown.form);
        QTimer::singleShot(0, &shown.windows.main(), [&shown] { shown.windows.main().close(); });
        while (shown.form.state.quit_requested == 0 && ++yields < 100'000'000) shown.form.yield();
        // A task that goes on for a while keeps a window that says what it waits for, and asks nothing.
        EXPECT_FALSE(shown.screen.ended());
        EXPECT_TRUE(shown.windows.main().isVisible());
        EXPECT_TRUE(shown.windows.main().windowTitle().contains(QStringLiteral("正在结束…")));
        EXPECT_FALSE(shown.form.confirm("要继续吗?"));
        shown.windows.main().close();
        shown.windows.act("Picture1_Click");
        EXPECT_FALSE(shown.corvane.directory_window().visible);
        shown.screen.repaint();
        EXPECT_TRUE(shown.windows.main().isVisible());
        unlock_tasks(shown.form);
        unwound = true;
    });
    QTimer::singleShot(0, &shown.windows.main(), [&shown] { shown.windows.act("picture2_Click"); });
    QApplication::exec();
    EXPECT_TRUE(unwound);
    EXPECT_TRUE(shown.screen.ended());
    EXPECT_FALSE(shown.windows.main().isVisible());
}

TEST(closing, another_start_raises_the_window_that_waits_for_its_end_and_no_other) {
    forms_program shown;
    shown.add_used_folder();
    ASSERT_TRUE(shown.windows.start());
    EXPECT_EQ(shown.instances.served, "/prog/");
    EXPECT_FALSE(shown.instances.on_raise());  // not closing: the other start tells its user
    bool raised = false;
    shown.form.bind("picture2_Click", [&] {
        lock_tasks(shown.form);
        shown.windows.main().close();
        shown.windows.main().showMinimized();
        raised = shown.instances.on_raise();
        EXPECT_FALSE(shown.windows.main().isMinimized());
        EXPECT_TRUE(shown.windows.main().isVisible());
        unlock_tasks(shown.form);
    });
    QTimer::singleShot(0, &shown.windows.main(), [&shown] { shown.windows.act("picture2_Click"); });
    QApplication::exec();
    EXPECT_TRUE(raised);
    EXPECT_FALSE(shown.instances.on_raise());  // it has gone
}

TEST(closing, without_a_task_the_window_goes_at_once) {
    forms_program shown;
    QTimer::singleShot(0, &shown.windows.main(), [&shown] { shown.windows.main().close(); });
    QApplication::exec();
    EXPECT_TRUE(shown.screen.ended());
    EXPECT_FALSE(shown.windows.main().isVisible());
}

TEST(closing, a_locked_task_is_not_entered_again_at_a_yield) {
    forms_program shown;
    int entries = 0;
    shown.form.bind("picture2_Click", [&] {
        ++entries;
        lock_tasks(shown.form);
        // The click waits in the queue when the models have changed and the widgets have not.
        QTimer::singleShot(0, &shown.windows.main(),
                           [&shown] { QTest::mouseClick(shown.widget("Picture2"), Qt::LeftButton); });
        for (int turn = 0; turn < 5; ++turn) shown.screen.wait(0.002);
        unlock_tasks(shown.form);
    });
    shown.windows.act("picture2_Click");
    EXPECT_EQ(entries, 1);
    EXPECT_TRUE(shown.widget("Picture2")->isEnabled());
}

TEST(closing, boxes_after_the_end_are_not_shown) {
    forms_program shown;
    shown.screen.end_program();
    message box;
    box.buttons = box_buttons::yes_no;
    EXPECT_EQ(shown.screen.show_message(box), box_answer::dismissed);
    EXPECT_FALSE(shown.screen.ask_text("", "", "").has_value());
}

TEST(screen, without_a_pointer_nothing_is_read_or_placed) {
    forms_program shown;
    EXPECT_FALSE(shown.screen.pointer().has_value());
    shown.screen.set_pointer({1, 1});
}

TEST(screen, the_centre_of_a_control_is_found_by_its_name) {
    forms_program shown;
    const auto centre = shown.screen.centre_of("Tavrel", "Picture2");
    ASSERT_TRUE(centre.has_value());
    QWidget* picture = shown.widget("Picture2");
    EXPECT_TRUE(picture->rect().contains(picture->mapFromGlobal(QPoint(centre->x, centre->y))));
    EXPECT_FALSE(shown.screen.centre_of("Tavrel", "none").has_value());
    EXPECT_FALSE(shown.screen.centre_of("目录选择", "Command34").has_value());
}

}  // namespace
}  // namespace corvane
