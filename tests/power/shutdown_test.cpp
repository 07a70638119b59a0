// The last warning and what it carries out: the choice, the machine's refusal, and what runs meanwhile.
#include <gtest/gtest.h>

#include "tests/power/shutdown_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(Warning, IsAtLeastAMinuteLongAndStandsInTheMiddle) {
    shutdown_program p;
    p.state.shut_warn_sec = 30;
    p.form.run("显示关机提示");
    EXPECT_EQ(p.state.shut_warn_sec, 60);
    EXPECT_EQ(p.warning.ProgressBar1.maximum, 60);
    EXPECT_EQ(p.warning.ProgressBar1.value, 0);
    EXPECT_EQ(p.warning.Timer1.interval, 1000);
    EXPECT_EQ(p.state.warn_text, "就要关闭计算机.请做好准备");
    // The screen of the double is 15360 x 11520 twips.
    EXPECT_EQ(p.warning.place.left + p.warning.place.width / 2, 7680);
    EXPECT_EQ(p.warning.place.top + p.warning.place.height / 2, 5760);
    EXPECT_TRUE(p.screen.messages.empty());  // it does not wait
}

TEST(Warning, CountsInMinutesAndSeconds) {
    shutdown_program p;
    p.state.shut_warn_sec = 130;
    p.form.run("显示关机提示");
    p.pass(1);
    EXPECT_EQ(p.warning.Label1.caption, "还有 2 分 9秒,就要关闭计算机.请做好准备");
    EXPECT_EQ(p.warning.ProgressBar1.value, 1);
    p.pass(129);
    EXPECT_EQ(p.warning.Label1.caption, "还有 0 分 0秒,就要关闭计算机.请做好准备");
    EXPECT_EQ(p.asked(), texts{});
    p.pass(1);
    EXPECT_EQ(p.asked(), texts{"power_off"});
    p.pass(500);
    EXPECT_EQ(p.asked(), texts{"power_off"});
}

TEST(Warning, OpenedAgainItStartsAnew) {
    shutdown_program p;
    p.state.shut_warn_sec = 100;
    p.form.run("显示关机提示");
    p.pass(90);
    p.form.run("显示关机提示");
    p.pass(100);
    EXPECT_EQ(p.asked(), texts{});
    p.pass(1);
    EXPECT_EQ(p.asked(), texts{"power_off"});
}

struct chosen_action {
    std::int16_t shut_action;
    texts asked;
};

TEST(Shutdown, DoesWhatWasChosen) {
    for (const chosen_action& each :
         {chosen_action{0, {}}, {2, {"log_off"}}, {3, {"reboot"}}, {4, {"power_off"}}}) {
        shutdown_program p;
        p.state.shut_action = each.shut_action;
        p.form.run("shout_close");
        EXPECT_EQ(p.asked(), each.asked);
        EXPECT_TRUE(p.files.has("/prog/Tavrel环境.txt"));
        EXPECT_FALSE(p.screen.ended);
        EXPECT_FALSE(p.screen.boxes_held);
    }
}

TEST(Shutdown, TheFirstActionEndsTheProgram) {
    shutdown_program p;
    p.add_used_folder();
    ASSERT_TRUE(p.corvane.start());
    p.state.shut_action = 1;
    p.form.run("shout_close");
    EXPECT_TRUE(p.screen.ended);
    EXPECT_EQ(p.asked(), texts{});
}

TEST(Shutdown, TheTrialTakesEffectAtOnce) {
    shutdown_program p;
    p.open();
    p.act("Command4_Click");
    EXPECT_EQ(p.asked(), texts{"power_off"});
}

TEST(Shutdown, ARefusalIsToldInOneLineAndNothingElseHappens) {
    shutdown_program p;
    p.form.run("显示关机提示");
    p.desktop.answer = outcome::failure("系统不允许关机。");
    p.pass(61);
    EXPECT_EQ(p.asked(), texts{"power_off"});
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.last_message(), "系统不允许关机。");
    EXPECT_TRUE(p.warning.visible);
    EXPECT_FALSE(p.warning.Timer1.enabled);
    p.pass(500);
    EXPECT_EQ(p.asked().size(), 1u);
    EXPECT_FALSE(p.screen.ended);
}

