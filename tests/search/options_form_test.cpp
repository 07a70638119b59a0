#include "search/options_form.h"

#include <gtest/gtest.h>

#include "core/tasks/progress.h"
#include "tests/search/options_program.h"

namespace corvane {
namespace {

TEST(OptionsWindow, OpensFromItsMenuEntryWithTheRowsOfTheRunState) {
    options p;
    p.open_with(dirs_file, "1/d/temp\r\n0/C/Keep/\r\n");
    EXPECT_TRUE(p.window.visible);
    EXPECT_EQ(p.window.caption, "选项窗口");
    EXPECT_EQ(options::rows(p.window.List1), (texts{"1/D/TEMP/", "0/C/KEEP/"}));
    EXPECT_EQ(p.window.List4.rows().size(), 3u);
    EXPECT_EQ(p.window.List4.rows()[0].text, ".ani 动画鼠标");
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_TRUE(p.form.find("select_m")->enabled);
}

TEST(OptionsWindow, EveryNonBlankLineGivesARowOfItsTextFromTheSecondCharacterOn) {
    options p;
    p.open();
    p.state.no_types = {"1.tmp", " ", "", "x.bak", "目录.old", "0"};
    p.run("Form_Unload");
    p.form.run("select_m_Click");
    EXPECT_EQ(options::rows(p.window.List2), (texts{"1.tmp", "0.bak", "0录.old", "0"}));
}

TEST(OptionsWindow, OpeningAgainKeepsWhatWasNotSavedYet) {
    options p;
    p.open();
    p.window.drop_types(p.window.List2, ".tmp");
    p.form.run("select_m_Click");
    EXPECT_EQ(options::rows(p.window.List2), texts{"1.tmp"});
}

TEST(OptionsWindow, InHelpModeItsTopicOpensInItsPlace) {
    options p;
    p.form.mouse_pointer = help_pointer;
    p.open();
    EXPECT_EQ(p.desktop.calls, texts{"help aux22_Corvane帮助_Link.htm"});
    EXPECT_FALSE(p.window.visible);
}

TEST(OptionsWindow, AMissingFileOfCommonTypesIsToldAndTheListStaysEmpty) {
    options p;
    p.open();
    p.files.erase(common_file);
    p.run("refresh");
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.screen.messages[0].title, "提示");
    EXPECT_EQ(p.screen.messages[0].text, "/prog/常用文件扩展名.txt  不存在");
    EXPECT_TRUE(p.window.List4.rows().empty());
}

TEST(OptionsWindow, TheTestButtonReadsTheCommonTypesAgain) {
    options p;
    p.open();
    p.files.add_file(common_file).content = ".new 新\r\n";
    p.run("Command3_Click");
    EXPECT_EQ(options::rows(p.window.List4), texts{"0.new 新"});
}

TEST(OptionsPlace, TheStoredPlaceIsTakenWhenItIsWiderThanAHundred) {
    options p;
    p.state.optform_left = 300;
    p.state.optform_top = 450;
    p.state.optform_width = 101;
    p.state.optform_height = 6000;
    p.open();
    EXPECT_EQ(p.window.place, (rectangle{300, 450, 101, 6000}));

    options q;
    q.state.optform_width = 100;
    q.state.optform_height = 6000;
    q.state.optform_left = 300;
    q.open();
    EXPECT_EQ(q.window.place.left, 0);
}

TEST(OptionsPlace, AStoredPlaceOffTheScreenComesBack) {
    options p;
    p.state.optform_left = 15000;
    p.state.optform_top = -20;
    p.state.optform_width = 9000;
    p.state.optform_height = 6000;
    p.open();
    EXPECT_EQ(p.window.place, (rectangle{0, 0, 9000, 6000}));
}

TEST(OptionsPlace, ARunThatNeverOpensTheWindowKeepsItsStoredPlace) {
    options p;
    std::vector<std::string> lines = fresh_settings_lines();
    lines[46] = " 300 ";
    lines[48] = lines[80] = " 9000 ";
    lines[49] = lines[81] = " 7000 ";
    p.files.add_file("/prog/Tavrel环境.txt").content = with_line_ends(lines);
    p.corvane.start();
    p.corvane.close();
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[46], " 300 ");
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[48], " 9000 ");
}

