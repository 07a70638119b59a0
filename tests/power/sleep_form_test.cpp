// The window of the timed end: its times, its countdown, and what it hands over to the warning.
#include <gtest/gtest.h>

#include "tests/power/shutdown_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(SleepForm, ShowsTheSettingsAndTheEndTimeWhenItOpens) {
    shutdown_program p;
    p.state.shut_delay_min = 45;
    p.state.shut_warn_sec = 0;
    p.state.shut_action = 3;
    p.state.shutdown_after_task = 1;
    p.state.countdown_done = 7;
    p.open();
    EXPECT_TRUE(p.sleep.visible);
    EXPECT_EQ(p.sleep.help_context, 1041);
    EXPECT_EQ(p.sleep.Text2.text, "10:20:30");
    EXPECT_EQ(p.sleep.Text3.text, "45");
    // 10:20 and 45 minutes.
    EXPECT_EQ(p.sleep.Text_h.text, "11");
    EXPECT_EQ(p.sleep.Text_m.text, "5");
    EXPECT_EQ(p.sleep.VScroll1.value, 11);
    EXPECT_EQ(p.sleep.VScroll2.value, 5);
    EXPECT_EQ(p.state.shut_warn_sec, 180);
    EXPECT_EQ(p.sleep.VScroll3.value, 3);
    EXPECT_EQ(p.sleep.Option1[3]->value, 1);
    EXPECT_EQ(p.sleep.Option1[4]->value, 0);
    EXPECT_EQ(p.sleep.Option2[1]->value, 1);
    EXPECT_EQ(p.state.shutdown_action_text, "重新启动计算机.");
    EXPECT_EQ(p.state.countdown_done, 0);
}

TEST(SleepForm, TheClockHasTwoDigitsForMinutesAndSeconds) {
    shutdown_program p;
    p.screen.date = {2026, 3, 4, 8, 5, 7};
    p.open();
    EXPECT_EQ(p.sleep.Text2.text, "8:05:07");
}

TEST(SleepForm, ADelayBelowOneMinuteIsOne) {
    shutdown_program p;
    p.state.shut_delay_min = 0;
    p.open();
    EXPECT_EQ(p.state.shut_delay_min, 1);
    EXPECT_EQ(p.sleep.Text3.text, "1");
    p.act("Option2(2)_Click");
    p.sleep.Text3.text = "0";
    p.act("Text3_DblClick");
    EXPECT_EQ(p.sleep.Text3.text, "1");
    EXPECT_EQ(p.state.shut_delay_min, 1);
}

TEST(SleepForm, ADelayWithoutMeasureIsCut) {
    shutdown_program p;
    p.count_down(1);
    p.sleep.Text3.text = "2000000000";
    p.act("Text3_KeyPress");
    p.act("Command1_Click");
    EXPECT_EQ(p.state.shut_delay_min, 1'000'000);
    EXPECT_EQ(p.sleep.countdown_total, 60'000'000);
}

TEST(SleepForm, OnlyTheTimedFormHasTimesAndAStart) {
    shutdown_program p;
    p.state.shutdown_after_task = 1;
    p.open();
    const auto enabled = [&p] {
        texts names;
        for (const control* each :
             {&p.sleep.Text_h, &p.sleep.Text_m, &p.sleep.Text3, static_cast<control*>(&p.sleep.VScroll1),
              static_cast<control*>(&p.sleep.VScroll2), p.sleep.commands[1], p.sleep.commands[2]})
            if (each->enabled) names.push_back(each->name());
        return names;
    };
    EXPECT_EQ(enabled(), texts{});
    p.act("Option2(2)_Click");
    EXPECT_EQ(p.state.shutdown_after_task, 2);
    EXPECT_EQ(enabled(), (texts{"Text_h", "Text_m", "Text3", "VScroll1", "VScroll2", "Command1"}));
    p.act("Option2(0)_Click");
    EXPECT_EQ(enabled(), texts{});
}

TEST(SleepForm, AnActionOtherThanTheFirstSetsItsPhrase) {
    shutdown_program p;
    p.open();
    p.act("Option1(2)_Click");
    EXPECT_EQ(p.state.shut_action, 2);
    EXPECT_EQ(p.state.shutdown_action_text, "关闭所有程序,重启windows.");
    p.act("Option1(0)_Click");
    EXPECT_EQ(p.state.shut_action, 0);
    EXPECT_EQ(p.state.shutdown_action_text, "关闭所有程序,重启windows.");
}

