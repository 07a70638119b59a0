// What the desktop gets to know of a task, at a clock that the test turns.
#include "forms/long_run.h"

#include <gtest/gtest.h>

#include "core/language/translation.h"
#include "core/tasks/progress.h"
#include "forms/main_window.h"
#include "forms/own_words.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct watched : forms_program {
    watched() {
        run.in_front = [this] { return looked_at; };
    }
    void begin() {
        form.panel(7, "查相同文件");
        lock_tasks(form);
        run.follow();
    }
    void end() {
        unlock_tasks(form);
        run.follow();
    }
    // As begin and end, over so many seconds.
    void task(double seconds) {
        begin();
        now += seconds;
        end();
        run.settle();
    }
    texts notifications() const {
        texts told;
        for (const std::string& call : desk.calls)
            if (call.starts_with("notify")) told.push_back(call);
        return told;
    }

    double now = 5000;
    bool looked_at = false;
    scripted_attention desk;
    long_run run{form, &desk, windows.main(), [this] { return now; }};
};

TEST(long_run, holds_the_machine_awake_while_a_task_runs_and_no_longer) {
    watched shown;
    shown.begin();
    EXPECT_EQ(shown.desk.awake, 1);
    EXPECT_EQ(shown.desk.calls, texts{"awake 正在运行: 查相同文件"});
    shown.run.follow();
    EXPECT_EQ(shown.desk.awake, 1);
    shown.end();
    EXPECT_EQ(shown.desk.awake, 1);  // perhaps only between two steps
    shown.run.settle();
    EXPECT_EQ(shown.desk.awake, 0);
}

TEST(long_run, two_steps_of_one_task_are_one_run) {
    watched shown;
    shown.begin();
    shown.now += 20;
    shown.end();
    shown.begin();
    shown.now += 20;
    shown.end();
    shown.run.settle();
    EXPECT_EQ(shown.notifications().size(), 1u);
    EXPECT_EQ(shown.desk.awake, 0);
}

TEST(long_run, a_program_that_ends_lets_the_machine_sleep) {
    watched shown;
    shown.begin();
    shown.run.end();
    EXPECT_EQ(shown.desk.awake, 0);
}

TEST(long_run, shows_how_far_it_has_come_once_a_percent) {
    watched shown;
    shown.begin();
    shown.form.pic_gressbar1.set_colours(0, 0, 0);
    shown.form.pic_gressbar1.set_scale(1000);
    for (const int position : {10, 12, 500, 500}) {
        shown.form.pic_gressbar1.draw(position);
        shown.run.follow();
    }
    shown.end();
    shown.run.settle();
    EXPECT_EQ(shown.desk.calls,
              (texts{"awake 正在运行: 查相同文件", "progress 1", "progress 50", "no progress"}));
}

TEST(long_run, tells_the_end_of_what_took_more_than_thirty_seconds) {
    watched shown;
    shown.form.StatusBar1.clear_figures();
    shown.form.panel(3, "相同文件:12");
    shown.form.panel(6, "0:0:31");
    shown.task(30);
    EXPECT_EQ(shown.notifications(), texts{});
    shown.task(30.5);
    EXPECT_EQ(shown.notifications(), texts{"notify Corvane: 查相同文件|相同文件:12  0:0:31"});
}

TEST(long_run, speaks_the_language_of_the_windows_to_the_desktop) {
    watched shown;
    const translation table = english();
    use_translation(&table);
    shown.form.StatusBar1.clear_figures();
    shown.form.panel(1, "12个文件");
    shown.form.panel(3, "相同文件:12");
    shown.task(31);
    use_translation(nullptr);
    EXPECT_EQ(shown.desk.calls, (texts{"awake Running: Find duplicates",
                                       "notify Corvane: Find duplicates|12 files  Duplicates: 12"}));
}

TEST(long_run, the_second_that_settles_does_not_count) {
    watched shown;
    shown.begin();
    shown.now += 29.5;
    shown.end();
    shown.now += 1;
    shown.run.settle();
    EXPECT_EQ(shown.notifications(), texts{});
}

TEST(long_run, tells_nothing_to_a_user_who_looks_or_does_not_want_it) {
    watched shown;
    shown.looked_at = true;
    shown.task(100);
    shown.looked_at = false;
    shown.corvane.options_window().Check7.value = 0;
    shown.form.run("Form_no_dire.Check7_Click");
    shown.task(100);
    EXPECT_EQ(shown.notifications(), texts{});
    EXPECT_EQ(shown.files.content_of("/prog/附加设置.txt"), "notify_after_task=0\r\nenglish=0\r\n");
}

TEST(long_run, a_click_brings_the_window_back) {
    watched shown;
    shown.task(100);
    shown.windows.main().showMinimized();
    ASSERT_TRUE(shown.desk.click);
    shown.desk.click();
    EXPECT_FALSE(shown.windows.main().isMinimized());
    EXPECT_TRUE(shown.windows.main().isVisible());
}

// The front end feeds it.
TEST(long_run, the_front_end_holds_it_for_its_tasks) {
    forms_program shown;
    int awake = 0;
    shown.form.bind("picture2_Click", [&] {
        lock_tasks(shown.form);
        shown.windows.sync();
        awake = shown.notice.awake;
        unlock_tasks(shown.form);
    });
    shown.windows.act("picture2_Click");
    EXPECT_EQ(awake, 1);
}

}  // namespace
}  // namespace corvane
