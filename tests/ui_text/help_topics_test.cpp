// Topics: the words of the status bar, help mode, menus, contexts.
#include <gtest/gtest.h>

#include "tests/support/help_call.h"
#include "tests/support/test_program.h"
#include "ui_text/help_topics.h"

namespace corvane {
namespace {

TEST(HelpTopics, AClickOnTheStatusBarOpensTheTopicOfPanelSeven) {
    const std::pair<const char*, int> lines[] = {{"帮助", 8},
                                                 {"目录选择", 9},
                                                 {"文件搜索", 11},
                                                 {"查相同文件", 12},
                                                 {"搜索和比对", 13},
                                                 {"显示相同文件", 13},
                                                 {"查找空目录", 38},
                                                 {"显示空目录", 39},
                                                 {"选择要删除重复文件", 15},
                                                 {"删除空目录", 40},
                                                 {"选择要删除空目录", 39},
                                                 {"删除内容相同文件", 20},
                                                 {"察看文件清单文本", 45}};
    test_program p;
    for (const auto& [words, topic] : lines) {
        p.form.panel(7, words);
        p.form.run("StatusBar1_PanelClick");
        EXPECT_EQ(p.desktop.calls.back(), help_call(topic)) << words;
    }
}

TEST(HelpTopics, AnUnknownPanelTextOpensTopicFour) {
    test_program p;
    for (const char* words : {"", "查异常文件", "帮助 ", "文件搜索\n", "选项"}) {
        p.form.panel(7, words);
        p.form.run("StatusBar1_PanelClick");
        EXPECT_EQ(p.desktop.calls.back(), help_call(4)) << words;
    }
}

TEST(HelpTopics, OnlyPanelSevenDecides) {
    test_program p;
    for (int number = 1; number <= 6; ++number) p.form.panel(number, "文件搜索");
    p.form.panel(7, "删除空目录");
    p.form.run("StatusBar1_PanelClick");
    EXPECT_EQ(p.desktop.calls.back(), help_call(40));
}

TEST(HelpTopics, MenuEntriesOpenTheirTopics) {
    test_program p;
    const std::pair<const char*, int> entries[] = {{"帮助文件_M", 1},
                                                   {"技术支持_地_form", 62},
                                                   {"volume_explain", 63},
                                                   {"目录选择.direction_help_Click", 9},
                                                   {"Form_no_dire.Command5_Click", 22},
                                                   {"Form_no_dire.no_dir_help", 23},
                                                   {"Form_no_dire.file_type_help", 25},
                                                   {"Form_no_dire.no_file_help", 26},
                                                   {"Form_no_dire.only_help", 27}};
    for (const auto& [entry, topic] : entries) {
        EXPECT_TRUE(p.form.run(entry)) << entry;
        EXPECT_EQ(p.desktop.calls.back(), help_call(topic)) << entry;
    }
}

TEST(HelpTopics, WithoutAWebPageAWordToTheMakersOpensTheSupportTopic) {
    test_program p;
    p.form.run("leave_word");
    EXPECT_EQ(p.desktop.calls, std::vector<std::string>{help_call(62)});
}

TEST(HelpTopics, AViewerThatFailsIsReported) {
    test_program p;
    p.desktop.answer = outcome::failure("没有");
    p.form.run("volume_explain");
    EXPECT_EQ(p.last_message(), "没有");
    EXPECT_TRUE(p.screen.messages.back().failure);
}

TEST(HelpMode, TheMenuTogglesThePointerAndItStaysUntilChosenAgain) {
    test_program p;
    p.form.run("help_spirit");
    EXPECT_EQ(p.form.mouse_pointer, 14);
    p.form.run("Picture2_Click");
    EXPECT_EQ(p.form.mouse_pointer, 14);
    p.form.run("help_spirit");
    EXPECT_EQ(p.form.mouse_pointer, 0);
}

TEST(HelpMode, EveryTaskOpensItsTopicAndDoesNothingElse) {
    const std::pair<const char*, int> tasks[] = {
        {"Picture1_Click", 9},          {"picture2_Click", 11},  {"Picture3_Click", 12},
        {"Command44_Click", 12},        {"Picture7_Click", 39},  {"Picture8_Click", 40},
        {"Picture11_Click", 21},        {"ListView1_Click", 15}, {"listleft_MouseDown", 8},
        {"RichTextBox2_MouseDown", 11}, {"Form_MouseDown", 1}};
    for (const auto& [task, topic] : tasks) {
        test_program p;
        p.files.add_file("/d/a", "x");
        p.select({"/d"});
        p.form.mouse_pointer = help_pointer;
        const std::string panel = p.form.StatusBar1.panel(7);
        const std::int64_t opened = p.files.total_opened();
        p.form.run(task);
        EXPECT_EQ(p.desktop.calls, std::vector<std::string>{help_call(topic)}) << task;
        EXPECT_EQ(p.form.StatusBar1.panel(7), panel) << task;
        EXPECT_EQ(p.files.total_opened(), opened) << task;
        EXPECT_TRUE(p.screen.messages.empty()) << task;
        EXPECT_EQ(p.state.file_count, 0) << task;
    }
}

TEST(HelpMode, PressesOutsideOfItOpenNothing) {
    test_program p;
    for (const char* press : {"Form_MouseDown", "listleft_MouseDown", "RichTextBox2_MouseDown"})
        p.form.run(press);
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(HelpMode, APressOrADoubleClickInTheListMarksNothing) {
    test_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.compare({"/d"});
    p.form.run("Picture4_Click");
    ASSERT_EQ(p.form.ListView1.row_count(), 1);
    p.form.ListView1.selected_row = 1;
    p.form.list_event = {};
    p.form.list_event.button = list_pointer::left_button;
    p.form.list_event.x = 100'000;
    p.state.clicked_row = 1;
    p.state.anchor_row = 1;
    p.form.mouse_pointer = help_pointer;
    p.form.list_event.shift = true;
    for (const char* act : {"ListView1_MouseDown", "ListView1_Click", "ListView1_DblClick"}) p.form.run(act);
    EXPECT_EQ(p.form.ListView1.marked_cells(), 0);
    EXPECT_EQ(p.desktop.calls.back(), help_call(15));
}

TEST(HelpContexts, TheLastTwoDigitsAreTheTopicWhereItHasAPage) {
    const std::pair<int, int> contexts[] = {{1001, 1},  {1009, 9},  {1015, 15}, {1022, 22}, {1023, 23},
                                            {1024, 22}, {1025, 25}, {1028, 28}, {1032, 22}, {1039, 39},
                                            {1041, 41}, {1050, 50}, {1051, 50}, {1053, 50}, {1057, 50},
                                            {1064, 64}, {1000, 6}};
    for (const auto& [context, topic] : contexts) EXPECT_EQ(topic_of_context(context), topic) << context;
}

TEST(HelpContexts, WhatIsNoContextOpensTheFirstTopic) {
    for (const int context : {0, -1, 999, 1100, 2009, 1099, 1047, 1'000'000})
        EXPECT_EQ(topic_of_context(context), 1);
}

TEST(HelpContexts, EveryContextOfTheModelsLeadsToATopicWithAPage) {
    test_program p;
    std::vector<form_model*> windows = p.form.children();
    windows.push_back(&p.form);
    const auto topics = help_topics();
    int seen = 0;
    for (const form_model* window : windows) {
        for (const auto& each : window->controls()) {
            if (each->help_context == 0) continue;
            const int topic = topic_of_context(each->help_context);
            EXPECT_NE(std::find(topics.begin(), topics.end(), topic), topics.end()) << each->name();
            EXPECT_NE(topic, 1) << each->name();
            ++seen;
        }
    }
    EXPECT_GE(seen, 10);
}

TEST(HelpContexts, ControlHelpidIsANameThatTheStartCallsAndDoesNothing) {
    test_program p;
    EXPECT_TRUE(p.form.run("control_helpid"));
    EXPECT_TRUE(p.desktop.calls.empty());
    EXPECT_TRUE(p.screen.messages.empty());
}

}  // namespace
}  // namespace corvane
