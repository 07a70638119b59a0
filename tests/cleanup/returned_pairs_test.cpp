// The rows that come back with what is restored: into their own result, with its marks, and noted as it goes.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/cleanup/restoring.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(ReturnedPairs, ACentreComesBackWithAllItsRows) {
    restoring_program q;
    q.show_files({{3, "/d/a", "/e/a"}, {3, "/d/a", "/f/a"}});
    q.delete_cells({{1, 3}});
    EXPECT_FALSE(q.files.has("/d/a"));
    q.form.run("Picture4_Click");
    EXPECT_EQ(q.last_message(), "没有相同文件") << "both rows speak of what has gone";
    q.form.run("restore_deleted");
    q.form.run("restore_runs.Command2_Click");
    q.form.run("Picture4_Click");
    texts pairs = q.listed_pairs();
    std::sort(pairs.begin(), pairs.end());
    EXPECT_EQ(pairs, (texts{"/d/a /e/a", "/d/a /f/a"}));
}

TEST(ReturnedPairs, RowsThatALaterDeletionWroteStay) {
    restoring_program q;
    q.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}, {3, "/d/c", "/e/c"}});
    q.delete_cells({{1, 4}});
    q.screen.date.minute = 7;
    q.delete_cells({{2, 4}});
    q.form.run("restore_deleted");
    ASSERT_EQ(q.window().List1.row_count(), 2);
    q.window().List1.select_only(1);
    q.form.run("restore_runs.List1_Click");
    EXPECT_EQ(q.rows_of(q.window().List2), texts{"在回收站    3    /e/a"}) << "the older run";
    q.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(q.listed_pairs(), (texts{"/d/a /e/a", "/d/c /e/c"}));
    EXPECT_FALSE(q.files.has("/e/b"));
}

TEST(ReturnedPairs, MarksOfTheListStay) {
    restoring_program q;
    q.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}});
    q.delete_cells({{1, 4}});
    q.mark(2, 4);
    q.form.run("restore_deleted");
    q.form.run("restore_runs.Command2_Click");
    ASSERT_EQ(q.listed_pairs(), (texts{"/d/a /e/a", "/d/b /e/b"}));
    EXPECT_EQ(q.list().colour(2, 4), red);
    EXPECT_EQ(q.list().marked_cells(), 1);
}

TEST(ReturnedPairs, MarksThatNobodyHasLookedAtYetStayWithTheStore) {
    restoring_program q;
    q.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}});
    q.delete_cells({{1, 4}});
    q.mark(2, 4);
    q.form.run("store_marks");
    ASSERT_TRUE(q.files.has("/prog/标记.txt"));
    // As after a start: the list is not shown, and the marks wait.
    q.list().visible = false;
    q.state.stored_marks_asked = false;
    q.form.run("restore_deleted");
    q.form.run("restore_runs.Command2_Click");
    q.state.same_fresh_flag = 0;
    q.form.run("Picture4_Click");
    ASSERT_EQ(q.listed_pairs(), (texts{"/d/a /e/a", "/d/b /e/b"}));
    EXPECT_EQ(q.list().marked_cells(), 1);
    for (std::int32_t row = 1; row <= 2; ++row)
        EXPECT_EQ(q.list().colour(row, 4) == red, q.list().cell(row, 4) == "/e/b");
}

// Two equal files in each of two directories; the copy in the first has gone to the bin.
struct two_directories : restoring_program {
    two_directories() {
        files.add_file("/a/x", "same");
        files.add_file("/a/y", "same");
        files.add_file("/b/x", "other");
        files.add_file("/b/y", "other");
        compare({"/a"});
        form.run("Picture4_Click");
        delete_cells({{1, 4}});
    }
    void restore() {
        form.run("restore_deleted");
        form.run("restore_runs.Command2_Click");
    }
};

TEST(ReturnedPairs, ComeNotIntoTheResultOfOtherDirectories) {
    two_directories q;
    q.compare({"/b"});
    q.restore();
    EXPECT_TRUE(q.files.has("/a/y"));
    EXPECT_EQ(q.stored_pairs(), texts{"5 /b/x /b/y"});
}

