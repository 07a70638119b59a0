// In every group a rule keeps one and marks the others; a group never loses its last unmarked member.
#include "browser/mark_by_rule.h"

#include <gtest/gtest.h>

#include <random>

#include "browser/pair_groups.h"
#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct ruled : deleting {
    // The marked paths, each once, in the order of rows and columns.
    texts marked() {
        texts found;
        for (std::int32_t row = 1; row <= list().row_count(); ++row)
            for (const int column : {3, 4})
                if (list().colour(row, column) == red && !list().cell(row, column).empty() &&
                    std::find(found.begin(), found.end(), list().cell(row, column)) == found.end())
                    found.push_back(list().cell(row, column));
        return found;
    }
    texts by(const char* rule, std::vector<box_answer> answers = {box_answer::yes}) {
        screen.answers.assign(answers.begin(), answers.end());
        form.run(rule);
        return marked();
    }
    void date(const std::string& path, std::int32_t high) {
        files.add_file(path, content(path)).date_high = high;
    }
    std::string content(const std::string& path) { return files.content_of(path); }
};

// One star of four: the centre is /d/mm/a.
struct one_star : ruled {
    one_star() {
        show_files({{3, "/d/mm/a", "/d/a"}, {3, "/d/mm/a", "/d/mm/b"}, {3, "/d/mm/a", "/e/long/path/a"}});
    }
};

TEST(Rules, TheNewestStaysAlsoWhereItIsNoCentre) {
    one_star p;
    p.date("/d/mm/b", 40'000'000);
    EXPECT_EQ(p.by("keep_newest"), (texts{"/d/mm/a", "/d/a", "/e/long/path/a"}));
    // The centre's gray cells took no mark.
    EXPECT_EQ(p.colours(3), (colour_row{red, gray, gray}));
    EXPECT_EQ(p.colours(4), (colour_row{red, black, red}));
}

TEST(Rules, TheOldestStays) {
    one_star p;
    p.date("/e/long/path/a", 20'000'000);
    EXPECT_EQ(p.by("keep_oldest"), (texts{"/d/mm/a", "/d/a", "/d/mm/b"}));
}

TEST(Rules, OfEqualDatesThePlainestPathStays) {
    one_star p;
    EXPECT_EQ(p.by("keep_newest"), (texts{"/d/mm/a", "/d/mm/b", "/e/long/path/a"}));
}

TEST(Rules, TheShortestAndTheLongestPath) {
    one_star shortest, longest;
    EXPECT_EQ(shortest.by("keep_shortest"), (texts{"/d/mm/a", "/d/mm/b", "/e/long/path/a"}));
    EXPECT_EQ(longest.by("keep_longest"), (texts{"/d/mm/a", "/d/a", "/d/mm/b"}));
}

TEST(Rules, APathIsAsLongAsItsLetters) {
    ruled p;
    p.show_files({{3, "/d/文文", "/d/abcd"}});  // 5 letters of 9 bytes, 7 of 7
    EXPECT_EQ(p.by("keep_shortest"), texts{"/d/abcd"});
}

TEST(Rules, TheFolderThatHoldsMostOfTheGroup) {
    one_star p;  // two lie in /d/mm, of which /d/mm/a is first
    EXPECT_EQ(p.by("keep_fullest_folder"), (texts{"/d/a", "/d/mm/b", "/e/long/path/a"}));
}

TEST(Rules, TheFoldersInTheirOrderAndGroupsWithoutAnyAreLeftAlone) {
    ruled p;
    p.show_files({{3, "/d/a", "/e/a"}, {4, "/f/a", "/g/a"}, {5, "/d/b", "/ee/b"}});
    p.screen.texts = {"/x| /e |/d/"};
    EXPECT_EQ(p.by("keep_by_folders"), (texts{"/d/a", "/ee/b"}));
    EXPECT_EQ(p.screen.questions.back().prompt, "按次序保留哪些目录里的, 用 | 分开\r\n");
    // The answer is offered again; a dismissed box does nothing.
    p.by("keep_by_folders");
    EXPECT_EQ(p.screen.questions.back().initial, "/x| /e |/d/");
    EXPECT_EQ(p.marked(), (texts{"/d/a", "/ee/b"}));
}