TEST(OptionsPlace, UnloadStoresThePlaceOfANormalWindowOnly) {
    options p;
    p.open();
    p.window.place = {150, 300, 9000, 40000};
    p.run("Form_Unload");
    EXPECT_EQ(p.state.optform_left, 150);
    EXPECT_EQ(p.state.optform_width, 9000);
    EXPECT_EQ(p.state.optform_height, 32767) << "cut to the type of its line";
    EXPECT_FALSE(p.window.visible);
    p.open();
    p.window.window = window_state::maximised;
    p.window.place = {0, 0, 15000, 11000};
    p.run("Form_Unload");
    EXPECT_EQ(p.state.optform_width, 9000);
}

TEST(OptionsSettings, AFlagThatIsNeitherZeroNorOneBecomesOne) {
    options p;
    p.state.tip_help_on = 7;
    p.state.delete_prompt_on = -1;
    p.state.show_error_on = 0;
    p.state.same_suffix_only = 2;
    p.state.show_run_filename = 1;
    p.state.scan_archives = 3;
    p.open();
    texts shown;
    for (std::size_t i = 1; i <= 6; ++i) shown.push_back(std::to_string(p.window.checks[i]->value));
    EXPECT_EQ(shown, (texts{"1", "1", "0", "1", "1", "1"}));
    EXPECT_EQ(p.state.tip_help_on, 1);
    EXPECT_EQ(p.state.delete_prompt_on, 1);
    EXPECT_EQ(p.state.show_error_on, 0);
    EXPECT_EQ(p.state.same_suffix_only, 1);
    EXPECT_EQ(p.state.scan_archives, 1);
}

TEST(OptionsSettings, EqualColoursMeanThatNoneWereChosen) {
    options p;
    p.state.list_back_color = p.state.list_fore_color = 0x808080;
    p.open();
    EXPECT_EQ(p.state.list_back_color, 0xFFFFFF);
    EXPECT_EQ(p.state.list_fore_color, 0);
    for (const list_box* list : {&p.window.List1, &p.window.List2, &p.window.List3, &p.window.List4}) {
        EXPECT_EQ(list->back_colour, 0xFFFFFF);
        EXPECT_EQ(list->fore_colour, 0);
        EXPECT_EQ(list->font_size, 9);
    }
}

TEST(OptionsSettings, TheFontSizeGoesUpAndDownAndNotBelowNineOrAboveFifty) {
    options p;
    p.open();
    p.run("Command2(0)_Click");
    p.run("Command2(0)_Click");
    EXPECT_EQ(p.state.list_font_size, 11);
    EXPECT_EQ(p.window.List4.font_size, 11);
    for (int i = 0; i < 5; ++i) p.run("Command2(1)_Click");
    EXPECT_EQ(p.state.list_font_size, 9);
    EXPECT_EQ(p.window.List1.font_size, 9);
    p.state.list_font_size = 50;
    p.run("Command2(0)_Click");
    EXPECT_EQ(p.state.list_font_size, 50);
}

TEST(OptionsSettings, TheColourDialogsSetTheColoursOfAllLists) {
    options p;
    p.open();
    p.screen.colours = {0x112233, 0x445566, std::nullopt};
    p.run("Command2(2)_Click");
    p.run("Command2(3)_Click");
    p.run("Command2(3)_Click");
    EXPECT_EQ(p.asked(),
              (texts{"选择选择颜色|16777215", "选择选择颜色|0", "选择选择颜色|" + std::to_string(0x445566)}));
    EXPECT_EQ(p.state.list_back_color, 0x112233);
    EXPECT_EQ(p.window.List2.back_colour, 0x112233);
    EXPECT_EQ(p.window.List3.fore_colour, 0x445566) << "a dismissed dialog changes nothing";
}