TEST(ReturnedPairs, ComeIntoTheirResultWhateverIsSelectedOrListed) {
    two_directories q;
    q.search({"/b"});  // no comparison: the stored result is that of /a
    q.restore();
    EXPECT_EQ(q.stored_pairs(), texts{"4 /a/x /a/y"});
}

TEST(ReturnedPairs, ASelectionBeforeTheDeletionIsNotItsResult) {
    two_directories q;
    q.restore();
    q.form.run("Picture4_Click");
    q.select({"/b"});
    q.delete_cells({{1, 4}});
    q.compare({"/b"});
    q.restore();
    EXPECT_EQ(q.stored_pairs(), texts{"5 /b/x /b/y"});
}

TEST(ReturnedPairs, OlderNotesWithoutDirectoriesBringTheirsBack) {
    restoring_program q;
    q.state.result_dirs.clear();
    q.show_files({{3, "/d/a", "/e/a"}});
    q.delete_cells({{1, 4}});
    q.state.result_dirs.push_back("/d");
    q.form.run("restore_deleted");
    q.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(q.listed_pairs(), texts{"/d/a /e/a"});
}

TEST(ReturnedPairs, NoPairComesBackOverMarksThatCannotBeRead) {
    restoring_program q;
    q.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}, {3, "/d/c", "/e/c"}});
    q.delete_cells({{1, 4}});
    q.mark(2, 4);
    q.mark(3, 4);
    q.form.run("store_marks");
    const std::string marks = q.files.content_of("/prog/标记.txt");
    const texts stored = q.stored_pairs();
    q.list().visible = false;
    q.state.stored_marks_asked = false;
    q.files.add_file("/prog/标记.txt", marks).read_failure = static_cast<std::int64_t>(marks.size()) - 4;
    q.form.run("restore_deleted");
    q.form.run("restore_runs.Command2_Click");
    EXPECT_TRUE(q.files.has("/e/a"));
    EXPECT_EQ(q.stored_pairs(), stored);
    q.files.add_file("/prog/标记.txt", q.files.content_of("/prog/标记.txt"));
    EXPECT_EQ(q.files.content_of("/prog/标记.txt"), marks);
}

// A run of more files than are noted at once.
struct long_run_back : restoring_program {
    long_run_back() {
        std::vector<list_program::pair> pairs;
        for (int i = 10000; i < 11005; ++i)
            pairs.push_back({1, "/d/" + std::to_string(i), "/e/" + std::to_string(i)});
        show_files(pairs);
        std::vector<std::pair<std::int32_t, int>> cells;
        for (std::int32_t row = 1; row <= 1005; ++row) cells.emplace_back(row, 4);
        delete_cells(cells);
        form.run("restore_deleted");
        notes = window().List1.rows()[0].tooltip;
    }
    std::string notes;
};

TEST(ReturnedRun, WhatCouldNotBeNotedIsNotedLater) {
    long_run_back q;
    q.screen.on_yield = [&] {
        q.files.write_failure_path = q.bin.restores > 900 && q.bin.restores < 1003 ? q.notes : "";
    };
    q.form.run("restore_runs.Command2_Click");
    EXPECT_EQ(q.last_message(), "已恢复:1005 个");
    const std::string written = q.files.content_of(q.notes);
    for (const int number : {1, 1000, 1005})
        EXPECT_NE(written.find("\r\nR\t" + std::to_string(number) + "\t"), std::string::npos) << number;
}

TEST(ReturnedRun, WhatIsBackIsNotedBeforeTheLastOneIs) {
    long_run_back q;
    std::size_t noted = 0;
    q.screen.on_yield = [&] {
        if (q.bin.restores == 1003) noted = q.files.content_of(q.notes).find("\r\nR\t1000\t");
    };
    q.form.run("restore_runs.Command2_Click");
    EXPECT_NE(noted, 0u);
    EXPECT_NE(noted, std::string::npos);
}

}  // namespace
}  // namespace corvane
