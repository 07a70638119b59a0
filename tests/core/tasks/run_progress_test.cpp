// How far a task is, in words: counts, shares, and a pace that is that of the last seconds.
#include "core/tasks/run_progress.h"

#include <gtest/gtest.h>

#include "core/tasks/progress.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

struct searching {
    searching() {
        lock_tasks(p.form);
        p.form.panel(7, "文件搜索");
        p.state.file_count = 0;
    }
    void at(double seconds, std::int32_t found) {
        p.state.walk_count = found;
        progress.follow(p.form, seconds);
    }
    test_program p;
    run_progress progress;
};

TEST(run_progress, a_search_tells_its_count_and_no_share) {
    searching run;
    run.at(100, 0);
    EXPECT_TRUE(run.progress.searches());
    EXPECT_EQ(run.progress.words(), "已找到 0 个文件");
    EXPECT_EQ(run.progress.percent_words(), "");
    run.at(104, 12'480);
    EXPECT_EQ(run.progress.words(), "已找到 12,480 个文件, 每秒 3,120 个");
    EXPECT_EQ(run.progress.found_words(), "已找到 12,480 个文件");
}

TEST(run_progress, a_pace_is_that_of_the_last_seconds) {
    searching run;
    // 1,000 a second for a minute, then 10 a second.
    int found = 0;
    for (int second = 0; second <= 60; ++second) run.at(second, found = second * 1000);
    EXPECT_EQ(run.progress.words(), "已找到 60,000 个文件, 每秒 1,000 个");
    for (int second = 61; second <= 70; ++second) run.at(second, found += 10);
    EXPECT_EQ(run.progress.words(), "已找到 60,100 个文件, 每秒 10 个");
}

TEST(run_progress, nobody_hears_of_a_pace_before_there_is_one) {
    searching run;
    run.at(10, 0);
    run.at(10.5, 40'000);
    EXPECT_EQ(run.progress.words(), "已找到 40,000 个文件") << "half a second is no pace";
    // The machine slept, or the clock stands still: no division by nothing.
    run.at(10.5, 50'000);
    EXPECT_EQ(run.progress.words(), "已找到 50,000 个文件");
}

TEST(run_progress, nothing_is_told_of_a_task_without_a_line) {
    test_program p;
    run_progress progress;
    progress.follow(p.form, 1);
    EXPECT_EQ(progress.words(), "");
    EXPECT_LT(progress.share(), 0);
    lock_tasks(p.form);
    p.form.pic_gressbar1.set_scale(200);
    p.form.pic_gressbar1.visible = true;
    p.form.pic_gressbar1.draw(50);
    progress.follow(p.form, 2);
    EXPECT_EQ(progress.words(), "");
    EXPECT_EQ(progress.percent_words(), "25%") << "the title tells of every bar";
    p.form.pic_gressbar1.visible = false;
    progress.follow(p.form, 3);
    EXPECT_EQ(progress.percent_words(), "");
}

// Four files of 1 MB, one alone, two empty ones: ordered by length.
struct comparing {
    comparing() {
        lock_tasks(p.form);
        for (const std::int64_t length : {0, 0, 500, 1'048'576, 1'048'576, 1'048'576, 1'048'576})
            p.state.file_len.push_back(length);
        p.state.file_count = p.state.file_len.size();
        offer_cancel(p.form, "查相同文件");
        p.form.pic_gressbar1.set_scale(p.state.file_count);
    }
    void at(double seconds, std::int32_t file, std::int64_t read) {
        p.form.pic_gressbar1.draw(file);
        p.state.bytes_read = read;
        progress.follow(p.form, seconds);
    }
    test_program p;
    run_progress progress;
    static constexpr std::int64_t mb = 1'048'576;
};

TEST(run_progress, a_comparison_tells_share_bytes_speed_and_rest) {
    comparing run;
    run.at(50, 4, 0);
    EXPECT_EQ(run.progress.words(), "比对 0%, 0 字节 / 4.0 MB") << "what nobody reads does not count";
    run.at(52, 4, 2 * run.mb);
    // Two of four megabytes in two seconds.
    EXPECT_EQ(run.progress.words(), "比对 49%, 2.0 MB / 4.0 MB, 每秒 1.0 MB, 剩余约 0:0:3");
    EXPECT_EQ(run.progress.percent_words(), "49%");
}

TEST(run_progress, what_a_group_has_been_read_for_is_not_taken_back) {
    comparing run;
    run.at(50, 4, 0);
    run.at(51, 4, 4 * run.mb);
    const double share = run.progress.share();
    EXPECT_GT(share, 0.9);
    for (std::int32_t file = 5; file <= 7; ++file) {
        run.at(50 + file, file, 4 * run.mb);
        EXPECT_GE(run.progress.share(), share) << file;
        EXPECT_LE(run.progress.share(), 1.0);
    }
}

TEST(run_progress, another_task_with_a_cancel_button_is_no_comparison) {
    comparing run;
    run.p.form.Command28.caption = "取消[查找空目录]";
    run.at(50, 4, 0);
    EXPECT_EQ(run.progress.words(), "");
}

TEST(run_progress, each_phase_begins_with_a_pace_of_its_own) {
    searching run;
    run.at(0, 0);
    run.at(5, 100'000);
    run.p.form.panel(7, "查相同文件_核对属性");
    run.p.state.file_count = 100'000;
    run.p.form.pic_gressbar1.set_scale(99'999);
    run.p.form.pic_gressbar1.visible = true;
    run.p.form.pic_gressbar1.draw(0);
    run.progress.follow(run.p.form, 6);
    EXPECT_EQ(run.progress.words(), "核对属性 0%, 0 / 99,999 个文件");
    run.p.form.pic_gressbar1.draw(50'000);
    run.progress.follow(run.p.form, 8);
    EXPECT_EQ(run.progress.words(), "核对属性 50%, 50,000 / 99,999 个文件, 每秒 25,000 个");
}

}  // namespace
}  // namespace corvane