TEST(OptionsSettings, TooltipsAreSwitchedAtOnce) {
    options p;
    texts runs;
    p.form.bind("tooltiphelp_true", [&] { runs.push_back("true"); });
    p.form.bind("tooltiphelp_false", [&] { runs.push_back("false"); });
    p.open();
    p.check(1, 1);
    EXPECT_EQ(p.state.tip_help_on, 1);
    EXPECT_EQ(p.state.tips_on, -1);
    p.check(1, 0);
    EXPECT_EQ(p.state.tip_help_on, 0);
    EXPECT_EQ(p.state.tips_on, 0);
    EXPECT_EQ(runs, (texts{"true", "false"}));
}

TEST(OptionsSettings, TwoToFiveAreStoredWhenClickedSixWhenTheWindowCloses) {
    options p;
    p.open();
    for (int number = 2; number <= 6; ++number) p.check(number, 1);
    EXPECT_EQ(p.state.delete_prompt_on, 1);
    EXPECT_EQ(p.state.show_error_on, 1);
    EXPECT_EQ(p.state.same_suffix_only, 1);
    EXPECT_EQ(p.state.show_run_filename, 1);
    EXPECT_EQ(p.state.scan_archives, 0);
    p.run("Form_Unload");
    EXPECT_EQ(p.state.scan_archives, 1);
}

TEST(OptionsSettings, UnloadStoresAllButTheFourthAgain) {
    options p;
    p.open();
    for (int number = 1; number <= 6; ++number) p.check(number, 1);
    p.state.tip_help_on = p.state.delete_prompt_on = p.state.show_error_on = 0;
    p.state.same_suffix_only = p.state.show_run_filename = 0;
    p.run("Form_Unload");
    EXPECT_EQ(p.state.tip_help_on, 1);
    EXPECT_EQ(p.state.delete_prompt_on, 1);
    EXPECT_EQ(p.state.show_error_on, 1);
    EXPECT_EQ(p.state.same_suffix_only, 0);
    EXPECT_EQ(p.state.show_run_filename, 1);
}

TEST(OptionsSettings, ClosingTheProgramUnloadsTheWindowBeforeTheSettingsAreWritten) {
    options p;
    p.corvane.start();
    p.open();
    p.check(6, 1);
    p.corvane.close();
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[54], " 1 ");
    EXPECT_FALSE(p.window.visible);
}

TEST(OptionsSettings, AWindowThatWasNotOpenStoresNothingAtTheEnd) {
    options p;
    p.state.scan_archives = p.state.delete_prompt_on = 1;
    p.corvane.close();
    EXPECT_EQ(p.state.scan_archives, 1);
    EXPECT_EQ(p.state.delete_prompt_on, 1);
}

TEST(OptionsSettings, SwitchingTheSuffixOptionDuringAComparisonLeavesItToTheNext) {
    std::int64_t turn = 0;
    for (bool switched = true; switched;) {
        options p;
        for (const char* length : {"four", "fives", "sixsix"})
            for (const char* suffix : {"1.x", "2.y", "3.z", "4.x"})
                p.files.add_file(std::string("/d/") + length + suffix, length);
        p.search({"/d"});
        p.open();
        p.screen.acts[p.screen.yields + ++turn] = [&] { p.check(4, 1); };
        p.form.run("Picture3_Click");
        switched = p.state.same_suffix_only == 1;
        // All three groups by one rule: every file, or only those of one suffix.
        const std::size_t pairs = p.stored_pairs().size();
        EXPECT_TRUE(pairs == 9 || pairs == 3) << pairs << " pairs, switched at turn " << turn;
    }
    EXPECT_GT(turn, 6) << "the comparison has turns to switch at";
}

TEST(OptionsApply, WithoutAChangeAsksNothing) {
    options p;
    p.open_with(types_file, "1.a\r\n0.b\r\n");
    p.run("Command4_Click");
    p.window.drop_types(p.window.List2, ".c");
    p.window.List2.check(2, false);
    p.run("Command4_Click");
    EXPECT_TRUE(p.screen.messages.empty()) << "a row that is not in force changes no search";
    EXPECT_EQ(p.files.content_of(types_file), "1.a\r\n0.b\r\n0.c\r\n");
}

