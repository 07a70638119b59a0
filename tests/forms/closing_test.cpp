// The front end as a task sees it: yields, boxes, and a window closed in the middle of the task.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "core/tasks/progress.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

// Acts on the box that the code under test is about to open.
void at_box(std::function<void(QMessageBox&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        act(*box);
    });
}

QAbstractButton* button_of(QMessageBox& box, const QString& caption) {
    for (QAbstractButton* button : box.buttons())
        if (button->text() == caption) return button;
    return nullptr;
}

TEST(closing, the_window_closed_within_a_task_ends_the_program_after_the_task) {
    forms_program shown;
    bool unwound = false;
    int yields = 0;
    shown.form.bind("picture2_Click", [&] {
        lock_tasks(shown.form);
        QTimer::singleShot(0, &shown.windows.main(), [&shown] { shown.windows.main().close(); });
        while (shown.form.state.quit_requested == 0 && ++yields < 100'000'000) shown.form.yield();
        // A task that goes on for a while sees a screen that is still there.
        shown.form.panel(7, "ends");
        shown.form.yield();
        shown.screen.repaint();
        unlock_tasks(shown.form);
        unwound = true;
    });
    QTimer::singleShot(0, &shown.windows.main(), [&shown] { shown.windows.act("picture2_Click"); });
    QApplication::exec();
    EXPECT_TRUE(unwound);
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
    EXPECT_EQ(shown.screen.show_message(box), box_answer::no);
    EXPECT_FALSE(shown.screen.ask_text("", "", "").has_value());
}

TEST(boxes, a_question_has_chinese_buttons_and_returns_the_answer) {
    forms_program shown;
    message box;
    box.title = "提示";
    box.text = "要继续吗?";
    box.buttons = box_buttons::yes_no;
    at_box([](QMessageBox& open) {
        EXPECT_EQ(open.text(), QStringLiteral("要继续吗?"));
        button_of(open, QStringLiteral("是(&Y)"))->click();
    });
    EXPECT_EQ(shown.screen.show_message(box), box_answer::yes);
    at_box([](QMessageBox& open) { button_of(open, QStringLiteral("否(&N)"))->click(); });
    EXPECT_EQ(shown.screen.show_message(box), box_answer::no);
    at_box([](QMessageBox& open) { open.reject(); });
    EXPECT_EQ(shown.screen.show_message(box), box_answer::no);
}

TEST(boxes, the_help_button_opens_the_topic_and_leaves_the_box_open) {
    forms_program shown;
    message box;
    box.text = "你未选择清查目录\r\n第二行";
    box.help_button = true;
    box.help_context = 1009;
    at_box([&shown](QMessageBox& open) {
        EXPECT_FALSE(open.text().contains(QLatin1Char('\r')));
        button_of(open, QStringLiteral("帮助"))->click();
        EXPECT_TRUE(open.isVisible());
        EXPECT_EQ(shown.desktop.calls.back(), "help aux09_Corvane帮助_Link.htm");
        button_of(open, QStringLiteral("确定"))->click();
    });
    EXPECT_EQ(shown.screen.show_message(box), box_answer::ok);
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