TEST(SleepForm, AnEndTimeEarlierThanNowCountsAsTomorrow) {
    shutdown_program p;
    p.open();
    p.sleep.Text_h.text = "9";
    p.sleep.Text_m.text = "50";
    p.act("Text_h_KeyPress");
    // 9:50 is 30 minutes before 10:20.
    EXPECT_EQ(p.state.shut_delay_min, 1410);
    EXPECT_EQ(p.sleep.Text3.text, "1410");
}

TEST(SleepForm, AnEndTimeOfThePresentMinuteIsNoDelayAndDoesNotStart) {
    shutdown_program p;
    p.open();
    p.act("Option2(2)_Click");
    p.sleep.Text_h.text = "10";
    p.sleep.Text_m.text = "20";
    p.act("Text_m_DblClick");
    EXPECT_EQ(p.state.shut_delay_min, 0);
    p.act("Command1_Click");
    EXPECT_EQ(p.last_message(), "睡眠延迟时间=0, 请重新预定睡眠延迟时间");
    EXPECT_FALSE(p.sleep.countdown_running);
    EXPECT_FALSE(p.sleep.commands[2]->enabled);
}

TEST(SleepForm, FieldsHoldTheirValuesInsideTheLimitsOfTheirBars) {
    shutdown_program p;
    p.open();
    p.sleep.Text_h.text = "77";
    p.sleep.Text_m.text = "99";
    p.act("Text_h_KeyPress");
    EXPECT_EQ(p.sleep.Text_h.text, "24");
    EXPECT_EQ(p.sleep.Text_m.text, "59");
    EXPECT_EQ(p.sleep.VScroll1.value, 24);
    p.sleep.Text_h.text = "abc";
    p.act("Text_h_KeyPress");
    EXPECT_EQ(p.sleep.Text_h.text, "0");
}

TEST(SleepForm, BarsWrapAndTheMinutesCarryIntoTheHours) {
    shutdown_program p;
    p.open();
    const auto turn = [&p](range_control& bar, int hours, int minutes, int value) {
        p.sleep.Text_h.text = std::to_string(hours);
        p.sleep.Text_m.text = std::to_string(minutes);
        p.act("Text_h_KeyPress");
        bar.value = value;
        p.act(bar.name() + "_Change");
        return p.sleep.Text_h.text + ":" + p.sleep.Text_m.text + " " + std::to_string(bar.value);
    };
    EXPECT_EQ(turn(p.sleep.VScroll1, 24, 10, 25), "0:10 0");
    EXPECT_EQ(turn(p.sleep.VScroll1, 0, 10, -1), "24:10 24");
    EXPECT_EQ(turn(p.sleep.VScroll2, 12, 0, -1), "11:59 59");
    EXPECT_EQ(turn(p.sleep.VScroll2, 12, 59, 60), "13:0 0");
    EXPECT_EQ(turn(p.sleep.VScroll2, 24, 59, 60), "0:0 0");
    // 0:00 against 10:20.
    EXPECT_EQ(p.state.shut_delay_min, 820);
}

TEST(SleepForm, AnEndBehindMidnightLosesTheDay) {
    shutdown_program p;
    p.screen.date = {2026, 3, 4, 23, 30, 0};
    p.state.shut_delay_min = 30;
    p.open();
    EXPECT_EQ(p.sleep.Text_h.text, "24");
    EXPECT_EQ(p.sleep.Text_m.text, "0");
    p.sleep.Text3.text = "31";
    p.act("Command3_Click");
    EXPECT_EQ(p.sleep.Text_h.text, "0");
    EXPECT_EQ(p.sleep.Text_m.text, "1");
}

TEST(SleepForm, TheWarningIsChosenInMinutes) {
    shutdown_program p;
    p.open();
    p.sleep.VScroll3.value = 7;
    p.act("VScroll3_Change");
    EXPECT_EQ(p.state.shut_warn_sec, 420);
    EXPECT_EQ(p.sleep.Text1.text, "7");
    p.sleep.Text1.text = "500";
    p.act("Text1_KeyPress");
    EXPECT_EQ(p.sleep.VScroll3.value, 60);
    EXPECT_EQ(p.state.shut_warn_sec, 3600);
}

TEST(SleepForm, TheCountdownShowsItsStartItsBarAndWhatIsLeft) {
    shutdown_program p;
    p.count_down(10);
    EXPECT_EQ(p.sleep.countdown_total, 600);
    EXPECT_EQ(p.sleep.Label9.caption, "10:20:30");
    EXPECT_TRUE(p.sleep.commands[2]->enabled);
    EXPECT_TRUE(p.sleep.pic_gressbar1.visible);
    EXPECT_EQ(p.sleep.pic_gressbar1.total(), 600);
    p.pass(1);
    EXPECT_EQ(p.sleep.Label4.caption, "0:9:59");
    EXPECT_NEAR(p.sleep.pic_gressbar1.filled(), 1.0 / 600, 1e-9);
    EXPECT_EQ(p.sleep.Text2.text, "10:20:31");
}