TEST(Rules, NamesOfCopiesGoFirstAndTheNextRuleTakesTheRest) {
    ruled p;
    p.show_files({{3, "/d/a", "/d/a (1)"},
                  {3, "/d/a", "/d/bb"},
                  {3, "/d/a", "/d/a - 副本"},
                  {4, "/e/x (1)", "/e/xx (2)"}});
    EXPECT_EQ(p.by("mark_copy_names"), (texts{"/d/a (1)", "/d/a - 副本", "/e/xx (2)"}));
    EXPECT_EQ(p.by("keep_longest"), (texts{"/d/a", "/d/a (1)", "/d/a - 副本", "/e/xx (2)"}));
    // Nothing is left to mark, and it says so.
    p.by("keep_shortest", {});
    EXPECT_EQ(p.last_message(), "保留路径最短的: 没有可标记的文件");
}

TEST(Rules, TheQuestionSaysFilesAndBytesAndANoMarksNothing) {
    one_star p;
    EXPECT_EQ(p.by("keep_shortest", {box_answer::no}), texts{});
    EXPECT_EQ(p.last_message(), "保留路径最短的: 将标记 3 个文件, 9 字节");
    EXPECT_EQ(p.by("keep_shortest", {box_answer::dismissed}), texts{});
    p.by("keep_shortest");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "已标记:3 个文件, 9 字节");
}

TEST(Rules, APathInSeveralRowsCountsOnceAndIsMarkedInAllOfThem) {
    ruled p;
    p.show_files({{3, "/d/cc", "/d/a"}, {3, "/d/cc", "/d/bb"}});
    p.header(4);  // by the second path: the centre's rows need not be neighbours
    p.header(4);
    p.list().set_colour(2, 3, black);  // as after a sort that parts them
    EXPECT_EQ(p.by("keep_shortest"), (texts{"/d/cc", "/d/bb"}));
    EXPECT_EQ(p.last_message(), "保留路径最短的: 将标记 2 个文件, 6 字节");
    EXPECT_EQ(p.colours(3), (colour_row{red, red}));
}

TEST(Rules, WhatIsMarkedAlreadyIsNotKeptAndTheLastUnmarkedOneNeverGoes) {
    one_star p;
    p.double_click(1, 4);  // /d/a, the shortest
    EXPECT_EQ(p.by("keep_shortest"), (texts{"/d/a", "/d/mm/b", "/e/long/path/a"}));
}

TEST(Rules, AFileThatWasRefusedCountsAsMarked) {
    ruled p;
    p.show_files({{3, "/d/a", "/d/bb"}});
    p.list().set_colour(1, 4, cell_colour::mark_blue);
    p.by("keep_longest", {});
    EXPECT_EQ(p.colours(3), colour_row{black});
    EXPECT_EQ(p.colours(4), colour_row{cell_colour::mark_blue});
}

TEST(Rules, NothingIsSaidOfDatesThatAreNotKnown) {
    ruled p;
    p.show_files({{3, "/d/z.zip*a", "/d/a"}, {3, "/d/z.zip*a", "/d/b"}, {4, "/d/y.zip*a", "/d/x.zip*b"}});
    p.date("/d/b", 40'000'000);
    EXPECT_EQ(p.by("keep_newest"), texts{"/d/a"}) << "an entry is neither older nor newer";
}

TEST(Rules, AFileThatIsGoneKeepsNoGroup) {
    one_star p;
    p.files.erase("/d/mm/a");
    p.date("/d/a", 40'000'000);
    EXPECT_EQ(p.by("keep_newest"), (texts{"/d/mm/b", "/e/long/path/a"}));
}

TEST(Rules, AfterADeletionTheDiskIsAskedWhoIsLeft) {
    ruled p;
    p.show_files({{3, "/d/a", "/d/bb"}, {3, "/d/a", "/d/ccc"}});
    p.double_click(1, 3);
    p.run_recycle();
    ASSERT_EQ(p.recycled, texts{"/d/a"});
    // Row 2 still names /d/a, gray; of the group only /d/ccc and, in a row with a blank cell, /d/bb are left.
    p.by("keep_shortest", {});
    EXPECT_EQ(p.marked(), texts{});
    EXPECT_EQ(p.last_message(), "保留路径最短的: 没有可标记的文件");
}

