// The two windows of the timed end, driven by clicks and keys.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

#include "forms/main_window.h"
#include "forms/sleep_window.h"
#include "forms/warning_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

struct shutdown_windows : forms_program {
    shutdown_windows() {
        form.state.shut_action = 4;
        form.state.shut_delay_min = 50;
        form.state.shutdown_action_text = "关闭计算机.";
    }
    void open() {
        windows.act("shut_computer");
        settle();
    }
    QWidget* part(const char* name) { return widget(name, &windows.sleep()); }
    void click(const char* name) {
        qobject_cast<QAbstractButton*>(part(name))->click();
        settle();
    }
    QLineEdit* field(const char* name) { return qobject_cast<QLineEdit*>(part(name)); }
    std::vector<std::string> asked() const {
        std::vector<std::string> calls;
        for (const std::string& call : desktop.calls)
            if (call == "power_off") calls.push_back(call);
        return calls;
    }
};

TEST(shutdown_windows, choices_reach_the_settings) {
    shutdown_windows shown;
    shown.open();
    ASSERT_TRUE(shown.windows.sleep().isVisible());
    EXPECT_FALSE(shown.part("Command1")->isEnabled());
    shown.click("Option2(2)");
    EXPECT_EQ(shown.form.state.shutdown_after_task, 2);
    EXPECT_TRUE(shown.part("Command1")->isEnabled());
    EXPECT_FALSE(shown.part("Command2")->isEnabled());
    shown.click("Option1(3)");
    EXPECT_EQ(shown.form.state.shut_action, 3);
}

TEST(shutdown_windows, a_typed_value_counts_with_enter_and_does_not_start_anything) {
    shutdown_windows shown;
    shown.open();
    shown.click("Option2(2)");
    shown.field("Text3")->setFocus();
    shown.field("Text3")->selectAll();
    QTest::keyClicks(shown.field("Text3"), "12");
    EXPECT_EQ(shown.form.state.shut_delay_min, 50);
    QTest::keyClick(shown.field("Text3"), Qt::Key_Return);
    EXPECT_EQ(shown.form.state.shut_delay_min, 12);
    EXPECT_FALSE(shown.corvane.sleep_window().countdown_running);
    EXPECT_TRUE(shown.windows.sleep().isVisible());
}

TEST(shutdown_windows, arrows_beside_a_field_turn_it) {
    shutdown_windows shown;
    shown.open();
    shown.click("Option2(2)");
    shown.field("Text_h")->setText("24");
    shown.corvane.sleep_window().Text_h.text = "24";
    shown.windows.act("sleep_music.Text_h_KeyPress");
    const auto arrows = shown.part("VScroll1")->findChildren<QAbstractButton*>();
    ASSERT_EQ(arrows.size(), 2);
    arrows[0]->click();
    EXPECT_EQ(shown.field("Text_h")->text(), "0");
    arrows[1]->click();
    EXPECT_EQ(shown.field("Text_h")->text(), "24");
}

TEST(shutdown_windows, a_tick_shows_what_is_left) {
    shutdown_windows shown;
    shown.open();
    shown.click("Option2(2)");
    shown.click("Command1");
    EXPECT_TRUE(shown.part("pic_gressbar1")->isVisible());
    shown.windows.act("sleep_music.Timer1_Timer");
    EXPECT_EQ(qobject_cast<QLabel*>(shown.part("Label4"))->text(), "0:49:59");
}

TEST(shutdown_windows, escape_closes_the_warning_and_stops_it) {
    shutdown_windows shown;
    shown.windows.act("显示关机提示");
    shown.settle();
    ASSERT_TRUE(shown.windows.warning().isVisible());
    shown.windows.act("shut_msg.Timer1_Timer");
    EXPECT_EQ(shown.windows.warning().findChild<QProgressBar*>()->value(), 1);
    QTest::keyClick(&shown.windows.warning(), Qt::Key_Escape);
    shown.settle();
    EXPECT_FALSE(shown.windows.warning().isVisible());
    EXPECT_EQ(shown.corvane.warning_window().Timer1.interval, 0);
    for (int second = 0; second < 200; ++second) shown.windows.act("shut_msg.Timer1_Timer");
    EXPECT_TRUE(shown.asked().empty());
}

TEST(shutdown_windows, a_minimised_warning_is_stopped) {
    shutdown_windows shown;
    shown.windows.act("显示关机提示");
    shown.settle();
    shown.windows.warning().showMinimized();
    shown.settle();
    EXPECT_EQ(shown.corvane.warning_window().Timer1.interval, 0);
    // Opened again it counts again.
    shown.windows.act("显示关机提示");
    shown.settle();
    EXPECT_FALSE(shown.windows.warning().isMinimized());
    EXPECT_EQ(shown.corvane.warning_window().Timer1.interval, 1000);
}

// A box that nobody answers keeps neither the warning from its user nor the machine from going down.
TEST(shutdown_windows, a_box_that_stands_is_dismissed_and_the_warning_can_be_stopped_beside_it) {
    shutdown_windows shown;
    bool answered = true;
    int turns = 0;
    QTimer driver;
    QObject::connect(&driver, &QTimer::timeout, &driver, [&] {
        if (QApplication::activeModalWidget() == nullptr) return;
        if (++turns == 1) {
            shown.windows.act("显示关机提示");
            EXPECT_EQ(shown.windows.warning().windowModality(), Qt::ApplicationModal);
        } else if (turns == 2) {
            for (int second = 0; second < 61; ++second) shown.windows.act("shut_msg.Timer1_Timer");
            EXPECT_TRUE(shown.asked().empty());
        }
    });
    driver.start(5);
    shown.form.bind("picture2_Click", [&] { answered = shown.form.confirm("要继续吗?"); });
    shown.windows.act("picture2_Click");
    EXPECT_FALSE(answered);
    EXPECT_EQ(shown.asked().size(), 1u);
    EXPECT_TRUE(shown.windows.warning().isVisible());
}

}  // namespace
}  // namespace corvane