TEST(SleepForm, FiveSecondsAfterTheStartTheWindowIsMinimisedOnce) {
    shutdown_program p;
    p.count_down(10);
    p.pass(4);
    EXPECT_EQ(p.sleep.window, window_state::normal);
    p.pass(1);
    EXPECT_EQ(p.sleep.window, window_state::minimised);
    p.sleep.window = window_state::normal;
    p.pass(10);
    EXPECT_EQ(p.sleep.window, window_state::normal);
}

TEST(SleepForm, TheWarningOpensWhenTheRestFallsBelowItsLength) {
    shutdown_program p;
    p.state.shut_warn_sec = 180;
    p.count_down(5);
    p.pass(120);
    EXPECT_FALSE(p.warning.visible);  // 180 left
    p.pass(1);
    EXPECT_TRUE(p.warning.visible);
    EXPECT_EQ(p.state.warn_shown, -1);
    EXPECT_EQ(p.warning.ProgressBar1.maximum, 180);
}

TEST(SleepForm, ADelayOfTwoMinutesIsAllWarning) {
    shutdown_program p;
    p.state.shut_warn_sec = 600;
    p.count_down(2);
    EXPECT_EQ(p.state.shut_warn_sec, 120);
    p.pass(1);
    EXPECT_TRUE(p.warning.visible);
}

TEST(SleepForm, TheEndOfTheCountdownItselfDoesNothing) {
    shutdown_program p;
    p.count_down(4);
    p.pass(61);
    ASSERT_TRUE(p.warning.visible);
    p.form.run("shut_msg.Form_Unload");
    p.pass(1000);
    EXPECT_EQ(p.asked(), texts{});
    EXPECT_FALSE(p.warning.visible);
}

TEST(SleepForm, AMinimisedWarningNeverEndsInAShutdown) {
    shutdown_program p;
    p.count_down(4);
    p.pass(61);
    p.warning.window = window_state::minimised;
    p.form.run("shut_msg.Form_Resize");
    EXPECT_EQ(p.warning.Timer1.interval, 0);
    p.warning.window = window_state::normal;
    p.form.run("shut_msg.Form_Resize");
    p.pass(1000);
    EXPECT_EQ(p.asked(), texts{});
}

TEST(SleepForm, CancelTakesEverythingBack) {
    shutdown_program p;
    p.count_down(2);
    p.pass(5);
    p.act("Command2_Click");
    EXPECT_FALSE(p.sleep.countdown_running);
    EXPECT_EQ(p.state.countdown_done, 0);
    EXPECT_EQ(p.state.warn_done, 0);
    EXPECT_EQ(p.state.shutdown_after_task, 0);
    EXPECT_EQ(p.sleep.Option2[0]->value, 1);
    EXPECT_FALSE(p.warning.visible);
    p.pass(500);
    EXPECT_EQ(p.asked(), texts{});
}

TEST(SleepForm, ACountdownDiesWithItsWindow) {
    shutdown_program p;
    p.count_down(4);
    p.pass(3);
    p.act("Command7_Click");
    EXPECT_FALSE(p.sleep.visible);
    p.open();
    p.pass(1000);
    EXPECT_FALSE(p.warning.visible);
    EXPECT_EQ(p.asked(), texts{});
}

TEST(SleepForm, ASecondStartDoesNotStackOnTheFirst) {
    shutdown_program p;
    p.count_down(2);
    p.pass(100);
    p.sleep.Text3.text = "10";
    p.act("Text3_KeyPress");
    p.act("Command1_Click");
    EXPECT_FALSE(p.warning.visible);
    // The old warning would have ended 21 seconds from here.
    p.pass(400);
    EXPECT_EQ(p.asked(), texts{});
    p.pass(400);
    EXPECT_EQ(p.asked(), texts{"power_off"});
}

TEST(SleepForm, TheFormAfterASearchNeverUsesTheCountdown) {
    shutdown_program p;
    p.open();
    p.act("Option2(1)_Click");
    p.pass(5000);
    EXPECT_EQ(p.state.countdown_done, 0);
    EXPECT_EQ(p.asked(), texts{});
}

TEST(SleepForm, PowerSettingsAndHelp) {
    shutdown_program p;
    p.open();
    p.act("Command5_Click");
    p.act("Command6_Click");
    EXPECT_EQ(p.desktop.calls, (texts{"power_settings", "help aux41_Corvane帮助_Link.htm"}));
}

}  // namespace
}  // namespace corvane