TEST(Rules, BothCellsOfARowMayGoAndTheRowCountsOnce) {
    ruled p;
    p.show_files({{3, "/d/cc", "/d/dd"}, {3, "/d/cc", "/d/a"}, {4, "/e/a", "/e/b"}});
    ASSERT_EQ(p.by("keep_shortest"), (texts{"/d/cc", "/d/dd", "/e/b"}));
    p.run_recycle();
    EXPECT_EQ(p.recycled, (texts{"/d/cc", "/d/dd", "/e/b"}));
    EXPECT_EQ(p.state.same_count, 1) << "three rows, of which one lost both sides and one lost one";
    EXPECT_TRUE(p.files.has("/d/a"));
}

TEST(Rules, HiddenRowsKeepTheirGroupAndAreMarkedOnlyWhenAsked) {
    ruled p;
    p.show_files({{3, "/d/c.txt", "/d/a.jpg"}, {3, "/d/c.txt", "/d/bbb.txt"}, {4, "/e/aa.txt", "/e/b.txt"}});
    p.screen.texts = {"*.jpg"};
    p.form.run("only_disp");
    ASSERT_EQ(p.list().row_count(), 1);
    // The keeper of the group stands in a hidden row.
    EXPECT_EQ(p.by("keep_longest"), (texts{"/d/c.txt", "/d/a.jpg"}));
    EXPECT_EQ(p.last_message(),
              "保留路径最长的: 将标记 2 个文件, 6 字节\r\n连同未显示的行: 3 个文件, 10 字节");
    p.form.run("undo_marks");
    ASSERT_EQ(p.marked(), texts{});
    EXPECT_EQ(p.by("keep_longest", {box_answer::dismissed}), texts{});
    p.double_click(1, 4);
    EXPECT_EQ(p.by("keep_longest", {box_answer::no}), (texts{"/d/c.txt", "/d/a.jpg", "/e/b.txt"}));
    EXPECT_EQ(p.list().row_count(), 3) << "all rows are shown again, and the mark that was there is";
    p.form.run("undo_marks");
    EXPECT_EQ(p.marked(), texts{"/d/a.jpg"});
}

TEST(Rules, MarksThatAreSetWhileTheDiskIsAskedAreSeen) {
    ruled p;
    p.show_files({{3, "/d/a", "/d/b"}});
    p.date("/d/b", 40'000'000);
    p.screen.acts[p.screen.yields + 1] = [&] { p.double_click(1, 4); };  // the one that the rule would keep
    p.by("keep_newest", {});
    EXPECT_EQ(p.marked(), texts{"/d/b"});
}

TEST(Rules, MarksThatAreSetWhileTheQuestionStandsAreSeen) {
    ruled p;
    p.show_files({{3, "/d/a", "/d/bb"}});
    p.screen.on_message = [&](const message& shown) {
        if (shown.buttons != box_buttons::ok) p.double_click(1, 3);
    };
    EXPECT_EQ(p.by("keep_shortest"), texts{"/d/a"});
}

TEST(Rules, ClosingWhileTheDiskIsAskedMarksNothing) {
    one_star p;
    p.screen.acts[p.screen.yields + 1] = [&] { p.corvane.close(); };
    EXPECT_EQ(p.by("keep_newest"), texts{});
}

TEST(Rules, OtherViewsAndAHiddenListAreRefused) {
    one_star p;
    p.state.list_mode = 3;
    p.form.run("keep_shortest");
    EXPECT_EQ(p.last_message(), "非相同文件状态,不能标记");
    p.state.list_mode = 0;
    p.list().visible = false;
    p.form.run("keep_shortest");
    EXPECT_EQ(p.last_message(), "列表没有显示,请先显示结果");
    EXPECT_EQ(p.marked(), texts{});
}

