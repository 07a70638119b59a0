// The signature history alone: rows in, rows out, a handful of files.
#include "compare/history.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {

struct history_case {
    memory_file_system disk;
    history_state history;
    file_columns files;
    history_reading reading{[](std::int32_t) {}, [](std::int32_t) { return true; }};

    history_case() { history.history_path = "/h"; }
    bool read(const std::string& text, std::int32_t most = 100) {
        disk.add_file("/h", text);
        return read_history(disk, history, most, reading);
    }
    void add(const std::string& path, std::int64_t length, std::int32_t signature) {
        files.file_list.push_back(path);
        files.file_len.push_back(length);
        files.file_date_hi.push_back(1);
        files.file_date_lo.push_back(2);
        files.file_crc.push_back(signature);
        files.file_count = files.file_list.size();
    }
    std::string merged() {
        std::string error;
        EXPECT_TRUE(merge_history(disk, history, files, error)) << error;
        return disk.content_of("/h");
    }
};

TEST(HistoryFile, BothRowFormsAreRead) {
    for (const char* row : {"/a\t5\t1\t2\t-7", "/a,5,1,2,-7"}) {
        history_case c;
        ASSERT_TRUE(c.read("1\r\n" + std::string(row) + "\r\n"));
        ASSERT_EQ(c.history.history_count, 1);
        EXPECT_EQ(c.history.history_name[1], "/a");
        EXPECT_EQ(c.history.history_len[1], 5);
        EXPECT_EQ(c.history.history_date_hi[1], 1);
        EXPECT_EQ(c.history.history_date_lo[1], 2);
        EXPECT_EQ(c.history.history_crc[1], -7);
    }
}

TEST(HistoryFile, ANameMayHoldTheDelimiter) {
    history_case c;
    c.read("1\r\n/a,b,5,1,2,9\r\n");
    EXPECT_EQ(c.history.history_name[1], "/a,b");
}

TEST(HistoryFile, OfAFileShorterThanItsCountTheRowsThatAreThereCount) {
    history_case c;
    c.read("3\r\n/a\t5\t1\t2\t9\r\n");
    EXPECT_EQ(c.history.history_count, 1);
    c.add("/a", 5, 0);
    reuse_history(c.history, c.files);
    EXPECT_EQ(c.files.file_crc[1], 9);
}

TEST(HistoryFile, RowsOutOfOrderAndRowsOfOneNameArePutInOrder) {
    history_case c;
    c.read(
        "6\r\n/c\t1\t1\t2\t3\r\n/a\t5\t1\t2\t9\r\n\t1\t1\t1\t1\r\n/b\t4\t1\t2\t4\r\n/a\t6\t1\t2\t8\r\n"
        " \t1\t1\t1\t1\r\n");
    ASSERT_EQ(c.history.history_count, 3);
    EXPECT_EQ(c.merged(), "3           \r\n/a\t6\t1\t2\t8\r\n/b\t4\t1\t2\t4\r\n/c\t1\t1\t2\t3\r\n");
}

TEST(HistoryFile, NoMoreRowsThanTheLimitAreTaken) {
    history_case c;
    c.read("3\r\n/a\t1\t1\t2\t9\r\n/b\t1\t1\t2\t9\r\n/c\t1\t1\t2\t9\r\n", 2);
    EXPECT_EQ(c.history.history_count, 2);
}

TEST(HistoryFile, AnUnchangedFileGetsItsSignatureBackAndAChangedOneDoesNot) {
    history_case c;
    c.read("2\r\n/a\t5\t1\t2\t77\r\n/b\t6\t1\t2\t88\r\n");
    c.add("/a", 5, 0);
    c.add("/b", 7, 0);
    reuse_history(c.history, c.files);
    EXPECT_EQ(c.files.file_crc, (column<std::int32_t>{77, 0}));
}

TEST(HistoryFile, MergingKeepsOldRowsAndTakesNewOnesByName) {
    history_case c;
    c.read("2\r\n/a\t5\t1\t2\t77\r\n/c\t6\t1\t2\t88\r\n");
    c.add("/d", 9, 4);
    c.add("/b", 8, 3);
    c.add("/e", 8, 0);  // without a signature there is nothing to keep
    EXPECT_EQ(c.merged(),
              "4           \r\n/a\t5\t1\t2\t77\r\n/b\t8\t1\t2\t3\r\n/c\t6\t1\t2\t88\r\n/d\t9\t1\t2\t4\r\n");
    EXPECT_EQ(c.history.history_count, 4);
}

