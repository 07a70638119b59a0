// What the pointer does: tips and task pictures, buttons of child windows, the splitter.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QSplitter>
#include <QTest>

#include "core/tasks/progress.h"
#include "forms/directory_window.h"
#include "forms/main_window.h"
#include "forms/task_button.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

struct hovered : forms_program {
    hovered() {
        form.state.tip_help_on = 1;
        for (const char* name : {"Picture2", "Picture3"}) form.find(name)->enabled = true;
        windows.sync();
        settle();
    }
    void move_to(QWidget* target, QPoint place) {
        QTest::mouseMove(target, place);
        QEnterEvent enter(place, place, target->mapToGlobal(place));
        QCoreApplication::sendEvent(target, &enter);
        settle();
    }
    void leave(QWidget* target) {
        QEvent gone(QEvent::Leave);
        QCoreApplication::sendEvent(target, &gone);
        settle();
    }
    QWidget* picture() { return widget("Picture3"); }
    QWidget* tip() { return widget("tiptext"); }
};

TEST(hover, the_tip_opens_below_its_picture_with_its_words) {
    hovered shown;
    shown.move_to(shown.picture(), QPoint(20, 10));
    ASSERT_TRUE(shown.tip()->isVisible());
    EXPECT_EQ(static_cast<QLabel*>(shown.tip())->text(), QStringLiteral("检查内容相同的文件"));
    const QPoint below = shown.picture()->mapTo(&shown.windows.main(), QPoint(0, shown.picture()->height()));
    EXPECT_GE(shown.tip()->y(), below.y());
    EXPECT_LE(shown.tip()->y(), below.y() + 3);
    // The whole text is to be read: 18 bytes on one line.
    const QFontMetrics metrics(shown.tip()->font());
    EXPECT_GE(shown.tip()->width(), metrics.horizontalAdvance(QStringLiteral("检查内容相同的文件")));
    EXPECT_GE(shown.tip()->height(), metrics.height());
    shown.leave(shown.picture());
    EXPECT_FALSE(shown.tip()->isVisible());
}

TEST(hover, without_tooltips_there_is_no_tip) {
    hovered shown;
    shown.form.state.tip_help_on = 0;
    shown.move_to(shown.picture(), QPoint(20, 10));
    EXPECT_FALSE(shown.tip()->isVisible());
    EXPECT_EQ(shown.form.hover.captured, "Picture3");
}

TEST(hover, a_press_sinks_the_picture_and_its_release_runs_the_task) {
    hovered shown;
    int& runs = shown.count_runs("Picture3_Click");
    shown.leave(shown.picture());
    const int resting = shown.form.hover.pic_left[3];
    EXPECT_EQ(shown.form.pictures[3]->place.left, resting);
    EXPECT_GT(resting, 0);
    QTest::mousePress(shown.picture(), Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_EQ(shown.form.pictures[3]->place.left, resting + 50);
    EXPECT_EQ(shown.form.hover.pic_pressed, 1);
    QTest::mouseRelease(shown.picture(), Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_EQ(shown.form.pictures[3]->place.left, resting);
    EXPECT_EQ(runs, 1);
}

TEST(hover, a_picture_locked_under_the_pointer_lets_its_tip_go) {
    hovered shown;
    shown.move_to(shown.picture(), QPoint(20, 10));
    ASSERT_TRUE(shown.tip()->isVisible());
    lock_tasks(shown.form);
    shown.windows.sync();
    EXPECT_FALSE(shown.tip()->isVisible());
    unlock_tasks(shown.form);
}

TEST(hover, a_button_of_a_child_window_lights_up) {
    hovered shown;
    shown.form.run("Picture1_Click");
    shown.windows.sync();
    QWidget* button = shown.widget("Command34", &shown.windows.directory());
    QHoverEvent enter(QEvent::HoverEnter, QPointF(5, 5), QPointF(5, 5), QPointF(-1, -1));
    QCoreApplication::sendEvent(button, &enter);
    EXPECT_EQ(button->palette().color(QPalette::Button), QColor(0x98, 0xFB, 0x98));
    EXPECT_EQ(button->palette().color(QPalette::ButtonText), QColor(Qt::black));
    QHoverEvent left(QEvent::HoverLeave, QPointF(-1, -1), QPointF(-1, -1), QPointF(5, 5));
    QCoreApplication::sendEvent(button, &left);
    EXPECT_EQ(button->palette().color(QPalette::Button),
              shown.windows.directory().palette().color(QPalette::Button));
}

TEST(splitter, a_drag_moves_the_border_of_both_halves_in_the_model) {
    hovered shown;
    shown.show_pairs(50);
    shown.form.List1.visible = true;
    shown.form.List1.add("row");
    shown.windows.sync();
    shown.settle();
    auto* splitter = static_cast<QSplitter*>(shown.widget("Splitter"));
    QWidget* handle = splitter->handle(1);
    ASSERT_TRUE(handle->isVisible());
    EXPECT_EQ(handle->width(), 5);
    const int before = splitter->sizes().at(0);
    QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(2, 50));
    QTest::mouseMove(handle, QPoint(82, 50));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(2, 50));
    const int moved = splitter->sizes().at(0) - before;
    EXPECT_NEAR(moved, 80, 2);
    EXPECT_EQ(shown.form.listleft.place.width, splitter->sizes().at(0) * 15);
    EXPECT_EQ(
        shown.form.ListView1.place.left,
        shown.form.listleft.place.left + shown.form.listleft.place.width + shown.form.Splitter.place.width);
    EXPECT_EQ(shown.form.layout.split_last_x, main_layout::no_drag);
}

}  // namespace
}  // namespace corvane
