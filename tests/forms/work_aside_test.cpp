// Work that takes long beside the event loop: events run meanwhile, and what it throws comes back.
#include <gtest/gtest.h>

#include <QTimer>
#include <atomic>
#include <stdexcept>

#include "core/tasks/task_scope.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

TEST(work_aside, events_run_until_it_is_done) {
    forms_program shown;
    std::atomic<bool> has_ticked = false;
    bool done = false;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        EXPECT_FALSE(done);
        if (++ticks != 5) return;
        has_ticked = true;
        has_ticked.notify_all();
    });
    timer.start(1);
    // It ends only when events have run.
    shown.form.work_aside([&] { has_ticked.wait(false); });
    done = true;
    EXPECT_GE(ticks, 5);
    timer.stop();
}

TEST(work_aside, what_it_leaves_is_there_when_the_call_returns) {
    forms_program shown;
    for (int round = 0; round < 50; ++round) {
        std::vector<int> made;
        shown.form.work_aside([&] { made.assign(1000, round); });
        EXPECT_EQ(made, std::vector<int>(1000, round));
    }
}

TEST(work_aside, what_it_throws_is_thrown_on) {
    forms_program shown;
    EXPECT_THROW(shown.form.work_aside([] { throw std::runtime_error("no memory"); }), std::runtime_error);
}

TEST(work_aside, a_program_that_closes_meanwhile_waits_for_it) {
    forms_program shown;
    std::atomic<bool> has_closed = false;
    bool is_whole = false;
    shown.form.bind("picture2_Click", [&] {
        const task_scope task(shown.form);
        QTimer::singleShot(0, &shown.windows.main(), [&] {
            shown.windows.main().close();
            has_closed = true;
            has_closed.notify_all();
        });
        shown.form.work_aside([&] {
            has_closed.wait(false);
            is_whole = true;
        });
        EXPECT_TRUE(is_whole);
        EXPECT_FALSE(shown.screen.ended());
        EXPECT_NE(shown.form.state.quit_requested, 0);
    });
    shown.windows.act("picture2_Click");
    EXPECT_TRUE(shown.screen.ended());
}

}  // namespace
}  // namespace corvane
