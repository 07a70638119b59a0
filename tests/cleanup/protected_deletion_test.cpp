// What lies in a protected folder is neither marked nor deleted, on any road.
#include <gtest/gtest.h>

#include "core/tasks/protected_folders.h"
#include "tests/cleanup/archive_deleting.h"
#include "tests/cleanup/empty_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

constexpr auto yes = box_answer::yes;
constexpr auto no = box_answer::no;

template <class Program>
struct protecting : Program {
    void protect(std::set<std::string> folders) { set_protected_folders(this->form, std::move(folders)); }
};

TEST(Protected, TakesNoMarkByAnyAct) {
    protecting<deleting> p;
    p.show_files({{3, "/d/a", "/p/a"}, {3, "/d/a", "/e/a"}, {4, "/p/b", "/d/b"}});
    p.protect({"/p/"});
    p.double_click(1, 4);
    EXPECT_EQ(p.form.StatusBar1.panel(5), "受保护,不标记:1");
    p.press(1, 4);
    p.press(3, 4, true);
    EXPECT_EQ(p.colours(4), (colour_row{black, red, red}));
    p.form.run("undo_marks");
    p.right_press(1, 4);
    p.form.run("all_select");
    EXPECT_EQ(p.colours(4), (colour_row{black, red, red}));
    p.form.run("clear_marks");
    p.right_press(1, 3);
    p.form.run("all_select");
    EXPECT_EQ(p.colours(3), (colour_row{red, gray, black}));
    p.form.run("invert_marks");
    EXPECT_EQ(p.colours(4), (colour_row{black, red, black})) << "/p/a stays; the second group has no mark";
    p.form.run("clear_marks");
    p.screen.answers = {yes};
    p.form.run("keep_longest");  // of equal length the first by code: /d/a, /d/b
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, black}));
    EXPECT_EQ(p.colours(4), (colour_row{black, red, black}));
}

TEST(Protected, LosesItsMarksWhenItBecomesSo) {
    protecting<deleting> p;
    p.show_files({{3, "/d/a", "/p/a"}, {4, "/d/z.zip*a", "/p/z.zip*a"}});
    p.double_click(1, 4);
    p.double_click(2, 4);
    p.select({"/p", "/d"});
    p.form.run("Picture1_Click");
    p.corvane.directory_window().list_selected_dir.check(0, true);
    p.form.run("目录选择.Command34_Click");
    EXPECT_EQ(p.colours(4), (colour_row{black, purple}));
    p.form.run("undo_marks");
    p.form.run("redo_marks");
    EXPECT_EQ(p.colours(4), (colour_row{black, purple}));
}

class ProtectedRoads : public testing::TestWithParam<bool> {
  protected:
    template <class Program>
    void run(Program& p) {
        if (GetParam())
            p.run_direct({no, no});
        else
            p.run_recycle({yes, no});
    }
};

INSTANTIATE_TEST_SUITE_P(Roads, ProtectedRoads, testing::Bool(),
                         [](const auto& each) { return each.param ? "Direct" : "Recycle"; });

TEST_P(ProtectedRoads, AMarkThatIsThereAllTheSameIsNotFollowed) {
    protecting<deleting> p;
    p.show_files({{3, "/d/a", "/p/a"}, {3, "/d/a", "/e/a"}});
    p.protect({"/p/"});
    p.mark(1, 4);
    p.mark(2, 4);
    run(p);
    EXPECT_TRUE(p.files.has("/p/a"));
    EXPECT_FALSE(p.files.has("/e/a"));
    EXPECT_NE(p.last_message().find("受保护,保留 1 个文件:\r\n  /p/a"), std::string::npos)
        << p.last_message();
    EXPECT_EQ(p.list().cell(1, 4), "/p/a");
}

TEST_P(ProtectedRoads, NorByALinkAMountOrAnAttributeRun) {
    protecting<deleting> p;
    p.show_files({{3, "/d/a", "/link/a"}, {3, "/d/a", "/mnt/a"}, {3, "/d/a", "/part/a"}});
    p.files.erase("/link/a");
    p.files.erase("/link");
    p.files.add_file("/p/a", "xxx");
    p.files.add_directory("/p/sub");
    p.files.add_link("/link", "/p");
    p.files.add_directory("/mnt").index = p.files.add_directory("/p").index;
    p.files.trees = {{"/", "/", "8:1"}, {"/part/", "/p/sub/", "8:1"}};
    p.files.add_file("/mnt/a", "xxx").read_only = true;
    p.protect({"/p/"});
    for (std::int32_t row = 1; row <= 3; ++row) p.list().set_colour(row, 4, cell_colour::mark_blue);
    p.state.force_protected = -1;
    run(p);
    EXPECT_TRUE(p.files.has("/p/a"));
    EXPECT_TRUE(p.files.has("/mnt/a"));
    EXPECT_TRUE(p.files.has("/part/a"));
    EXPECT_TRUE(p.files.add_file("/mnt/a").read_only) << "its attributes are left alone";
    EXPECT_NE(p.last_message().find("受保护,保留 3 个文件:\r\n  /link/a 等"), std::string::npos)
        << p.last_message();
}