TEST(OptionsApply, YesSearchesAndSettlesTheQuestion) {
    options p;
    int searches = 0;
    p.form.bind("picture2_Click", [&] { ++searches; });
    p.open();
    p.window.drop_types(p.window.List3, ".jpg");
    p.screen.answers = {box_answer::yes};
    p.run("Command4_Click");
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.screen.messages[0].title, "提示");
    EXPECT_EQ(p.screen.messages[0].text, "搜索选项已变化，是否重新搜索");
    EXPECT_EQ(p.screen.messages[0].buttons, box_buttons::yes_no);
    EXPECT_EQ(searches, 1);
    p.run("Command4_Click");
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(OptionsApply, NoLeavesTheQuestionForTheNextPressAndTheListsHoldAnyway) {
    options p;
    for (const char* path : {"/d/a.jpg", "/d/b.tmp"}) p.files.add_file(path, "x");
    p.open();
    p.window.drop_types(p.window.List2, ".tmp");
    p.screen.answers = {box_answer::no, box_answer::no};
    p.run("Command4_Click");
    p.run("Command4_Click");
    EXPECT_EQ(p.screen.messages.size(), 2u);
    EXPECT_TRUE(p.listed().empty());
    p.search({"/d"});
    EXPECT_EQ(p.listed(), texts{"/d/a.jpg"});
}

TEST(OptionsApply, WhileATaskRunsItSavesAndLeavesTheQuestionForLater) {
    options p;
    p.open();
    p.window.drop_types(p.window.List2, ".tmp");
    lock_tasks(p.form);
    p.run("Command4_Click");
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_EQ(p.files.content_of(types_file), "1.tmp\r\n");
    unlock_tasks(p.form);
    p.run("Command4_Click");
    EXPECT_EQ(p.last_message(), "搜索选项已变化，是否重新搜索");
}

TEST(OptionsApply, WhatWasNotSavedIsLostWhenTheWindowCloses) {
    options p;
    p.open_with(types_file, "1.a\r\n");
    p.window.drop_types(p.window.List2, ".b");
    p.run("Form_Unload");
    p.form.run("select_m_Click");
    EXPECT_EQ(options::rows(p.window.List2), texts{"1.a"});
    EXPECT_EQ(p.files.content_of(types_file), "1.a\r\n");
}

TEST(OptionsFileManager, OpensTheDirectoryLastShownOrTheRoot) {
    options p;
    p.run("Command1_Click");
    p.state.current_dir = "/gone/";
    p.run("open_dir");
    p.files.add_directory("/home/li");
    p.state.current_dir = "/home/li/";
    p.run("open_dir");
    EXPECT_EQ(p.desktop.calls, (texts{"open /", "open /", "open /home/li/"}));
}

TEST(OptionsFileManager, TheWindowMakesRoomForItOnceAfterItHasComeUp) {
    options p;
    p.state.optform_left = 1000;
    p.state.optform_top = 500;
    p.state.optform_width = 12000;
    p.state.optform_height = 8000;
    p.open();
    p.run("Command1_Click");
    EXPECT_TRUE(p.window.Timer1.enabled);
    EXPECT_EQ(p.window.place.left, 1000);
    p.run("Timer1_Timer");
    EXPECT_FALSE(p.window.Timer1.enabled);
    // The screen is 15360 wide: three fifths of it, 150 from its right edge.
    EXPECT_EQ(p.window.place, (rectangle{15360 - 9216 - 150, 500, 9216, 8000}));
    p.window.place.left = 77;
    p.run("Command1_Click");
    EXPECT_FALSE(p.window.Timer1.enabled);
    EXPECT_EQ(p.window.place.left, 77);
}

TEST(OptionsFileManager, AMaximisedWindowStaysAsItIs) {
    options p;
    p.open();
    p.window.place = {0, 0, 15000, 11000};
    p.window.window = window_state::maximised;
    p.run("Command1_Click");
    p.run("Timer1_Timer");
    EXPECT_EQ(p.window.place, (rectangle{0, 0, 15000, 11000}));
}

}  // namespace
}  // namespace corvane
