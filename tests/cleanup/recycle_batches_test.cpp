// What comes at the yields of a deletion to the bin, and where its batches end.
#include "cleanup/recycle_batches.h"

#include <gtest/gtest.h>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

TEST(RecycleBatches, TheThousandthPathClosesABatch) {
    for (const int count : {999, 1000, 1001, 2000}) {
        deleting p;
        std::vector<list_program::pair> pairs;
        for (int i = 0; i < count; ++i) {
            const std::string number = std::to_string(10'000 + i);
            pairs.push_back({1, "/d/" + number, "/e/" + number});
        }
        p.show_files(pairs);
        for (int row = 1; row <= count; ++row) p.mark(row, 4);
        texts panel;
        p.screen.on_yield = [&] {
            const bool is_scanned = p.list().cell(count, 4).empty();
            if (is_scanned && p.recycled.size() == 1000 * panel.size() &&
                p.recycled.size() < static_cast<std::size_t>(count))
                panel.push_back(p.form.StatusBar1.panel(5));
        };
        p.run_recycle();
        EXPECT_EQ(p.recycled.size(), static_cast<std::size_t>(count));
        // A yield before each path; at the first one of a batch the panel shows the batch before it.
        const std::size_t batches = static_cast<std::size_t>((count + 999) / 1000);
        ASSERT_EQ(panel.size(), batches) << count;
        if (batches == 2) {
            EXPECT_EQ(panel[1], "已删除:1000");
        }
        EXPECT_EQ(p.recycled.front(), "/e/10000");
        EXPECT_EQ(p.recycled.back(), "/e/" + std::to_string(10'000 + count - 1)) << "in scan order";
    }
}

TEST(RecycleBatches, ClosingTheProgramEndsTheRunBeforeABatch) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}, {1, "/d/b", "/e/b"}});
    p.mark(1, 4);
    p.screen.acts[p.screen.yields + 2] = [&] { p.form.run("exit_sub"); };
    p.run_recycle();
    EXPECT_TRUE(p.recycled.empty());
    EXPECT_TRUE(p.files.has("/e/a"));
}

TEST(RecycleBatches, EventsRunBeforeEachPathOfABatch) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}, {1, "/d/b", "/e/b"}, {1, "/d/c", "/e/c"}});
    for (int row = 1; row <= 3; ++row) p.mark(row, 4);
    std::vector<std::size_t> gone;
    const std::int64_t after_scan = p.screen.yields + 3;
    for (int path = 1; path <= 3; ++path)
        p.screen.acts[after_scan + path] = [&] {
            gone.push_back(p.recycled.size());
            EXPECT_TRUE(p.state.tasks_locked);
        };
    p.run_recycle();
    EXPECT_EQ(gone, (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(p.recycled, (texts{"/e/a", "/e/b", "/e/c"}));
}

TEST(RecycleBatches, AMarkThatComesWhileTheGroupsOfALongListAreMadeIsTakenAndProven) {
    deleting p;
    std::vector<list_program::pair> pairs;
    for (int i = 0; i < 1500; ++i)
        pairs.push_back({1, "/d/" + std::to_string(10'000 + i), "/e/" + std::to_string(10'000 + i)});
    p.show_files(pairs);
    p.mark(1, 4);
    // The first yield is that of the thousandth row: the groups know it, its mark they do not.
    p.screen.acts[p.screen.yields + 1] = [&] {
        p.mark(2, 4);
        p.mark(3, 3);
        p.files.erase("/e/10002");  // row 3 loses the copy of what is marked
        p.header(2);
        p.form.run("Picture4_Click");
    };
    p.run_recycle();
    EXPECT_EQ(p.recycled, (texts{"/e/10000", "/e/10001"}));
    EXPECT_TRUE(p.files.has("/d/10002"));
    EXPECT_NE(p.last_message().find("保留 1 个文件: 最后一份 1 个"), std::string::npos) << p.last_message();
}

TEST(RecycleBatches, WhatABatchHasNotTakenYetIsProvenAfterEachEvent) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}, {2, "/d/b", "/e/b"}, {3, "/d/c", "/e/c"}, {4, "/d/d", "/e/d"}});
    for (int row = 1; row <= 4; ++row) p.mark(row, 4);
    // Before the second path: its copy goes, the third is written anew, the fourth goes by itself.
    p.screen.acts[p.screen.yields + 4 + 2] = [&] {
        p.files.erase("/d/b");
        p.files.add_file("/e/c", "now").date_low += 1;
        p.files.erase("/e/d");
    };
    p.run_recycle();
    EXPECT_EQ(p.recycled, texts{"/e/a"});
    EXPECT_EQ(p.cells(4), (texts{"", "/e/b", "/e/c", ""}));
    EXPECT_EQ(p.list().colour(2, 4), mark_red);
    EXPECT_EQ(p.list().colour(3, 4), mark_red);
    EXPECT_TRUE(p.last_message().starts_with("放入回收站:1 个文件\r\n 释放空间: 1\r\n保留 2 个文件:"))
        << p.last_message();
}

