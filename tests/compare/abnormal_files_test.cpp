#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct abnormal_program : test_program {
    void check(const texts& entries) {
        std::string text;
        for (const std::string& entry : entries) text += entry + "\r\n";
        files.add_file("/prog/文件清单.txt", text);
        state.file_list_loaded = 0;
        form.run("search_no_normal_file");
    }
    texts rows() const {
        texts found;
        for (const list_box::row& row : form.List1.rows()) found.push_back(row.text);
        return found;
    }
};

TEST(AbnormalFiles, PlainFilesThatAreThereGiveNone) {
    abnormal_program p;
    const texts paths{"/d/a.txt", "/d/说明.doc", "/d/\xff\xfe", "/d/\xEF\x80\xAA mapped", "/d/empty"};
    for (const std::string& path : paths) p.files.add_file(path);
    p.form.layout.inner_width = 9000;
    p.check(paths);
    EXPECT_EQ(p.rows(), texts{});
    EXPECT_EQ(p.form.StatusBar1.panel(3), "0异常文件");
    EXPECT_EQ(p.form.StatusBar1.panel(7), "查异常文件结束");
    EXPECT_TRUE(p.form.List1.visible);
    EXPECT_EQ(p.form.List1.place.left, 100);
    EXPECT_EQ(p.form.List1.place.width, 8700);
    EXPECT_EQ(p.state.file_list_loaded, 0);
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(AbnormalFiles, AFileRemovedSinceIsReportedByBothPasses) {
    abnormal_program p;
    p.files.add_file("/d/a");
    p.check({"/d/a", "/d/没了.txt"});
    // The length pass first: path and value, then the nine characters of the path; then the attribute pass.
    EXPECT_EQ(p.rows(), (texts{"/d/没了.txt   -1", "9", "/d/没了.txt"}));
    EXPECT_EQ(p.form.StatusBar1.panel(3), "1异常文件");
}

TEST(AbnormalFiles, TheLengthPassEndsBeforeTheAttributePassBegins) {
    abnormal_program p;
    p.check({"/1", "/22"});
    EXPECT_EQ(p.rows(), (texts{"/1   -1", "2", "/22   -1", "3", "/1", "/22"}));
    EXPECT_EQ(p.form.StatusBar1.panel(3), "2异常文件");
}

TEST(AbnormalFiles, AnArchiveMemberIsReportedByBothPasses) {
    abnormal_program p;
    p.files.add_file("/d/x.zip");
    p.check({"/d/x.zip", "/d/x.zip*a*00000000*1"});
    EXPECT_EQ(p.rows(), (texts{"/d/x.zip*a*00000000*1   -1", "21", "/d/x.zip*a*00000000*1"}));
    EXPECT_EQ(p.form.StatusBar1.panel(3), "1异常文件");
}

TEST(AbnormalFiles, WhatIsThereWithoutALengthIsReportedByTheLengthPassAlone) {
    abnormal_program p;
    p.files.add_directory("/d/now a directory");
    p.check({"/d/now a directory"});
    EXPECT_EQ(p.rows(), (texts{"/d/now a directory   -1", "18"}));
    EXPECT_EQ(p.form.StatusBar1.panel(3), "0异常文件");
}

TEST(AbnormalFiles, TakesTheListInMemoryIfItIsAsTheSearchLeftIt) {
    abnormal_program p;
    p.files.add_file("/d/a");
    p.files.add_file("/d/b");
    p.search({"/d"});
    p.files.add_file("/prog/文件清单.txt", "/other\r\n");
    p.files.erase("/d/b");
    p.form.List1.add("old row");
    p.form.run("Command44_Click");
    EXPECT_EQ(p.rows(), (texts{"/d/b   -1", "4", "/d/b"}));
    EXPECT_EQ(p.state.file_list_loaded, 0);
    p.form.run("Command44_Click");
    EXPECT_EQ(p.rows(), (texts{"/other   -1", "6", "/other"})) << "the stored list";
}

TEST(AbnormalFiles, WithoutAListItSaysSo) {
    abnormal_program p;
    p.check({});
    ASSERT_EQ(p.screen.messages.size(), 2u) << "the reader's words, and its own";
    EXPECT_EQ(p.last_message(), "没有文件，请重新选择目录");
    EXPECT_EQ(p.screen.messages.back().title, "提示");
    EXPECT_EQ(p.screen.messages.back().help_context, 1009);
    EXPECT_TRUE(p.screen.messages.back().help_button);
    EXPECT_FALSE(p.form.List1.visible);
}

TEST(AbnormalFiles, NeitherShowsTheCancelButtonInItsPassesNorHeedsIt) {
    abnormal_program p;
    p.search({"/d"});
    p.screen.on_yield = [&] {
        EXPECT_FALSE(p.form.Command28.visible);
        p.form.run("Command28_Click");
    };
    p.check({"/d/x", "/d/y"});
    EXPECT_EQ(p.rows().size(), 6u);
}

TEST(AbnormalFiles, AsksAboutTheShutdownUnlessTheRunIsChained) {
    abnormal_program p;
    p.files.add_file("/d/a");
    p.state.shutdown_after_task = 1;
    p.state.shutdown_action_text = "关机";
    p.check({"/d/a"});
    EXPECT_EQ(p.last_message(), "  运行完毕后,关机同意吗(Y/N)?");
    EXPECT_EQ(p.state.shutdown_after_task, 0) << "no answer is No";
    p.state.shutdown_after_task = 1;
    p.screen.answers.push_back(box_answer::yes);
    p.check({"/d/a"});
    EXPECT_EQ(p.state.shutdown_after_task, 1);
    p.screen.messages.clear();
    p.state.chained_run_flag = -1;
    p.check({"/d/a"});
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(AbnormalFiles, HelpModeOpensTheTopic) {
    abnormal_program p;
    p.form.mouse_pointer = help_pointer;
    p.form.run("search_no_normal_file");
    EXPECT_EQ(p.desktop.calls, (texts{"help aux12_Corvane帮助_Link.htm"}));
}

TEST(AbnormalFiles, ClosingTheProgramWhileTheListIsReadEndsTheTask) {
    abnormal_program p;
    p.screen.acts[1] = [&] { p.corvane.close(); };
    p.check({"/gone"});
    EXPECT_EQ(p.rows(), texts{});
    EXPECT_FALSE(p.form.List1.visible);
}

TEST(AbnormalFiles, TheButtonIsHidden) {
    abnormal_program p;
    EXPECT_FALSE(p.form.find("Command44")->visible);
    EXPECT_EQ(p.form.find("Command44")->caption, "查异常文件");
    EXPECT_TRUE(p.form.find("search_no_normal_file")->enabled);
}

TEST(AbnormalFiles, EventsRunAtEachEntryAndNoOtherTask) {
    abnormal_program p;
    p.files.add_file("/d/a");
    std::int64_t entries = 0;
    p.screen.on_yield = [&] {
        ++entries;
        p.form.run("Picture3_Click");
        p.form.run("读暂存的文件清单_M");
    };
    p.check({"/d/a", "/d/gone"});
    // Each of the two while the list is read and in both passes.
    EXPECT_EQ(entries, 6);
    EXPECT_EQ(p.rows(), (texts{"/d/gone   -1", "7", "/d/gone"}));
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(AbnormalFiles, AProgramThatClosesLooksAtNoFurtherEntry) {
    abnormal_program p;
    p.screen.acts[p.screen.yields + 3 + 2] = [&] { p.form.run("exit_sub"); };
    p.check({"/d/x", "/d/y", "/d/z"});
    EXPECT_EQ(p.rows(), (texts{"/d/x   -1", "4"}));
}

}  // namespace
}  // namespace corvane
