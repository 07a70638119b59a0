// The walk of the search: links, limits, cancel, closing, and what it shows meanwhile.
#include "cleanup/empty_walk.h"

#include <gtest/gtest.h>

#include "core/model/main_form.h"
#include "tests/cleanup/empty_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(EmptyWalk, ALinkLoopEndsAndALinkFillsItsDirectory) {
    empty_program p;
    p.files.add_directory("/d/a/free");
    p.files.add_link("/d/a/up", "/d");
    p.files.add_directory("/d/b");
    p.files.add_link("/d/b/self", "/d/b");
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/a/free/"});
}

TEST(EmptyWalk, ALinkToAPlaceNotListedIsFollowedLast) {
    empty_program p;
    p.files.add_directory("/d/a");
    p.files.add_link("/d/away", "/elsewhere");
    p.files.add_directory("/d/z");
    p.files.add_directory("/elsewhere/free");
    p.files.add_link("/d/again", "/elsewhere");
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), (texts{"/d/a/", "/d/z/", "/d/again/free/"}));
}

TEST(EmptyWalk, FollowingALinkFillsNoDirectoryThatWasVisitedBefore) {
    empty_program p;
    p.files.add_link("/d/away", "/elsewhere");
    p.files.add_directory("/d/last");
    p.files.add_file("/elsewhere/file");
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/last/"});
}

TEST(EmptyWalk, ALinkIsNeverListedItself) {
    empty_program p;
    p.files.add_directory("/target");
    p.files.add_directory("/d");
    p.files.add_link("/d/link", "/target");
    p.files.add_directory("/other");
    p.files.add_link("/selected", "/other");
    p.find_empty({"/d", "/selected"});
    EXPECT_EQ(p.found(), texts{});
    EXPECT_EQ(p.panel(1), "搜索出目录:3");
}

TEST(EmptyWalk, AtTheLimitOfTheQueueWhatIsLeftOutStillFillsItsDirectory) {
    empty_program p;
    for (const char* path : {"/d/a/x", "/d/b/y", "/d/c"}) p.files.add_directory(path);
    p.state.limits.directories = 4;  // /d/ and its three
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/c/"});
    EXPECT_EQ(p.message_texts(), texts{"目录太多，只查找了前 4 个目录。"});
    EXPECT_FALSE(p.screen.messages.back().failure);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(EmptyWalk, ExactlyAtTheLimitNothingIsSaid) {
    empty_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_directory(path);
    p.state.limits.directories = p.state.limits.empty_directories = 3;
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), (texts{"/d/a/", "/d/b/"}));
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(EmptyWalk, AtTheLimitOfTheVisitsTheWalkEnds) {
    empty_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_directory(path);
    p.state.limits.empty_directories = 3;
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), (texts{"/d/a/", "/d/b/"}));
    EXPECT_EQ(p.message_texts(), texts{"目录太多，只查找了前 3 个目录。"});
    EXPECT_FALSE(p.screen.messages.back().failure);
}