// What a run has found is stored before the machine goes down.
TEST(Shutdown, AComparisonIsCancelledAndKeepsWhatItFound) {
    shutdown_program p;
    // Stars of three: the signatures go into the history, which is kept for long lists.
    constexpr int stars = 400;
    for (int i = 0; i < stars; ++i)
        for (const char* copy : {"a", "b", "c"})
            p.files.add_file("/d/" + std::to_string(i) + copy,
                             std::string(static_cast<std::size_t>(100 + i), 'x'));
    p.search({"/d"});
    bool fired = false;
    p.screen.on_yield = [&] {
        if (fired || p.state.result_count < 5) return;
        fired = true;
        p.form.run("shout_close");
        EXPECT_EQ(p.asked(), texts{});  // not while it runs
        EXPECT_TRUE(p.form.task_runs());
    };
    p.form.run("Picture3_Click");
    ASSERT_TRUE(fired);
    EXPECT_EQ(p.asked(), texts{"power_off"});
    EXPECT_GE(p.stored_pairs().size(), 5u);
    EXPECT_LT(p.stored_pairs().size(), std::size_t{2} * stars);
    EXPECT_TRUE(p.files.has("/prog/run_history.txt"));
    // Nobody was there to answer the closing message.
    EXPECT_TRUE(p.screen.messages.empty()) << p.last_message();
    EXPECT_FALSE(p.form.task_runs());
}

// Nobody sees the box that says so; the machine must not go down over it.
TEST(Shutdown, AResultThatCannotBeWrittenKeepsTheMachineUpAndIsToldAgain) {
    shutdown_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c", "/d/longer 1", "/d/longer 2"}) p.files.add_file(path, "same content" + std::string(std::string_view(path).size() / 8, 'x'));
    p.search({"/d"});
    p.files.write_failure_path = "/prog/相同文件.txt";
    bool fired = false;
    p.screen.on_yield = [&] {
        if (!fired && p.state.result_count > 0) p.form.run("shout_close");
        fired |= p.state.result_count > 0;
    };
    p.form.run("Picture3_Click");
    ASSERT_TRUE(fired);
    EXPECT_EQ(p.asked(), texts{});
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.last_message(), "/prog/相同文件.txt\r\ndisk full");
    EXPECT_FALSE(p.screen.boxes_held);
    // With room again it goes down, and of the old failure nothing is left.
    p.files.write_failure_path.clear();
    p.form.run("shout_close");
    EXPECT_EQ(p.asked(), texts{"power_off"});
}

TEST(Shutdown, SettingsThatCannotBeWrittenKeepTheMachineUp) {
    shutdown_program p;
    p.files.write_failure_path = "/prog/Tavrel环境.txt";
    p.form.run("shout_close");
    EXPECT_EQ(p.asked(), texts{});
    EXPECT_EQ(p.last_message(), "/prog/Tavrel环境.txt\r\ndisk full");
    EXPECT_FALSE(p.screen.boxes_held);
}

TEST(Shutdown, ATaskThatBeginsMeanwhileIsCancelledAtOnce) {
    shutdown_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c", "/d/e"}) p.files.add_file(path, "same content");
    bool fired = false;
    p.screen.on_yield = [&] {
        // During the walk of the combined road, which cannot be cancelled itself.
        if (!fired && p.state.walk_count > 0) p.form.run("shout_close");
        fired |= p.state.walk_count > 0;
    };
    p.select({"/d"});
    p.form.run("search_check_m_Click");
    ASSERT_TRUE(fired);
    EXPECT_EQ(p.asked(), texts{"power_off"});
    EXPECT_EQ(p.state.result_count, 0);
    EXPECT_TRUE(p.files.has("/prog/文件清单.txt"));
}

TEST(Shutdown, ADeletionIsWaitedForAndWhole) {
    shutdown_program p;
    for (int i = 0; i < 20; ++i)
        for (const char* folder : {"/d/", "/e/"})
            p.files.add_file(folder + std::to_string(i), std::string(static_cast<std::size_t>(100 + i), 'x'));
    p.desktop.on_recycle = [&p](const std::string& path) {
        EXPECT_EQ(p.asked(), texts{});
        p.files.erase(path);
        if (path == "/e/3") p.form.run("shout_close");
        return outcome::success();
    };
    p.compare({"/d", "/e"});
    p.form.run("Picture4_Click");
    for (std::int32_t row = 1; row <= 20; ++row) p.form.ListView1.set_colour(row, 4, cell_colour::mark_red);
    p.screen.messages.clear();
    p.screen.answers = {box_answer::yes};
    p.form.run("Picture5_Click");
    for (int i = 0; i < 20; ++i) EXPECT_FALSE(p.files.has("/e/" + std::to_string(i))) << i;
    EXPECT_TRUE(p.stored_pairs().empty());
    EXPECT_EQ(p.asked(), texts{"power_off"});
}