TEST_P(ProtectedRoads, AProtectedCopyKeepsTheOthers) {
    protecting<deleting> p;
    p.show_files({{3, "/p/a", "/d/a"}});
    p.protect({"/p/"});
    p.double_click(1, 4);
    run(p);
    EXPECT_FALSE(p.files.has("/d/a"));
    EXPECT_TRUE(p.files.has("/p/a"));
}

TEST_P(ProtectedRoads, WhatBecomesProtectedDuringTheRunStays) {
    protecting<deleting> p;
    p.show_files({{3, "/d/a", "/e/a"}, {4, "/d/b", "/p/b"}});
    p.mark(1, 4);
    p.mark(2, 4);
    p.screen.acts[p.screen.yields + 2] = [&] { p.protect({"/p/"}); };
    run(p);
    EXPECT_TRUE(p.files.has("/p/b"));
    EXPECT_FALSE(p.files.has("/e/a"));
}

TEST_P(ProtectedRoads, AnArchiveInAProtectedFolderIsNeverRewritten) {
    protecting<archive_deleting> p;
    p.put_zip("/p/z.zip", {nine("a"), nine("b")});
    p.put_zip("/d/z.zip", {nine("a"), nine("b")});
    p.show_entries({"/p/z.zip*a", "/d/z.zip*b"});
    p.protect({"/p/"});
    run(p);
    EXPECT_EQ(p.archives["/p/z.zip"].size(), 2u);
    EXPECT_EQ(p.archives["/d/z.zip"].size(), 1u);
    EXPECT_EQ(p.lists.size(), 1u);
    EXPECT_EQ(p.list().cell(1, 4), "/p/z.zip*a");
}

TEST_P(ProtectedRoads, WhileTheChoiceIsNotKnownNothingGoes) {
    protecting<deleting> p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.mark(1, 4);
    p.files.add_file("/prog/受保护的目录.txt", "cut");
    read_protected_folders(p.form);
    run(p);
    EXPECT_TRUE(p.files.has("/e/a"));
}

TEST(Protected, ByTheDeleteKey) {
    protecting<deleting> p;
    p.show_files({{3, "/d/a", "/p/a"}});
    p.protect({"/p/"});
    p.mark(1, 4);
    p.screen.answers = {yes};
    p.key(46);
    EXPECT_TRUE(p.files.has("/p/a"));
    EXPECT_TRUE(p.recycled.empty());
}

TEST(Protected, AlsoInAViewThatHoldsNoCopies) {
    protecting<deleting> p;
    p.show_files({{3, "/d/a", "/p/a"}});
    p.protect({"/p/"});
    p.mark(1, 4);
    p.state.list_mode = 2;
    p.run_recycle();
    EXPECT_TRUE(p.files.has("/p/a"));
}

TEST(Protected, EmptyDirectoriesStayTooAndTheProtectedOneItself) {
    protecting<empty_program> p;
    p.show_directories({"/d/x/", "/p/", "/q/in/"});
    p.files.add_link("/l", "/q");
    p.protect({"/p/", "/l/"});
    for (std::int32_t row = 1; row <= 3; ++row) p.mark(row);
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{"/d/x/"});
    EXPECT_EQ(p.cells(2), (texts{"", "/p/", "/q/in/"}));
    EXPECT_EQ(p.message_texts().back(), "放入回收站:1 个空目录\r\n受保护,保留 2 个空目录");
}

TEST(Protected, AnEmptyDirectoryThatBecomesProtectedAfterTheScanStays) {
    protecting<empty_program> p;
    p.show_directories({"/d/x/", "/p/x/"});
    p.mark(1);
    p.mark(2);
    p.screen.on_yield = [&] { p.protect({"/p/"}); };  // right before the batch
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{"/d/x/"});
    EXPECT_EQ(p.cells(2), (texts{"", "/p/x/"}));
}

}  // namespace
}  // namespace corvane