TEST(HistoryFile, IsNotWrittenAgainWhenItHoldsAllAlready) {
    const std::string stored = "3           \r\n/a\t5\t1\t2\t77\r\n/b\t6\t1\t2\t88\r\n/c\t6\t1\t2\t9\r\n";
    const auto is_written = [](const std::string& text, auto change) {
        history_case c;
        int commits = 0;
        c.read(text);
        c.add("/c", 6, 9);
        c.add("/a", 5, 77);
        c.disk.on_commit = [&](const std::string&) { ++commits; };
        change(c);
        c.merged();
        return commits == 1;
    };
    EXPECT_FALSE(is_written(stored, [](history_case&) {}));
    EXPECT_TRUE(is_written(stored, [](history_case& c) { c.add("/d", 1, 1); })) << "a new file";
    EXPECT_TRUE(is_written(stored, [](history_case& c) { c.files.file_crc[1] = 10; })) << "another signature";
    EXPECT_TRUE(is_written(stored, [](history_case& c) { c.files.file_len[1] = 7; })) << "another length";
    EXPECT_TRUE(is_written(stored, [](history_case& c) { c.files.file_date_hi[2] = 9; })) << "another date";
    EXPECT_TRUE(is_written(stored, [](history_case& c) { c.files.file_date_lo[2] = 9; })) << "another date";
    EXPECT_TRUE(is_written(stored, [](history_case& c) { c.disk.erase("/h"); })) << "it is gone";
    EXPECT_TRUE(is_written(stored, [](history_case& c) {
        c.disk.add_file("/a", "x");
        c.disk.add_file("/c", "x");
        purge_history(c.disk, c.history, [] {});
    })) << "/b has been dropped";
    const auto as_it_stands = [](history_case&) {};
    EXPECT_TRUE(is_written("3\r\n/b\t6\t1\t2\t88\r\n/a\t5\t1\t2\t77\r\n/c\t6\t1\t2\t9\r\n", as_it_stands))
        << "out of order";
    EXPECT_TRUE(is_written("3\r\n/a,5,1,2,77\r\n/b,6,1,2,88\r\n/c,6,1,2,9\r\n", as_it_stands))
        << "the old form";
    EXPECT_TRUE(is_written("9\r\n/a\t5\t1\t2\t77\r\n/b\t6\t1\t2\t88\r\n/c\t6\t1\t2\t9\r\n", as_it_stands))
        << "cut";
    EXPECT_TRUE(is_written("2\r\n/a\t5\t1\t2\t77\r\n/c\t6\t1\t2\t9\r\n/d\t6\t1\t2\t9\r\n", as_it_stands))
        << "rows behind its count";
}

TEST(HistoryFile, APathThatIsListedTwiceHasOneRow) {
    history_case c;
    c.read("0\r\n");
    c.add("/a", 5, 7);
    c.add("/a", 5, 7);
    c.add("/b", 8, 3);
    EXPECT_EQ(c.merged(), "2           \r\n/a\t5\t1\t2\t7\r\n/b\t8\t1\t2\t3\r\n");
}

TEST(HistoryFile, ThePurgeLeavesItAscendingAndEachNameOnceAtEveryRun) {
    std::string stored =
        "5\r\n/a\t1\t1\t2\t1\r\n/b\t1\t1\t2\t2\r\n/c\t1\t1\t2\t3\r\n/d\t1\t1\t2\t4\r\n"
        "/e\t1\t1\t2\t5\r\n";
    for (int run = 1; run <= 3; ++run) {
        history_case c;
        for (const char* path : {"/a", "/b", "/d", "/e"}) c.disk.add_file(path, "x");
        ASSERT_TRUE(c.read(stored));
        int turns = 0;
        const std::int32_t rows = c.history.history_count;
        purge_history(c.disk, c.history, [&] { ++turns; });
        EXPECT_EQ(turns, rows) << "a turn a row";
        c.add("/e", 1, 5);
        c.add("/b", 1, 2);
        c.add("/a", 1, 1);
        stored = c.merged();
        EXPECT_EQ(stored,
                  "4           \r\n/a\t1\t1\t2\t1\r\n/b\t1\t1\t2\t2\r\n/d\t1\t1\t2\t4\r\n/e\t1\t1\t2\t5\r\n")
            << "run " << run;
    }
}

TEST(HistoryFile, OfAFileThatWasReadWholeForAnArchiveTheSignatureOfItsStartIsKept) {
    history_case c;
    c.read("0\r\n");
    c.add("/b", 70'000, 7);
    c.add("/a", 70'000, 8);
    c.add("/c", 70'000, 9);
    c.files.file_start_crc.assign(3, {});
    c.files.file_start_crc[1] = 77;
    c.files.file_start_crc[3] = 0;  // not known, as any signature of 0
    EXPECT_EQ(c.merged(), "2           \r\n/a\t70000\t1\t2\t8\r\n/b\t70000\t1\t2\t77\r\n");
}

TEST(HistoryFile, ThatCannotBeWrittenStaysWhole) {
    history_case c;
    const std::string before = "1\r\n/a\t5\t1\t2\t77\r\n";
    c.read(before);
    c.add("/b", 8, 3);
    c.disk.write_failure_path = "/h";
    std::string error;
    EXPECT_FALSE(merge_history(c.disk, c.history, c.files, error));
    EXPECT_EQ(error, "disk full");
    EXPECT_EQ(c.disk.content_of("/h"), before);
}

}  // namespace
}  // namespace corvane