TEST(RecycleBatches, ClosingTheProgramEndsTheRunWithinABatch) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}, {1, "/d/b", "/e/b"}});
    p.mark(1, 4);
    p.mark(2, 4);
    p.screen.acts[p.screen.yields + 2 + 2] = [&] { p.form.run("exit_sub"); };
    p.run_recycle();
    EXPECT_EQ(p.recycled, texts{"/e/a"});
    EXPECT_TRUE(p.files.has("/e/b"));
    EXPECT_EQ(p.screen.messages.size(), 1u) << "the question alone";
}

TEST(RecycleBatches, ActsWithinABatchLeaveTheRowsAlone) {
    deleting p;
    p.show_files({{1, "/d/a", "/e/a"}, {2, "/d/b", "/e/b"}, {3, "/d/c", "/e/c"}});
    p.mark(1, 4);
    p.mark(2, 4);
    p.screen.acts[p.screen.yields + 3 + 2] = [&] {
        p.header(2);
        p.header(2);
        p.form.run("Picture4_Click");
        p.form.run("Picture5_Click");
        p.form.run("result_refresh");
        p.form.run("only_disp");
        // A mark that comes now is for the next run.
        p.mark(3, 4);
    };
    p.run_recycle();
    EXPECT_EQ(p.recycled, (texts{"/e/a", "/e/b"}));
    EXPECT_EQ(p.cells(3), (texts{"/d/a", "/d/b", "/d/c"}));
    EXPECT_EQ(p.cells(4), (texts{"", "", "/e/c"}));
    EXPECT_TRUE(p.files.has("/e/c"));
    EXPECT_EQ(p.stored_lines("相同文件.txt"),
              (texts{"内容相同文件清单            ", " 1 ", "3", "/d/c", "/e/c"}));
}

TEST(RecycleBatches, TheStoreIsTheOldOneUntilTheNewOneIsWhole) {
    deleting p;
    std::vector<list_program::pair> pairs;
    for (int i = 0; i < 250; ++i)
        pairs.push_back({1, "/d/" + std::to_string(1000 + i), "/e/" + std::to_string(1000 + i)});
    p.show_files(pairs);
    p.mark(1, 4);
    // 250 rows, one path; then the store: every 101st row, the same over the pairs that a filter hides, and
    // while the disk takes it in.
    std::vector<std::size_t> stored;
    const std::int64_t before_store = p.screen.yields + 250 + 1;
    for (int yield = 1; yield <= 5; ++yield)
        p.screen.acts[before_store + yield] = [&, yield] {
            stored.push_back(p.stored_pairs().size());
            // The program closes: what has gone must be out of the store all the same.
            if (yield == 2) p.form.run("exit_sub");
        };
    p.run_recycle();
    EXPECT_EQ(stored, (std::vector<std::size_t>(5, 250)));
    EXPECT_EQ(p.stored_pairs().size(), 249u);
}

}  // namespace
}  // namespace corvane
