#include "cleanup/empty_search.h"

#include <gtest/gtest.h>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "tests/cleanup/empty_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;
constexpr const char* both_entries[] = {"Picture6_Click", "Command43_Click"};

TEST(EmptySearch, ListsWhatHoldsNothingInTheOrderOfTheVisit) {
    for (const char* entry : both_entries) {
        empty_program p;
        for (const char* path : {"/d/z", "/d/a/deep", "/d/full/sub"}) p.files.add_directory(path);
        p.files.add_file("/d/full/sub/file");
        p.find_empty({"/d"}, entry);
        EXPECT_EQ(p.files.content_of("/prog/spasedir.txt"), "/d/z/\r\n/d/a/deep/\r\n") << entry;
        EXPECT_EQ(p.state.dir_queue,
                  (column<std::string>{"/d/", "/d/a/", "/d/full/", "/d/z/", "/d/a/deep/", "/d/full/sub/"}));
        EXPECT_FALSE(p.state.tasks_locked);
    }
}

TEST(EmptySearch, ASelectedDirectoryThatIsEmptyIsListed) {
    for (const char* selected : {"/d/only", "/d/only/"}) {
        empty_program p;
        p.files.add_directory("/d/only");
        p.find_empty({selected});
        EXPECT_EQ(p.found(), texts{"/d/only/"});
    }
}

TEST(EmptySearch, AHiddenFileFillsItsDirectory) {
    empty_program p;
    p.files.add_file("/d/a/.keep").hidden = true;
    p.files.add_directory("/d/b");
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/b/"});
}

TEST(EmptySearch, ADirectoryOfEmptyDirectoriesIsFoundByTheSecondRun) {
    empty_program p;
    p.files.add_file("/d/file");
    p.files.add_directory("/d/upper/lower");
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/upper/lower/"});
    p.mark_all();
    p.form.run("Picture8_Click");
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/upper/"});
}

TEST(EmptySearch, EveryKindOfEntryCounts) {
    empty_program p;
    p.files.add_directory("/d/fifo");
    p.files.add_file("/d/fifo/pipe").kind = entry_kind::other;
    p.files.add_directory("/d/linked");
    p.files.add_link("/d/linked/up", "/d");
    p.files.add_directory("/d/free");
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/free/"});
}

TEST(EmptySearch, WhatCannotBeReadIsNotEmptyAndPassedOverInSilence) {
    empty_program p;
    p.files.add_directory("/d/free");
    p.files.add_directory("/d/shut").unreadable = true;
    p.find_empty({"/d", "/gone"});
    EXPECT_EQ(p.found(), texts{"/d/free/"});
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(EmptySearch, TheLastOneVisitedIsNotEmptyWhenItCannotBeRead) {
    empty_program p;
    p.files.add_directory("/d/shut").unreadable = true;
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{});
    EXPECT_EQ(p.panel(1), "搜索出目录:2");
}

TEST(EmptySearch, AReadErrorShowsTheNameInHandAndLeavesTheDirectoryAside) {
    for (const char* entry : both_entries) {
        empty_program p;
        p.files.add_directory("/d/broken").breaks_after = 0;
        p.files.add_file("/d/half/name");
        p.files.add_directory("/d/half").breaks_after = 1;
        p.files.add_file("/d/odd/what?");
        p.files.add_directory("/d/odd").breaks_after = 1;
        p.find_empty({"/d"}, entry);
        EXPECT_EQ(p.found(), texts{});
        ASSERT_EQ(p.screen.messages.size(), 4u);
        EXPECT_EQ(p.screen.messages[0].text,
                  "错误提示: 无法知道下列文件的属性,所在目录不作处理\r\n/d/broken/");
        EXPECT_EQ(p.screen.messages[1].text,
                  "错误提示: 无法知道下列文件的属性,所在目录不作处理\r\n/d/half/name");
        EXPECT_EQ(p.screen.messages[2].text, "错误提示: 下列文件有非法字符,所在目录不作处理\r\n/d/odd/what?");
        EXPECT_EQ(p.screen.messages[2].title, "提示");
    }
}

TEST(EmptySearch, ARefusedSubdirectoryStillCountsAbove) {
    empty_program p;
    p.files.add_directory("/d/upper/temp");
    p.files.add_directory("/d/upper2/temp2");
    p.state.exclude_dir_text = "/D/UPPER/TEMP/ ";
    p.find_empty({"/d"});
    EXPECT_EQ(p.found(), texts{"/d/upper2/temp2/"});
    EXPECT_EQ(p.panel(1), "搜索出目录:1");  // by the view
}

