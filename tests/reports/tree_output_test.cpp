// The output of the directory tree: order, lines, what it does to the list, and its failures.
#include <algorithm>
#include <random>
#include <set>

#include "tests/reports/tree_program.h"

namespace corvane {
namespace {

TEST(TreeOutput, AFileStandsBelowItsDirectoriesThreeBlanksALevel) {
    tree p;
    p.list_files({"/a", "/d/b", "/d/e/c"});
    p.open();
    const texts lines = {"\\", "   \\d", "      \\e", "         c", "      b", "   a"};
    EXPECT_EQ(p.output(), lines);
    EXPECT_EQ(p.shown(), lines);
    EXPECT_TRUE(p.window.List1.visible);
    EXPECT_EQ(p.messages(), texts{"提示|树状目录已写入 /prog/tree_file_list.txt"});
    EXPECT_EQ(p.desktop.calls, texts{"open /prog/tree_file_list.txt"});
    EXPECT_FALSE(p.window.ProgressBar1.visible);
    EXPECT_EQ(p.window.ProgressBar1.value, 3);
    EXPECT_FALSE(p.form.task_runs());
}

TEST(TreeOutput, OnADiskWithDriveLettersTheDriveIsLevelOne) {
    tree p('\\');
    p.list_files({"C:\\a", "C:\\d\\b", "D:\\c"});
    p.open();
    EXPECT_EQ(p.output(), (texts{"\\C:", "   \\d", "      b", "   a", "\\D:", "   c"}));
}

TEST(TreeOutput, LinesEndWithCrLf) {
    tree p;
    p.list_files({"/a"});
    p.open();
    p.output();
    EXPECT_EQ(p.files.content_of("/prog/tree_file_list.txt"), "\\\r\n   a\r\n");
}

TEST(TreeOutput, LengthAndDateStandBehindTabs) {
    tree p;
    p.add("/a", std::int64_t{5} << 30);
    p.written_at("/a", 3 * 86400 + 7384);
    p.list({"/a"});
    p.open();
    p.check("Check1");
    EXPECT_EQ(p.output().back(), "   a\t5368709120");
    p.check("Check2");
    EXPECT_EQ(p.output().back(), "   a\t5368709120\t" + std::string(day) + " 02:03:04");
    p.check("Check1", 0);
    EXPECT_EQ(p.output().back(), "   a\t" + std::string(day) + " 02:03:04");
}

// The directory counts as if a sign behind all others closed it: "/d" then stands behind "/d2", too.
TEST(TreeOutput, FilesOfADirectoryStandBehindThoseOfItsSubdirectories) {
    tree p;
    p.list_files({"/d/a", "/d/e/b", "/d/z", "/d2/c", "/d\xFF/x"});
    p.open();
    EXPECT_EQ(p.output(), (texts{"\\", "   \\d", "      \\e", "         b", "   \\d2", "      c",
                                 "   \\d\xFF", "      x", "   \\d", "      a", "      z"}));
}

TEST(TreeOutput, AListInAnyOrderMakesTheSameTree) {
    const texts paths = {"/d/a", "/d/b/c/1", "/d/b/c/2", "/d/b/3", "/d/z", "/e/f", "/g"};
    tree sorted;
    sorted.list_files(paths);
    sorted.open();
    const texts wanted = sorted.output();
    for (const int seed : {1, 2, 3, 4, 5}) {
        texts mixed = paths;
        std::mt19937 random(static_cast<unsigned>(seed));
        std::shuffle(mixed.begin(), mixed.end(), random);
        tree p;
        p.list_files(mixed);
        p.open();
        EXPECT_EQ(p.output(), wanted) << seed;
    }
}

// Held against a sort of the stated keys, over random names of bytes below, at and above the separator.
TEST(TreeOutput, TheOrderIsThatOfDirectoriesClosedByASignBehindAllThenOfNames) {
    std::mt19937 random(7);
    const auto pick = [&](unsigned below) { return static_cast<unsigned>(random()) % below; };
    const texts parts = {"a", "ab", "a.b", "a b", "b", "中", "\xFF", "a\xFF", "z"};
    for (int round = 0; round < 40; ++round) {
        std::set<std::string> paths;
        for (int i = 0; i < 60; ++i) {
            std::string path;
            for (unsigned level = pick(4); level > 0; --level) path += "/" + parts[pick(9)] + "_";
            paths.insert(path + "/" + parts[pick(9)]);
        }
        tree p;
        p.list_files({paths.begin(), paths.end()});
        p.open();
        texts wanted(paths.begin(), paths.end());
        const auto key = [](const std::string& path) {
            std::vector<int> units;
            const std::size_t cut = path.rfind('/');
            for (std::size_t at = 0; at < cut; ++at) units.push_back(static_cast<unsigned char>(path[at]));
            units.push_back(1000);
            return std::pair(units, path.substr(cut + 1));
        };
        std::sort(wanted.begin(), wanted.end(),
                  [&](const std::string& a, const std::string& b) { return key(a) < key(b); });
        for (std::string& path : wanted) path = path.substr(path.rfind('/') + 1);
        EXPECT_EQ(p.written(), wanted);
    }
}

// Only the same level is compared, whatever stands above it.
TEST(TreeOutput, ADirectoryNamedAsTheOneOfItsLevelBeforeGetsNoLine) {
    tree p;
    p.list_files({"/a/same/1", "/b/same/2"});
    p.open();
    EXPECT_EQ(p.output(), (texts{"\\", "   \\a", "      \\same", "         1", "   \\b", "         2"}));
}

// A shorter path forgets one level behind its last; deeper ones are remembered from before.
TEST(TreeOutput, WhatLiesDeeperThanOneLevelBehindIsRemembered) {
    tree p;
    p.list_files({"/a/p/deep/1", "/b/2", "/c/q/deep/3"});
    p.open();
    EXPECT_EQ(p.output(), (texts{"\\", "   \\a", "      \\p", "         \\deep", "            1", "   \\b",
                                 "      2", "   \\c", "      \\q", "            3"}));
}

TEST(TreeOutput, LevelsBoundDirectoriesAndFiles) {
    tree p;
    p.list_files({"/a", "/d/b", "/d/e/c"});
    p.open();
    p.set("Text1", "1");
    EXPECT_EQ(p.output(), (texts{"\\", "   a"}));
    p.set("Text1", "2");
    EXPECT_EQ(p.output(), (texts{"\\", "   \\d", "      b", "   a"}));
    p.set("Text1", "0");
    EXPECT_EQ(p.output(), texts{});
    EXPECT_TRUE(p.files.has("/prog/tree_file_list.txt"));
}

TEST(TreeOutput, TheSpreadsheetFormHasTheSameLines) {
    tree p;
    p.list_files({"/a", "/d/b"});
    p.open();
    p.check("Check1");
    const texts lines = p.output();
    p.check("Option1(1)");
    p.form.run("tree_dir.Option1(1)_Click");
    EXPECT_EQ(p.window.Option1[0]->value, 0);
    p.form.run("tree_dir.Command1_Click");
    EXPECT_EQ(p.stored_lines("tree_file_list.xls"), lines);
    EXPECT_EQ(p.desktop.calls.back(), "open /prog/tree_file_list.xls");
    p.form.run("tree_dir.Picture1_Click");
    EXPECT_EQ(p.desktop.calls.back(), "open /prog/tree_file_list.xls");
}

TEST(TreeOutput, WhatHasGoneLeavesTheListForEveryLaterTask) {
    tree p;
    p.list_files({"/a", "/b", "/c", "/z.zip"});
    p.list({"/a", "/b", "/c", "/z.zip", "/z.zip*in.txt*1A2B3C4D*77"});
    p.open();
    p.files.erase("/b");
    p.output();
    EXPECT_EQ(p.listed(), (texts{"/a", "/c", "/z.zip"}));
    p.form.run("Command33_Click");
    EXPECT_EQ(p.state.export_count, 3);
}

TEST(TreeOutput, NothingLeftEndsWithoutAWord) {
    tree p;
    p.list({"/gone"});
    p.open();
    p.output();
    EXPECT_EQ(p.state.file_count, 0);
    EXPECT_EQ(p.messages(), texts{});
    EXPECT_FALSE(p.files.has("/prog/tree_file_list.txt"));
    EXPECT_FALSE(p.form.task_runs());
}

TEST(TreeOutput, WithoutAListItSaysSo) {
    tree p;
    p.open();
    p.form.run("tree_dir.Command1_Click");
    EXPECT_EQ(p.last_message(), "没有文件清单,请选择目录,搜索文件,再进行这个步骤");
    EXPECT_FALSE(p.form.task_runs());
}

// What is there and no file that can be read stands in the tree only while nothing is asked about it.
TEST(TreeOutput, WhatHasNoLengthIsPassedOverOnceADetailIsAskedFor) {
    tree p;
    p.list_files({"/a", "/d/b"});
    p.files.add_directory("/d/folder");
    p.list({"/a", "/d/b", "/d/folder"});
    p.open();
    EXPECT_EQ(p.written(), (texts{"b", "folder", "a"}));
    EXPECT_EQ(p.state.file_count, 3);
    p.check("Check1");
    EXPECT_EQ(p.output(), (texts{"\\", "   \\d", "      b\t1", "   a\t1"}));
    EXPECT_EQ(p.state.file_count, 3);
}

TEST(TreeOutput, ARepeatedRunMakesTheSameTreeAndAnotherListOfTheSameCountItsOwn) {
    tree p;
    p.list_files({"/d/a", "/d/e/b", "/d/z"});
    p.open();
    const texts first = p.output();
    EXPECT_EQ(p.output(), first);
    p.list_files({"/q/e/1", "/r/2", "/r/a/3"});
    EXPECT_EQ(p.output(), (texts{"\\", "   \\q", "      \\e", "         1", "   \\r", "      \\a",
                                 "         3", "      2"}));
}

TEST(TreeOutput, AnEndAtAnyYieldLeavesTheEarlierFileAndFreesTheTasks) {
    for (const char* act : {"Command28_Click", "exit_sub", "tree_dir.Command2_Click"})
        for (int yield = 1; yield <= 6; ++yield) {
            tree p;
            p.list_files({"/a", "/b", "/c"});
            p.open();
            p.files.add_file("/prog/tree_file_list.txt", "the earlier one");
            p.screen.acts[p.screen.yields + yield] = [&] { EXPECT_TRUE(p.form.run(act)); };
            p.form.run("tree_dir.Command1_Click");
            EXPECT_EQ(p.files.content_of("/prog/tree_file_list.txt"), "the earlier one") << act << yield;
            EXPECT_EQ(p.listed().size(), 3u);
            EXPECT_TRUE(p.desktop.calls.empty());
            EXPECT_FALSE(p.window.ProgressBar1.visible);
            EXPECT_EQ(p.form.task_runs(), p.state.quit_requested != 0);
        }
}

TEST(TreeOutput, NoOtherTaskStartsMeanwhile) {
    tree p;
    p.list_files({"/a", "/b"});
    p.open();
    p.screen.acts[p.screen.yields + 1] = [&] {
        for (const char* task : {"tree_dir.Command1_Click", "Command33_Click", "picture2_Click",
                                 "Command21_Click", "tree_dir.Command4_Click", "tree_select_m"})
            p.form.run(task);
    };
    EXPECT_EQ(p.output(), (texts{"\\", "   a", "   b"}));
    EXPECT_EQ(p.window.suffixes.suffix_total, 0);
}

TEST(TreeOutput, AFailedWriteIsToldAsAnErrorWithItsNumber) {
    tree p;
    p.list_files({"/a"});
    p.open();
    p.files.add_file("/prog/tree_file_list.txt", "the earlier one");
    p.files.write_failure_path = "/prog/tree_file_list.txt";
    p.form.run("tree_dir.Command1_Click");
    EXPECT_EQ(p.messages(), texts{"Error|Error # 0 was generated by Corvane\rdisk full\r\nclose Excel "});
    EXPECT_EQ(p.files.content_of("/prog/tree_file_list.txt"), "the earlier one");
    EXPECT_TRUE(p.desktop.calls.empty());
    EXPECT_FALSE(p.form.task_runs());
    EXPECT_EQ(p.shown(), (texts{"\\", "   a"}));
}

TEST(TreeOutput, NoNameBreaksALineOrAColumn) {
    tree p;
    p.list_files({"/a\uF009b", "/d\uF00A/c\uF02A", "/e\xFF"});
    p.open();
    p.check("Check1");
    EXPECT_EQ(p.output(), (texts{"\\", "   \\d␊", "      c*\t1", "   a␉b\t1", "   e\xFF\t1"}));
}

// One question about a file, whether its details are written or not; one more only for what is no file.
TEST(TreeOutput, AFileIsAskedAboutOnce) {
    struct counting : memory_file_system {
        file_facts facts(std::string_view path) override {
            ++questions;
            return memory_file_system::facts(path);
        }
        path_attributes attributes(const std::string& path) override {
            ++questions;
            return memory_file_system::attributes(path);
        }
        int questions = 0;
    } files;
    recording_shell desktop;
    scripted_interface screen;
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
    program corvane({files, desktop, desktop, screen, encodings}, "/prog/");
    for (const char* path : {"/a", "/b", "/c"}) files.add_file(path, "1");
    files.add_file("/prog/文件清单.txt", "/a\r\n/b\r\n/c\r\n");
    corvane.main_form().run("tree_select_m");
    corvane.tree_window().texts[1]->text = "9";
    corvane.tree_window().checks[1]->value = corvane.tree_window().checks[2]->value = 1;
    files.questions = 0;
    corvane.main_form().run("tree_dir.Command1_Click");
    EXPECT_EQ(files.questions, 3);
}

}  // namespace
}  // namespace corvane
