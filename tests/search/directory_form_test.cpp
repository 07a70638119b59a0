#include "search/directory_form.h"

#include <gtest/gtest.h>

#include <set>

#include "core/tasks/progress.h"
#include "tests/search/choosing.h"

namespace corvane {
namespace {
using texts = std::vector<std::string>;

constexpr auto left = mouse_button::left;
constexpr auto right = mouse_button::right;

TEST(DirectoryPick, ThePickedPathJoinsTheListWhenTheCaptionHasArrived) {
    choosing c;
    c.press(right, 0, 2);
    EXPECT_TRUE(c.window.Text_animal.visible);
    EXPECT_EQ(c.window.Text_animal.text, "/d/2");
    EXPECT_EQ(c.list(), texts{});
    c.fly(29);
    EXPECT_EQ(c.list(), texts{});
    c.fly(1);
    EXPECT_EQ(c.list(), texts{"/d/2"});
    EXPECT_FALSE(c.window.Text_animal.visible);
    EXPECT_FALSE(c.window.Timer1.enabled);
}

TEST(DirectoryPick, TheCaptionFliesInThirtyEqualStepsToTheNextFreeRow) {
    choosing c;
    c.window.add_paths({"/a", "/b"});
    c.press(right, 0, 0);
    EXPECT_EQ(c.window.Text_animal.place.left, 100);
    EXPECT_EQ(c.window.Text_animal.place.top, 400);
    EXPECT_EQ(c.window.Text_animal.place.height, 300);
    c.fly(10);  // a third of the way from 100, 400 to 4000, 1000 + 2 * 300
    EXPECT_EQ(c.window.Text_animal.place.left, 1400);
    EXPECT_EQ(c.window.Text_animal.place.top, 800);
}

TEST(DirectoryPick, TheEndPointStaysInsideTheList) {
    choosing c;
    texts many;
    for (int i = 0; i < 50; ++i) many.push_back(std::string("/m").append(std::to_string(i)));
    c.window.add_paths(many);
    c.press(right, 0, 0);
    c.fly(29);
    // The last row that fits begins at 1000 + 2000 - 300; one thirtieth of the way is left.
    EXPECT_NEAR(c.window.Text_animal.place.top, 400 + (2700 - 400) * 29 / 30.0, 1);
}

TEST(DirectoryPick, ALeftPressAlonePicksNothingAndStartsARange) {
    choosing c;
    c.press(left, 0, 3);
    EXPECT_FALSE(c.window.Timer1.enabled);
    c.press(left, shift_key, 1);
    EXPECT_EQ(c.window.Text_animal.text, "/d/1\r\n/d/2\r\n/d/3");
    EXPECT_EQ(c.window.Text_animal.place.height, 900);
    c.fly();
    EXPECT_EQ(c.list(), (texts{"/d/1", "/d/2", "/d/3"}));
    // The row pressed last is now row 1.
    c.press(left, shift_key, 0);
    c.fly();
    EXPECT_EQ(c.list(), (texts{"/d/2", "/d/3", "/d/0", "/d/1"}));
}

TEST(DirectoryPick, CtrlAddsOneMoreRowToThoseOnTheirWay) {
    choosing c;
    c.press(left, ctrl_key, 4);
    c.fly(5);
    c.press(left, ctrl_key, 1);
    EXPECT_EQ(c.window.Text_animal.text, "/d/4\r\n/d/1");
    EXPECT_EQ(c.list(), texts{});
    c.fly();
    EXPECT_EQ(c.list(), (texts{"/d/4", "/d/1"}));
    c.press(left, ctrl_key, 2);
    c.press(left, ctrl_key, 2);
    c.fly();
    EXPECT_EQ(c.list(), (texts{"/d/4", "/d/1", "/d/2"})) << "picked twice on one way";
}

TEST(DirectoryPick, ANewPickLosesNoneThatIsOnItsWay) {
    choosing c;
    c.press(right, 0, 4);
    c.press(right, 0, 5);
    EXPECT_EQ(c.list(), texts{"/d/4"});
    c.fly();
    EXPECT_EQ(c.list(), (texts{"/d/4", "/d/5"}));
}

TEST(DirectoryPick, OtherKeysAndButtonsPickNothing) {
    choosing c;
    c.press(right, shift_key, 1);
    c.press(right, ctrl_key, 1);
    c.press(left, shift_key | ctrl_key, 2);
    EXPECT_FALSE(c.window.Timer1.enabled);
}

TEST(DirectoryPick, TheSamePathTwiceIsOneRowAtTheEnd) {
    choosing c;
    for (const int number : {0, 1, 0}) {
        c.press(right, 0, number);
        c.fly();
    }
    EXPECT_EQ(c.list(), (texts{"/d/1", "/d/0"}));
}

TEST(DirectoryPick, ADriveRowGivesItsRootPath) {
    choosing c;
    c.window.open();
    c.window.List_disk_sele_MouseDown(right, 0, 2, 0, 0);
    c.fly();
    EXPECT_EQ(c.list(), texts{"/media/card/"});
    c.window.List_disk_sele_MouseDown(left, 0, 0, 0, 0);
    c.window.List_disk_sele_MouseDown(left, shift_key, 1, 0, 0);
    c.fly();
    EXPECT_EQ(c.list(), (texts{"/media/card/", "/d/", "/"}));
}

TEST(DirectoryPick, TheButtonTakesTheTreesCurrentDirectory) {
    choosing c;
    c.window.Dir_select.text = "/d/3";
    c.form.run("目录选择.Command_sele_Click");
    EXPECT_EQ(c.list(), texts{});
    c.fly();
    EXPECT_EQ(c.list(), texts{"/d/3"});
}

TEST(DirectoryPick, ConfirmingTakesWhatIsOnItsWay) {
    choosing c;
    c.window.open();
    c.press(right, 0, 3);
    c.window.Command34_Click();
    EXPECT_EQ(c.state.selected_dirs, (column<std::string>{"/d/3"}));
    EXPECT_FALSE(c.window.visible);
}

TEST(DirectoryPick, MoreThanTheLimitIsCutAndTold) {
    choosing c;
    c.state.limits.selected_directories = 3;
    c.press(left, 0, 0);
    c.press(left, shift_key, 5);
    c.fly();
    EXPECT_EQ(c.list().size(), 3u);
    EXPECT_EQ(c.screen.messages.size(), 1u);
}

TEST(DirectoryDrop, WithoutCtrlReplacesTheListWithItJoins) {
    choosing c;
    c.files.add_file("/d/file");
    c.window.add_paths({"/a"});
    c.window.drop_paths({"/d/1/", "/d/file", "/d/gone", "/d/2"}, true);
    EXPECT_EQ(c.list(), (texts{"/a", "/d/1", "/d/2"}));
    c.window.drop_paths({"/d/3"}, false);
    EXPECT_EQ(c.list(), texts{"/d/3"});
}

TEST(DirectoryDrop, ARootKeepsItsSeparator) {
    test_program p('\\');
    p.files.add_directory("C:\\");
    p.corvane.directory_window().drop_paths({"C:\\"}, true);
    ASSERT_EQ(p.corvane.directory_window().list_selected_dir.rows().size(), 1u);
    EXPECT_EQ(p.corvane.directory_window().list_selected_dir.rows()[0].text, "C:\\");
}

TEST(DirectoryLoad, ShowsTheStoredDirectoryAndVolume) {
    choosing c;
    c.state.current_dir = "/d/4/";
    c.state.dir_select_path = "/d/4";
    c.state.disk_index = 1;
    c.window.open();
    EXPECT_EQ(c.window.Dir_select.text, "/d/4");
    EXPECT_EQ(c.window.tree_root(), "/");
    EXPECT_TRUE(c.window.List_disk_sele.rows()[1].selected);
    EXPECT_FALSE(c.window.List_disk_sele.rows()[0].selected);
    EXPECT_EQ(c.window.List_disk_sele.rows()[2].text, "CARD  /media/card/");
    EXPECT_EQ(c.window.List_disk_sele.rows()[0].text, "主目录  /d/");
    EXPECT_EQ(c.window.List_disk_sele.rows()[0].tooltip, "主目录  /d/\r\n可用 4882 K，共 8789 K");
}

TEST(DirectoryLoad, AStoredDirectoryThatIsGoneFallsBackToTheFirstVolume) {
    choosing c;
    c.state.current_dir = "/gone/";
    c.state.dir_select_path = "/gone";
    c.state.disk_index = 77;
    c.window.open();
    EXPECT_EQ(c.window.Dir_select.text, "/d/");
    EXPECT_EQ(c.state.current_dir, "/d/");
    EXPECT_EQ(c.state.disk_index, 2) << "the last row";
}

TEST(DirectoryLoad, ADirectoryOnAnotherVolumeShowsThatVolume) {
    choosing c;
    c.state.current_dir = c.state.dir_select_path = "/media/card/";
    c.state.disk_index = 0;
    c.window.open();
    EXPECT_EQ(c.window.tree_root(), "/media/card/");
}

TEST(DirectoryLoad, TakesItsStoredPlaceOnlyWhenItIsLargeEnough) {
    choosing c;
    c.state.dirform_left = -40;
    c.state.dirform_top = 90;
    c.state.dirform_width = 256;
    c.state.dirform_height = 256;
    c.window.open();
    EXPECT_EQ(c.window.place, (rectangle{0, 90, 256, 256}));

    choosing d;
    d.state.dirform_width = 255;
    d.state.dirform_height = 4000;
    d.window.place = {1, 2, 3, 4};
    d.window.open();
    EXPECT_EQ(d.window.place, (rectangle{1, 2, 3, 4}));
}

TEST(DirectoryTree, AChangeIsKeptWithAndWithoutTheSeparator) {
    choosing c;
    c.window.Dir_select.text = "/d/2";
    c.form.run("目录选择.Dir_select_Change");
    EXPECT_EQ(c.state.dir_select_path, "/d/2");
    EXPECT_EQ(c.state.current_dir, "/d/2/");
}

TEST(DirectoryTree, AVolumeThatCannotBeReadLeavesTheTreeWhereItIs) {
    choosing c;
    c.window.open();
    c.window.List_disk_sele_Click(2);
    EXPECT_EQ(c.window.tree_root(), "/media/card/");
    EXPECT_EQ(c.state.disk_index, 2);
    c.files.erase("/d");
    c.files.erase("/media/card");
    c.window.List_disk_sele.select_only(0);
    c.window.List_disk_sele_Click(0);
    EXPECT_EQ(c.window.tree_root(), "/media/card/");
    EXPECT_EQ(c.state.disk_index, 2);
    EXPECT_TRUE(c.window.List_disk_sele.rows()[2].selected);
}

TEST(DirectoryConfirm, AnInnerDirectoryDropsOutAndALikeNamedOneStays) {
    test_program p('\\');
    directory_form& window = p.corvane.directory_window();
    window.add_paths({"C:\\AB\\", "C:\\A\\B\\", "C:\\A\\"});
    window.confirm_selection();
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"C:\\AB\\", "C:\\A\\"}));
}

