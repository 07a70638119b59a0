// The checks before the selected directories.
#include <gtest/gtest.h>

#include <set>

#include "tests/search/choosing.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct protecting : choosing {
    std::vector<bool> checks() const {
        std::vector<bool> found;
        for (const list_box::row& each : window.list_selected_dir.rows()) found.push_back(each.checked);
        return found;
    }
    // The window with these two; the second one is protected if asked for.
    void open_with_two(bool second_protected) {
        if (second_protected) state.protected_folders = {"/d/2/"};
        select({"/d/1", "/d/2"});
        form.run("Picture1_Click");
    }
    void check(std::size_t row, bool on) { window.list_selected_dir.check(row, on); }
};
using flags = std::vector<bool>;

TEST(DirectoryProtection, ACheckedRowIsProtectedFromTheConfirmationOn) {
    protecting c;
    c.open_with_two(false);
    EXPECT_EQ(c.checks(), (flags{false, false}));
    c.check(1, true);
    EXPECT_TRUE(c.state.protected_folders.empty());
    c.form.run("目录选择.Command34_Click");
    EXPECT_EQ(c.state.protected_folders, std::set<std::string>{"/d/2/"});
    EXPECT_EQ(c.stored_lines("受保护的目录.txt"), (texts{"Corvane protected folders 1", " 1 ", "/d/2/"}));
    c.form.run("Picture1_Click");
    EXPECT_EQ(c.checks(), (flags{false, true}));
    c.check(1, false);
    c.form.run("目录选择.Command34_Click");
    EXPECT_TRUE(c.state.protected_folders.empty());
}

TEST(DirectoryProtection, ClosingByTheFrameAndDiscardingDropTheChange) {
    protecting c;
    c.open_with_two(true);
    c.check(0, true);
    c.check(1, false);
    c.form.run("目录选择.cmd_dir_discard_Click");
    EXPECT_EQ(c.checks(), (flags{false, true}));
    c.check(0, true);
    c.window.Form_Unload();
    EXPECT_EQ(c.state.protected_folders, std::set<std::string>{"/d/2/"});
}

TEST(DirectoryProtection, AnInnerFolderDropsOutOfTheSelectionAndStaysProtectedAndInSight) {
    protecting c;
    c.select({"/d"});
    c.form.run("Picture1_Click");
    c.window.add_paths({"/d/3"});
    c.check(1, true);
    c.form.run("目录选择.Command34_Click");
    EXPECT_EQ(c.state.selected_dir_count, 1);
    EXPECT_EQ(c.state.protected_folders, std::set<std::string>{"/d/3/"});
    c.form.run("Picture1_Click");
    EXPECT_EQ(c.list(), (texts{"/d", "/d/3"}));
    EXPECT_EQ(c.checks(), (flags{false, true}));
    c.form.run("目录选择.Command34_Click");
    EXPECT_EQ(c.state.selected_dir_count, 1);
    EXPECT_EQ(c.state.protected_folders, std::set<std::string>{"/d/3/"});
}

TEST(DirectoryProtection, ARowThatLeavesTheListKeepsItsProtection) {
    protecting c;
    c.open_with_two(true);
    c.window.remove_row(1);
    c.form.run("目录选择.Command34_Click");
    EXPECT_EQ(c.state.protected_folders, std::set<std::string>{"/d/2/"});
    c.form.run("Picture1_Click");
    EXPECT_EQ(c.list(), texts{"/d/1"});
    c.window.add_paths({"/d/2"});
    EXPECT_EQ(c.checks(), (flags{false, true}));
}

TEST(DirectoryProtection, ARowThatMovesTakesItsCheckAlong) {
    protecting c;
    c.open_with_two(true);
    c.check(0, true);
    c.check(1, false);
    c.window.add_paths({"/d/2", "/d/1", "/d/4"});
    EXPECT_EQ(c.list(), (texts{"/d/2", "/d/1", "/d/4"}));
    EXPECT_EQ(c.checks(), (flags{false, true, false}));
}

TEST(DirectoryProtection, ConfirmingEndsWhatADamagedFileHasBegun) {
    protecting c;
    c.state.protection_unknown = true;
    c.files.add_file("/prog/受保护的目录.txt", "cut");
    c.select({"/d/1"});
    c.form.run("Picture1_Click");
    c.form.run("目录选择.Command34_Click");
    EXPECT_FALSE(c.state.protection_unknown);
    EXPECT_EQ(c.files.content_of("/prog/受保护的目录.旧.txt"), "cut");
}

TEST(DirectoryProtection, WhatComesFromOutsideConfirmsNothing) {
    protecting idle;
    idle.state.protection_unknown = true;
    EXPECT_EQ(idle.corvane.receive({"/d/3"}), reception::taken);
    EXPECT_EQ(idle.state.selected_dirs, column<std::string>{"/d/3"});
    EXPECT_TRUE(idle.state.protection_unknown);
    protecting starting;
    starting.files.add_file("/prog/受保护的目录.txt", "cut");
    starting.add_used_folder();
    starting.corvane.open_with({"/d/1"});
    ASSERT_TRUE(starting.corvane.start());
    EXPECT_EQ(starting.state.selected_dirs, column<std::string>{"/d/1"});
    EXPECT_TRUE(starting.state.protection_unknown);
    EXPECT_EQ(starting.files.content_of("/prog/受保护的目录.txt"), "cut");
}

}  // namespace
}  // namespace corvane