// A question that stands is dismissed, which does no harm.
TEST(Shutdown, AQuestionThatStandsDeletesNothing) {
    shutdown_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/e/a", "same");
    p.compare({"/d", "/e"});
    p.form.run("Picture4_Click");
    p.form.ListView1.set_colour(1, 4, cell_colour::mark_red);
    p.screen.on_question = [&p] {
        p.form.run("shout_close");
        EXPECT_TRUE(p.screen.boxes_held);
        EXPECT_EQ(p.asked(), texts{});
        return box_answer::dismissed;
    };
    p.form.run("Picture5_Click");
    EXPECT_EQ(p.asked(), texts{"power_off"});
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_FALSE(p.screen.boxes_held);
}

TEST(Shutdown, ClosingTheWarningTakesItBackWhileItWaits) {
    shutdown_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c", "/d/e"}) p.files.add_file(path, "same content");
    p.search({"/d"});
    p.form.run("显示关机提示");
    int yields = 0;
    p.screen.on_yield = [&] {
        if (++yields == 1) p.form.run("shout_close");
        if (yields == 2) p.form.run("shut_msg.Form_Unload");
    };
    p.form.run("Picture3_Click");
    ASSERT_GT(yields, 2);
    EXPECT_EQ(p.asked(), texts{});
    EXPECT_FALSE(p.screen.boxes_held);
}

TEST(Shutdown, AProgramThatClosesEndsEverything) {
    shutdown_program p;
    p.add_used_folder();
    ASSERT_TRUE(p.corvane.start());
    p.form.run("显示关机提示");
    p.form.run("exit_sub");
    p.pass(100);
    EXPECT_EQ(p.asked(), texts{});
    EXPECT_TRUE(p.screen.ended);
}

TEST(Shutdown, AfterASearchTheQuestionIsPutOnceAndTheWarningTakesThePlaceOfTheMessage) {
    for (const char* road : {"search_check_m_Click", "Picture3_Click"}) {
        shutdown_program p;
        p.files.add_file("/d/a", "same");
        p.files.add_file("/d/b", "same");
        p.search({"/d"});
        p.state.shutdown_after_task = 1;
        p.screen.messages.clear();
        p.screen.answers = {box_answer::yes};
        p.form.run(road);
        ASSERT_EQ(p.screen.messages.size(), 1u) << road;
        EXPECT_EQ(p.last_message(), "  运行完毕后,关闭计算机.同意吗(Y/N)?");
        EXPECT_EQ(p.screen.messages[0].title, "提示");
        EXPECT_EQ(p.screen.messages[0].help_context, 1000);
        EXPECT_TRUE(p.warning.visible);
        EXPECT_EQ(p.state.warn_shown, -1);
        EXPECT_FALSE(p.sleep.visible);  // it is not needed
        EXPECT_FALSE(p.form.task_runs());
        EXPECT_EQ(p.stored_pairs().size(), 1u);
        p.pass(61);
        EXPECT_EQ(p.asked(), texts{"power_off"});
    }
}

TEST(Shutdown, ANoTakesTheShutdownBackAndAMessageEndsTheRun) {
    shutdown_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.search({"/d"});
    p.state.shutdown_after_task = 1;
    p.screen.answers = {box_answer::no};
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.state.shutdown_after_task, 0);
    EXPECT_FALSE(p.warning.visible);
    EXPECT_EQ(p.screen.messages.back().title, "检查同内容文件完毕");
}

// The time of day is the countdown's, not the end of a run.
TEST(Shutdown, TheTimedFormNeitherAsksNorWarnsAfterARun) {
    shutdown_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.search({"/d"});
    p.state.shutdown_after_task = 2;
    p.screen.messages.clear();
    p.form.run("Picture3_Click");
    p.form.run("Command44_Click");
    EXPECT_FALSE(p.warning.visible);
    EXPECT_EQ(p.screen.messages[0].title, "检查同内容文件完毕");
}

TEST(Shutdown, TheChoiceStaysSaved) {
    shutdown_program p;
    p.add_used_folder();
    ASSERT_TRUE(p.corvane.start());
    p.open();
    p.act("Option2(1)_Click");
    p.act("Option1(3)_Click");
    p.form.run("exit_sub");
    shutdown_program next;
    for (const char* name : {"Tavrel环境.txt", "不参加搜索的目录.txt", "不参加比较的文件类型.txt",
                             "仅搜索的文件类型.txt", "比较文件_目录清单.txt"})
        next.files.add_file(std::string("/prog/") + name, p.files.content_of(std::string("/prog/") + name));
    ASSERT_TRUE(next.corvane.start());
    EXPECT_EQ(next.state.shutdown_after_task, 1);
    EXPECT_EQ(next.state.shutdown_action_text, "重新启动计算机.");
}

}  // namespace
}  // namespace corvane