TEST(DirectoryConfirm, ARowThatDroppedOutStillDropsItsOwnChildren) {
    test_program p('\\');
    directory_form& window = p.corvane.directory_window();
    // "C:\A" sorts before "C:\A\B" and "C:\A\B\C"; "C:\A!" stands between them in byte order.
    window.add_paths({"C:\\A\\B\\C", "C:\\A!", "C:\\A\\B", "C:\\A"});
    window.confirm_selection();
    EXPECT_EQ(p.state.selected_dirs, (column<std::string>{"C:\\A", "C:\\A!"}));
}

TEST(DirectoryConfirm, WithoutRowsTheTwoButtonsTellHowToPick) {
    choosing c;
    c.window.open();
    c.window.cmd_dir_firm_Click();
    c.window.Command34_Click();
    ASSERT_EQ(c.screen.messages.size(), 2u);
    const std::string lines =
        "   你未选择清查目录\r\n\r\n在驱动器框和目录框：\r\n  右键      选中单个目录\r\n  Ctrl+鼠标 "
        "多项选择\r\n"
        " shift+鼠标 选择一组目录\r\n";
    EXPECT_EQ(c.screen.messages[0].text, lines + "选中的目录放入右边的选中目录框。");
    EXPECT_EQ(c.screen.messages[1].text, lines + "选中的目录自动放入右边的选中目录框。");
    EXPECT_FALSE(c.screen.messages[0].help_button);
    EXPECT_TRUE(c.screen.messages[1].help_button);
    EXPECT_EQ(c.screen.messages[1].help_context, 1009);
    EXPECT_TRUE(c.window.visible);
}

