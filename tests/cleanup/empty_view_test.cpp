#include "cleanup/empty_view.h"

#include <gtest/gtest.h>

#include "core/model/main_form.h"
#include "tests/cleanup/empty_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(EmptyView, ShowsTheStoredDirectoriesInOrderOfTheirText) {
    empty_program p;
    p.form.RichTextBox2.visible = true;
    p.form.panel(2, "old");
    p.show_directories({"/d/b/", "/d/Z/", "/d/a/"});
    EXPECT_EQ(p.cells(2), (texts{"/d/Z/", "/d/a/", "/d/b/"}));
    EXPECT_EQ(p.cells(1), (texts{"1", "2", "3"}));
    EXPECT_EQ(p.state.list_mode, 1);
    EXPECT_TRUE(p.list().visible);
    EXPECT_FALSE(p.form.RichTextBox2.visible);
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
    EXPECT_EQ(p.panel(1), "搜索出目录:3");
    EXPECT_EQ(p.panel(2), "");
    EXPECT_EQ(p.panel(3), "空目录:3");
    EXPECT_EQ(p.panel(7), "显示空目录");
    EXPECT_EQ(p.form.labels[5]->caption, "删除选定的空目录");
    EXPECT_EQ(p.list().tooltip, "双击鼠标，选中；Shift+鼠标，区域选择。右键，打开目录.");
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(EmptyView, HasThreeColumns) {
    empty_program p;
    p.show_directories({"/d/"});
    const std::vector<list_column>& columns = p.list().columns();
    ASSERT_EQ(columns.size(), 3u);
    EXPECT_EQ(columns[0].header, "");
    EXPECT_EQ(columns[0].width, 100);
    EXPECT_EQ(columns[1].header, "序号");
    EXPECT_EQ(columns[1].width, 700);
    EXPECT_EQ(columns[1].alignment, text_alignment::right);
    EXPECT_EQ(columns[2].header, "空目录");
    EXPECT_EQ(columns[2].width, 8000);
    EXPECT_EQ(columns[2].alignment, text_alignment::left);
    p.list().place.width = 5000;
    p.form.run("layout_list");
    EXPECT_EQ(p.list().columns()[2].width, 4000);
}

TEST(EmptyView, ADirectoryThatHasGoneIsNotShown) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/", "/d/c/"});
    p.files.erase("/d/b");
    p.form.run("Picture7_Click");
    EXPECT_EQ(p.cells(2), (texts{"/d/a/", "/d/c/"}));
    EXPECT_EQ(p.cells(1), (texts{"1", "2"}));
    EXPECT_EQ(p.panel(1), "搜索出目录:3");
    EXPECT_EQ(p.panel(3), "空目录:2");
}

TEST(EmptyView, AFileInThePlaceOfADirectoryIsNotShown) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/"});
    p.files.erase("/d/b");
    p.files.add_file("/d/b", "text");
    p.form.run("Picture7_Click");
    EXPECT_EQ(p.cells(2), texts{"/d/a/"});
}

TEST(EmptyView, WhenAllHaveGoneTheListIsEmptyAndNothingIsSaid) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.files.erase("/d/a");
    p.form.run("result_refresh");
    EXPECT_EQ(p.list().row_count(), 0);
    EXPECT_TRUE(p.list().visible);
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_EQ(p.panel(1), "全部目录数");
    EXPECT_EQ(p.panel(3), "空目录数");
}

TEST(EmptyView, AnAbsentFileIsNamedAndTheViewStays) {
    empty_program p;
    p.show({{1, "/d/1", "/d/2"}});
    p.form.run("Picture7_Click");
    EXPECT_EQ(p.last_message(), "/prog/spasedir.txt  不存在,请运行查找空子目录");
    EXPECT_EQ(p.screen.messages.back().title, "提示");
    EXPECT_EQ(p.state.list_mode, 0);
    EXPECT_EQ(p.list().row_count(), 1);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(EmptyView, AnEmptyFileIsSaidAndTheViewStays) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.mark_all();
    p.files.add_file("/prog/spasedir.txt");
    p.form.run("result_refresh");
    EXPECT_EQ(p.last_message(), "没有空的子目录,不用整理");
    EXPECT_EQ(p.cells(2), texts{"/d/a/"});
    EXPECT_EQ(p.colours(2), std::vector<std::uint32_t>{cell_colour::mark_red});
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(EmptyView, AnUnreadableFileIsReported) {
    empty_program p;
    p.files.add_file("/prog/spasedir.txt", "/d/\r\n").unreadable = true;
    p.form.run("Picture7_Click");
    EXPECT_EQ(p.last_message(), "/prog/spasedir.txt\r\naccess denied");
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(EmptyView, BeyondTheLimitNoLineIsRead) {
    empty_program p;
    p.state.limits.empty_directories = 2;
    p.show_directories({"/d/a/", "/d/b/"});
    EXPECT_TRUE(p.screen.messages.empty());
    p.show_directories({"/d/a/", "/d/b/", "/d/c/"});
    EXPECT_EQ(p.cells(2), (texts{"/d/a/", "/d/b/"}));
    EXPECT_EQ(p.message_texts(), texts{"空目录太多，只显示前 2 个。"});
    EXPECT_FALSE(p.screen.messages.back().failure);
}

TEST(EmptyView, RefreshLoadsItAnewAndDropsMarks) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/"});
    p.mark_all();
    p.files.add_file("/prog/spasedir.txt", "/d/b/\n/d/a/\n");
    p.form.run("result_refresh");
    EXPECT_EQ(p.cells(2), (texts{"/d/a/", "/d/b/"}));
    EXPECT_EQ(p.colours(2), (std::vector<std::uint32_t>{0, 0}));
}

TEST(EmptyView, AnotherViewIsNotRefreshedIntoThisOne) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.state.list_mode = 2;
    p.form.run("result_refresh");
    EXPECT_EQ(p.state.list_mode, 2);
}

TEST(EmptyView, HelpModeOpensTheTopic) {
    empty_program p;
    p.files.add_file("/prog/spasedir.txt", "/prog/\r\n");
    p.form.mouse_pointer = help_pointer;
    p.form.run("Picture7_Click");
    EXPECT_EQ(p.desktop.calls, texts{"help aux39_Corvane帮助_Link.htm"});
    EXPECT_EQ(p.state.list_mode, 0);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(EmptyView, TheMenuEntryRunsIt) {
    empty_program p;
    p.files.add_file("/prog/spasedir.txt", "/prog/\r\n");
    p.form.run("disp_dir");
    EXPECT_EQ(p.cells(2), texts{"/prog/"});
}

TEST(EmptyView, ADoubleClickTogglesRedAndAShiftClickARange) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/", "/d/c/"});
    using namespace cell_colour;
    p.double_click(2, 2);
    EXPECT_EQ(p.colours(2), (std::vector<std::uint32_t>{0, mark_red, 0}));
    p.double_click(2, 1);
    EXPECT_EQ(p.colours(2), (std::vector<std::uint32_t>{0, 0, 0}));
    p.press(1, 2);
    p.press(2, 2, true);
    EXPECT_EQ(p.colours(2), (std::vector<std::uint32_t>{mark_red, mark_red, 0}));
}

TEST(EmptyView, NoOtherTaskStartsWhileItLoads) {
    empty_program p;
    p.screen.acts[1] = [&] { p.form.run("Picture8_Click"); };
    p.show_directories({"/d/a/"});
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_EQ(p.panel(7), "显示空目录");
}

}  // namespace
}  // namespace corvane