TEST(EmptySearch, RecycleDirectoriesAreRefusedAsSelectionAndBelow) {
    empty_program p;
    p.files.add_directory("/d/.Trash");
    p.files.add_directory("/t/.Trash");
    p.files.recycle_directories = {"/d/.Trash/", "/t/.Trash/"};
    p.find_empty({"/d", "/t/.Trash"});
    EXPECT_EQ(p.found(), texts{});
    EXPECT_EQ(p.panel(1), "搜索出目录:1");
}

TEST(EmptySearch, WithoutASelectionNoFileIsWritten) {
    for (const char* entry : both_entries) {
        empty_program p;
        p.files.add_directory("/d");
        p.form.panel(1, "old");
        p.find_empty({}, entry);
        EXPECT_EQ(p.last_message(), "没有选定的目录，请在[目录选择]中选定目录");
        EXPECT_EQ(p.screen.messages.back().title, "提示");
        EXPECT_FALSE(p.has_file());
        EXPECT_FALSE(p.state.tasks_locked);
        EXPECT_EQ(p.panel(1), "");
        EXPECT_EQ(p.panel(7), "查找空目录");
        EXPECT_FALSE(p.form.Command28.visible);
    }
}

TEST(EmptySearch, WhenNoDirectoryIsVisitedTheUserIsTold) {
    empty_program p;
    p.files.add_directory("/d/x");
    p.state.exclude_dir_text = "/D/ ";
    p.find_empty({"/d", "  ", ""});
    EXPECT_EQ(p.last_message(), "没有找到任何目录，请重新在[目录选择]中选定目录");
    EXPECT_FALSE(p.has_file());
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_FALSE(p.form.Command28.visible);
}

TEST(EmptySearch, NothingEmptyLeavesAnEmptyFileAndSaysSo) {
    empty_program p;
    p.files.add_file("/d/a/file");
    p.find_empty({"/d"});
    EXPECT_TRUE(p.has_file());
    EXPECT_EQ(p.files.content_of("/prog/spasedir.txt"), "");
    EXPECT_EQ(p.message_texts(), texts{"没有空的子目录,不用整理"});
    EXPECT_EQ(p.panel(1), "搜索出目录:2");
    EXPECT_EQ(p.panel(2), "空目录:0");
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
    EXPECT_FALSE(p.form.Label4.visible);
    EXPECT_EQ(p.state.list_mode, 0);
}

TEST(EmptySearch, TheResultIsShown) {
    empty_program p;
    p.files.add_directory("/d/b");
    p.files.add_directory("/d/a/x");
    p.find_empty({"/d"});
    EXPECT_EQ(p.state.list_mode, 1);
    EXPECT_EQ(p.cells(2), (texts{"/d/a/x/", "/d/b/"}));
    EXPECT_EQ(p.panel(7), "显示空目录");
    EXPECT_TRUE(p.list().visible);
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(EmptySearch, HelpModeOpensTheTopicInPlaceOfTheSearch) {
    for (const char* entry : both_entries) {
        empty_program p;
        p.files.add_directory("/d");
        p.form.mouse_pointer = help_pointer;
        p.find_empty({"/d"}, entry);
        EXPECT_EQ(p.desktop.calls, texts{"help aux38_Corvane帮助_Link.htm"});
        EXPECT_FALSE(p.has_file());
    }
}

TEST(EmptySearch, TheMenuEntryRunsIt) {
    empty_program p;
    p.files.add_directory("/d");
    p.find_empty({"/d"}, "search_dir");
    EXPECT_EQ(p.found(), texts{"/d/"});
}

TEST(EmptySearch, AWriteErrorKeepsTheOldFileAndEndsTheTask) {
    empty_program p;
    p.files.add_file("/prog/spasedir.txt", "/old/\r\n");
    p.files.add_directory("/d");
    p.files.write_failure_path = "/prog/spasedir.txt";
    p.find_empty({"/d"});
    EXPECT_EQ(p.last_message(), "/prog/spasedir.txt\r\ndisk full");
    EXPECT_EQ(p.found(), texts{"/old/"});
    EXPECT_EQ(p.state.list_mode, 0);
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
}

TEST(EmptySearch, SeedsAreUpperCasedOnlyWhereTheDiskIgnoresCase) {
    test_program folding('\\');
    folding.files.add_directory("C:\\DATA\\OLD");
    folding.select({"c:\\data"});
    folding.form.run("Picture6_Click");
    EXPECT_EQ(folding.stored_lines("spasedir.txt"), texts{"C:\\DATA\\OLD\\"});
    empty_program keeping;
    keeping.files.add_directory("/d/Old");
    keeping.find_empty({"/d"});
    EXPECT_EQ(keeping.found(), texts{"/d/Old/"});
}

TEST(EmptySearch, TheProgramsOwnFileDoesNotFillItsFolder) {
    empty_program p;
    p.find_empty({"/prog"});
    EXPECT_EQ(p.found(), texts{"/prog/"});
}

}  // namespace
}  // namespace corvane