TEST(DirectoryDiscard, PutsTheListBackAndLeavesTheSelectionAlone) {
    choosing c;
    c.select({"/d/1"});
    c.window.open();
    c.window.add_paths({"/d/2"});
    c.press(right, 0, 3);
    c.form.run("目录选择.cmd_dir_discard_Click");
    EXPECT_EQ(c.list(), texts{"/d/1"});
    c.fly();
    EXPECT_EQ(c.list(), texts{"/d/1"});
    EXPECT_TRUE(c.window.visible);
    EXPECT_EQ(c.state.selected_dir_backup, (column<std::string>{"/d/1"}));
    EXPECT_EQ(c.state.selected_dir_backup_count, 1);
}

TEST(DirectoryClose, ByTheFrameKeepsThePlaceAndDropsWhatIsOnItsWay) {
    choosing c;
    c.window.open();
    c.press(right, 0, 3);
    c.window.place = {10, 20, 5000, 4000};
    c.window.visible = false;
    c.form.run("目录选择.Form_Unload");
    EXPECT_EQ(c.state.dirform_left, 10);
    EXPECT_EQ(c.state.dirform_height, 4000);
    EXPECT_FALSE(c.window.Text_animal.visible);
    EXPECT_EQ(c.list(), texts{});
    EXPECT_EQ(c.state.selected_dir_count, 0);
}

TEST(DirectoryClose, TheStoredPlaceSurvivesTheProgram) {
    choosing c;
    c.window.open();
    c.window.place = {10, 20, 5000, 4000};
    c.corvane.close();
    EXPECT_EQ(c.stored_lines("Tavrel环境.txt")[22], " 10 ");
    EXPECT_EQ(c.stored_lines("Tavrel环境.txt")[25], " 4000 ");
    EXPECT_EQ(c.stored_lines("Tavrel环境.txt")[63], " 10 ");
}

TEST(DirectoryOpen, ShowsItselfInPanel7AndClearsTheOthers) {
    choosing c;
    c.form.panel(1, "old");
    c.form.run("对象目录_M");
    EXPECT_EQ(c.form.StatusBar1.panel(7), "目录选择");
    EXPECT_EQ(c.form.StatusBar1.panel(1), "");
    EXPECT_TRUE(c.window.visible);
    EXPECT_TRUE(c.form.Timer2.enabled);
}

}  // namespace
}  // namespace corvane