TEST(Rules, AMarkByHandOnTheLastUnmarkedCopyTakesThatOfAnother) {
    ruled p;
    p.show_files({{3, "/d/cc", "/d/dd"}, {3, "/d/cc", "/d/a"}});
    ASSERT_EQ(p.by("keep_shortest"), (texts{"/d/cc", "/d/dd"}));
    p.double_click(2, 4);
    EXPECT_EQ(p.marked(), (texts{"/d/dd", "/d/a"})) << "as within a row";
    p.form.run("undo_marks");
    EXPECT_EQ(p.marked(), (texts{"/d/cc", "/d/dd"})) << "in one step";
}

TEST(Invert, MarksTheOthersOfAGroupThatHasMarks) {
    ruled p;
    p.show_files({{3, "/d/a", "/d/b"}, {3, "/d/a", "/d/c"}, {4, "/e/a", "/e/b"}});
    p.double_click(1, 4);
    p.form.run("invert_marks");
    EXPECT_EQ(p.marked(), (texts{"/d/a", "/d/c"})) << "/e has no marks and would lose all";
    p.form.run("invert_marks");
    EXPECT_EQ(p.marked(), texts{"/d/b"});
}

TEST(Invert, OfEmptyDirectoriesEachByItself) {
    ruled p;
    p.files.add_directory("/d/x");
    p.files.add_directory("/d/y");
    p.select({"/d"});
    p.form.run("Picture6_Click");
    ASSERT_EQ(p.cells(2), (texts{"/d/x/", "/d/y/"}));
    p.list().set_colour(1, 2, red);
    p.form.run("invert_marks");
    EXPECT_EQ(p.colours(2), (colour_row{black, red}));
    p.form.run("clear_marks");
    EXPECT_EQ(p.colours(2), (colour_row{black, black}));
    p.form.run("undo_marks");
    EXPECT_EQ(p.colours(2), (colour_row{black, red}));
}

TEST(ClearMarks, GivesArchiveMembersTheirColourBack) {
    five_rows p;
    p.double_click(5, 3);
    p.double_click(1, 4);
    p.form.run("clear_marks");
    EXPECT_EQ(p.colours(3), (colour_row{black, gray, gray, black, purple}));
    EXPECT_EQ(p.colours(4), (colour_row{black, black, black, black, purple}));
}

// Whatever the rows, the rule and the order: what is kept is one of each group, by an account of its own.
TEST(Rules, OverRandomGroupsOneOfEachStays) {
    static constexpr const char* rules[] = {"keep_newest",  "keep_oldest",         "keep_shortest",
                                            "keep_longest", "keep_fullest_folder", "mark_copy_names",
                                            "invert_marks"};
    for (std::uint32_t seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        ruled p;
        std::vector<list_program::pair> pairs;
        const int groups = 1 + static_cast<int>(random() % 5);
        for (int group = 0; group < groups; ++group) {
            const std::string centre = "/d" + std::to_string(random() % 3) + "/g" + std::to_string(group);
            const int copies = 1 + static_cast<int>(random() % 4);
            for (int copy = 0; copy < copies; ++copy)
                pairs.push_back({group + 5, centre,
                                 "/e" + std::to_string(random() % 3) + "/g" + std::to_string(group) + " (" +
                                     std::to_string(copy) + ")"});
        }
        p.show_files(pairs);
        for (int step = 0; step < 6; ++step) {
            if (random() % 3 == 0) p.header(1 + static_cast<int>(random() % 4));
            if (random() % 2 == 0)
                p.double_click(1 + static_cast<std::int32_t>(random() % pairs.size()),
                               3 + static_cast<int>(random() % 2));
            p.by(rules[random() % std::size(rules)]);
            if (random() % 4 == 0) p.form.run("undo_marks");
        }
        const texts marked = p.marked();
        for (int group = 0; group < groups; ++group) {
            int left = 0;
            std::vector<std::string> seen;
            for (const list_program::pair& each : pairs)
                for (const std::string& path : {each.path1, each.path2})
                    if (each.length == group + 5 && std::find(seen.begin(), seen.end(), path) == seen.end()) {
                        seen.push_back(path);
                        left += std::find(marked.begin(), marked.end(), path) == marked.end();
                    }
            EXPECT_GE(left, 1) << "seed " << seed << " group " << group;
        }
    }
}

}  // namespace
}  // namespace corvane
