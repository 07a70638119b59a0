#include "browser/list_menu.h"

#include <gtest/gtest.h>

#include "tests/browser/list_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct two_rows : list_program {
    two_rows() { show({{10, "/d/a b", "/e/1"}, {5, "/d/x.zip*docs/n*1.txt", "/top"}}); }
};

TEST(ListMenu, OpensTheCellUnderTheMouse) {
    two_rows p;
    p.form.run("open_same_file");
    EXPECT_TRUE(p.desktop.calls.empty()) << "no row was clicked";
    p.right_press(1, 3);
    p.form.run("open_same_file");
    p.form.run("double_disp");
    EXPECT_EQ(p.desktop.calls, (texts{"open /d/a b", "open /d/a b", "open /e/1"}));
}

TEST(ListMenu, AMemberOpensItsArchiveAndIsLookedUpThere) {
    two_rows p;
    p.right_press(2, 3);
    p.form.run("open_same_file");
    EXPECT_EQ(p.desktop.calls,
              (texts{"clipboard \"1.txt\"", "open /d/x.zip*docs/n", "keys {F3}", "keys ^V", "keys {ENTER}"}));
    EXPECT_NEAR(p.screen.waited, 0.7, 1e-9);
}

TEST(ListMenu, EntersTheDirectoryOfAFileOrArchive) {
    two_rows p;
    p.right_press(1, 4);
    p.form.run("mnu_enter_dir");
    p.right_press(2, 3);
    p.form.run("mnu_enter_dir");
    EXPECT_EQ(p.desktop.calls, (texts{"select /e/1", "select /d/x.zip*docs/n"}));
}

TEST(ListMenu, ShowsTheProperties) {
    two_rows p;
    p.right_press(1, 4);
    p.form.run("disp_same_file_attr");
    EXPECT_EQ(p.desktop.calls, texts{"properties /e/1"});
    p.right_press(1, 2);
    p.form.run("disp_same_file_attr");
    p.list().set_text(1, 4, " ");
    p.right_press(1, 4);
    p.form.run("disp_same_file_attr");
    EXPECT_EQ(p.desktop.calls.size(), 1u);
}

TEST(ListMenu, ShowsThePanelOfTheRow) {
    two_rows p;
    p.right_press(2, 3);
    p.form.run("same_time_open_2file");
    EXPECT_TRUE(p.form.Frame4.visible);
    EXPECT_EQ(p.form.Frame4.caption, "显示第 2 条");
}

TEST(ListMenu, ABoxOfThePanelOpensItsDirectory) {
    two_rows p;
    p.form.samefile_disp1.text = "/d/a b    2024-1-1 1:2:3\t10";
    p.form.samefile_disp2.text = "/d/x.zip*docs/n    \t5";
    p.form.run("samefile_disp1_MouseDown");
    p.form.run("samefile_disp2_MouseDown");
    p.form.samefile_disp1.text = "/top    2024-1-1 1:2:3\t10";
    p.form.run("samefile_disp1_MouseDown");
    EXPECT_EQ(p.desktop.calls, (texts{"open /d", "open /d", "open /"}));
}

TEST(ListMenu, AFailureShowsNothingButWhatTheDesktopLacksIsTold) {
    two_rows p;
    p.right_press(1, 3);
    p.desktop.answer = outcome::failure("broken");
    p.form.run("open_same_file");
    EXPECT_TRUE(p.screen.messages.empty());
    p.desktop.answer = outcome::lack("没有可以打开它的程序。");
    p.form.run("open_same_file");
    p.form.run("mnu_enter_dir");
    p.form.run("disp_same_file_attr");
    EXPECT_EQ(p.screen.messages.size(), 3u);
    EXPECT_EQ(p.last_message(), "没有可以打开它的程序。");
}

TEST(ListMenu, EntriesWithoutActionAreOff) {
    two_rows p;
    p.right_press(1, 3);
    for (const char* entry : {"hide_menu", "list_simplify", "check_para"}) {
        EXPECT_FALSE(p.form.find(entry)->enabled) << entry;
        EXPECT_FALSE(p.form.has_handler(entry)) << entry;
    }
}

TEST(DifferentFiles, ADoubleClickLeftOfThePathOpensItsDirectory) {
    two_rows p;
    p.state.list_mode = 2;
    p.double_click(1, 2);
    EXPECT_EQ(p.desktop.calls, texts{"open /e/"});
    p.double_click(1, 4);
    EXPECT_EQ(p.list().colour(1, 4), cell_colour::mark_red);
    p.double_click(1, 4);
    EXPECT_EQ(p.list().colour(1, 4), cell_colour::colour_text);
    EXPECT_EQ(p.desktop.calls.size(), 1u);
}

TEST(ListMenu, OfAPairOpensWhatHasNotGone) {
    five_rows p;
    p.list().set_text(4, 4, "");
    p.right_press(4, 3);
    p.desktop.calls.clear();
    p.form.run("double_disp");
    EXPECT_EQ(p.desktop.calls, std::vector<std::string>{"open /d/b"});
}

}  // namespace
}  // namespace corvane