TEST(EmptyWalk, CancelLeavesOutTheLastOneVisited) {
    empty_program p;
    p.files.add_directory("/d/a");
    p.files.add_file("/d/b/1");
    p.files.add_file("/d/b/2");
    p.files.add_directory("/d/c");
    // Two yields for each of three directories, then the first file of b.
    p.screen.acts[7] = [&] {
        EXPECT_TRUE(p.form.Command28.visible);
        EXPECT_EQ(p.form.Command28.caption, "取消[查找空目录]");
        EXPECT_FALSE(p.form.pictures[6]->enabled);
        p.form.run("Command28_Click");
    };
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/a/"});
    EXPECT_EQ(p.state.walk_count, 2);  // the directory in hand is read to its end
    EXPECT_FALSE(p.form.Command28.visible);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(EmptyWalk, CancelInTheFirstDirectoryEndsSilentlyAndWritesNothing) {
    empty_program p;
    p.files.add_directory("/d/a");
    p.screen.acts[1] = [&] { p.form.run("Command28_Click"); };
    p.find_empty({"/d"});
    EXPECT_FALSE(p.has_file());
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_FALSE(p.form.Command28.visible);
}

TEST(EmptyWalk, AnEarlierCancelDoesNotEndTheNextSearch) {
    empty_program p;
    p.files.add_directory("/d/a");
    p.state.cancel_task = -1;
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/a/"});
}

TEST(EmptyWalk, ClosingLeavesTheRunWithoutAFile) {
    empty_program probe;
    probe.files.add_file("/d/a/f");
    probe.files.add_directory("/d/b");
    probe.find_empty({"/d"});
    const std::int64_t yields = probe.screen.yields;
    const std::int64_t rows = 1;  // the bar of the view yields behind the file
    for (std::int64_t at = 1; at <= yields - rows; ++at) {
        empty_program p;
        p.files.add_file("/d/a/f");
        p.files.add_directory("/d/b");
        p.screen.acts[at] = [&] { p.state.quit_requested = -1; };
        p.find_empty({"/d"});
        EXPECT_FALSE(p.has_file()) << at;
        EXPECT_TRUE(p.screen.messages.empty()) << at;
    }
}

TEST(EmptyWalk, PanelAndLabelFollowTheDirectories) {
    empty_program p;
    p.files.add_directory("/d/a/x");
    p.state.show_run_filename = 1;
    p.state.walk_count = 99;
    p.screen.acts[2] = [&] {  // behind the first name
        EXPECT_EQ(p.panel(1), "搜索目录:2");
        EXPECT_EQ(p.panel(6), "0:0:0");
        EXPECT_EQ(p.panel(7), "查找空目录");
        EXPECT_EQ(p.form.Label4.caption, "目录数:2  /d/");
        EXPECT_TRUE(p.form.Label4.visible);
        EXPECT_TRUE(p.form.pic_gressbar1.visible);
        EXPECT_FALSE(p.form.RichTextBox2.visible);
        EXPECT_EQ(p.state.walk_count, 0);
        EXPECT_TRUE(p.state.tasks_locked);
    };
    p.screen.acts[4] = [&] { EXPECT_EQ(p.form.Label4.caption, "目录数:3  /d/a/"); };
    p.form.RichTextBox2.visible = true;
    p.form.listleft.add("row");
    p.find_empty({"/d"});
    EXPECT_GE(p.screen.yields, 4);
    EXPECT_FALSE(p.form.Label4.visible);
    EXPECT_EQ(p.form.listleft.row_count(), 0);
}

TEST(EmptyWalk, WithoutTheOptionTheLabelStaysAway) {
    empty_program p;
    p.files.add_directory("/d/a");
    p.form.Label4.visible = true;
    p.screen.acts[2] = [&] {
        EXPECT_FALSE(p.form.Label4.visible);
        EXPECT_FALSE(p.form.pic_gressbar1.visible);
        EXPECT_EQ(p.form.Label4.caption, "");
    };
    p.find_empty({"/d"});
    EXPECT_GE(p.screen.yields, 2);
}

TEST(EmptyWalk, Every213thFileTogglesThePanel) {
    empty_program p;
    for (int file = 1; file <= 640; ++file) p.files.add_file("/d/f" + std::to_string(file));
    std::map<int, std::string> shown;
    for (const int file : {1, 212, 213, 425, 426, 638, 639})
        p.screen.acts[file] = [&, file] { shown[file] = p.panel(1); };
    p.find_empty({"/d"});
    const std::map<int, std::string> expected = {{1, ""},           {212, ""},           {213, "正在搜索"},
                                                 {425, "正在搜索"}, {426, "搜索目录:1"}, {638, "搜索目录:1"},
                                                 {639, "正在搜索"}};
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(p.state.walk_count, 640);
}

TEST(EmptyWalk, TheBarCountsTheDirectories) {
    empty_program p;
    p.files.add_file("/d/a/f");
    p.find_empty({"/d"});
    EXPECT_EQ(p.form.pic_gressbar1.total(), 2);
    EXPECT_EQ(p.form.pic_gressbar1.back_colour(), 13619151);
    EXPECT_EQ(p.form.pic_gressbar1.filled(), 1.0);
}

}  // namespace
}  // namespace corvane
