// The scope of a task: what it locks, what it closes, how it nests.
#include "core/tasks/task_scope.h"

#include <gtest/gtest.h>

#include "core/tasks/progress.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

TEST(TaskScope, LocksAndClosesBarButtonAndLock) {
    test_program p;
    {
        const task_scope task(p.form);
        EXPECT_TRUE(tasks_locked(p.form));
        EXPECT_FALSE(p.form.pictures[3]->enabled);
        p.form.pic_gressbar1.visible = p.form.Command28.visible = true;
    }
    EXPECT_FALSE(tasks_locked(p.form));
    EXPECT_TRUE(p.form.pictures[3]->enabled);
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
    EXPECT_FALSE(p.form.Command28.visible);
}

TEST(TaskScope, AnInnerOneLeavesTheLockToTheOuter) {
    test_program p;
    task_scope outer(p.form);
    p.form.Command28.visible = true;
    {
        task_scope inner(p.form);
        inner.close();
        EXPECT_TRUE(tasks_locked(p.form));
    }
    EXPECT_TRUE(tasks_locked(p.form));
    EXPECT_TRUE(p.form.Command28.visible);
    outer.close();
    EXPECT_FALSE(tasks_locked(p.form));
}

TEST(TaskScope, ClosesOnceOnly) {
    test_program p;
    task_scope first(p.form);
    first.close();
    first.close();
    const task_scope second(p.form);
    first.close();
    EXPECT_TRUE(tasks_locked(p.form));
}

TEST(TaskScope, AClosingProgramKeepsItsTasksLocked) {
    test_program p;
    {
        const task_scope task(p.form);
        p.state.quit_requested = true;
    }
    EXPECT_TRUE(tasks_locked(p.form));
}

TEST(TaskScope, TheViewAtTheEndOfAComparisonDoesNotUnlockIt) {
    test_program p;
    p.files.add_file("/d/a", "x");
    p.files.add_file("/d/b", "x");
    p.screen.on_message = [&](const message& shown) {
        if (shown.title == "检查同内容文件完毕") {
            EXPECT_TRUE(tasks_locked(p.form));
        }
    };
    p.compare({"/d"});
    EXPECT_EQ(p.screen.messages.size(), 1u);
    EXPECT_FALSE(tasks_locked(p.form));
}

TEST(TaskScope, AWriteThatFailsFreesTheTasksAndHidesBarAndButton) {
    for (const char* store : {"相同文件.txt", "不相同文件.txt"}) {
        test_program p;
        p.files.add_file("/d/a", "x");
        p.files.add_file("/d/b", "x");
        p.files.add_file("/d/c", "another");
        p.files.write_failure_path = std::string("/prog/") + store;
        p.compare({"/d"});
        EXPECT_EQ(p.last_message(), p.files.write_failure_path + "\r\ndisk full");
        EXPECT_FALSE(tasks_locked(p.form)) << store;
        EXPECT_FALSE(p.form.pic_gressbar1.visible) << store;
        EXPECT_FALSE(p.form.Command28.visible) << store;
    }
}

}  // namespace
}  // namespace corvane
