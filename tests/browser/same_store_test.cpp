#include "browser/same_store.h"

#include <gtest/gtest.h>

#include "tests/browser/stored_rows.h"

namespace corvane {
namespace {

TEST(RewriteStore, LeavesOutRowsWithABlankCellAndKeepsTheCount) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{10, "/a", "/b"}, {20, "/c", "/d"}, {30, "/e", "/f"}});
    p.form.run("Picture4_Click");
    p.form.ListView1.set_text(2, 4, "");
    p.form.ListView1.set_text(3, 3, " ");
    EXPECT_TRUE(rewrite_store(p.form));
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"),
              "内容相同文件清单            \r\n 3 \r\n10\r\n/a\r\n/b\r\n");
}

TEST(RewriteStore, ReloadingNumbersAnewAndLosesMarks) {
    test_program p;
    for (const char* path : {"/a", "/b", "/c", "/d"}) p.files.add_file(path, "x");
    store(p, {{1, "/a", "/b"}, {1, "/c", "/d"}});
    p.form.run("Picture4_Click");
    p.form.ListView1.set_text(1, 4, "");
    p.form.ListView1.set_colour(2, 4, cell_colour::mark_red);
    rewrite_store(p.form);
    p.form.run("result_refresh");
    ASSERT_EQ(p.form.ListView1.row_count(), 1);
    EXPECT_EQ(p.form.ListView1.cell(1, 1), "1");
    EXPECT_EQ(p.form.ListView1.cell(1, 3), "/c");
    EXPECT_EQ(p.form.ListView1.colour(1, 4), cell_colour::colour_text);
}

TEST(RewriteStore, AFullDiskLeavesTheOldStore) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{10, "/a", "/b"}});
    const std::string before = p.files.content_of("/prog/相同文件.txt");
    p.form.run("Picture4_Click");
    p.files.write_failure_path = "/prog/相同文件.txt";
    EXPECT_FALSE(rewrite_store(p.form));
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"), before);
}

TEST(RewriteStore, KeepsThePairsThatAFilterHides) {
    test_program p;
    for (const char* path : {"/a.x", "/b.y", "/c.y", "/d.y", "/e.x", "/f.x"}) p.files.add_file(path, "1");
    store(p, {{10, "/a.x", "/b.y"}, {20, "/c.y", "/d.y"}, {30, "/e.x", "/f.x"}});
    p.form.run("Picture4_Click");
    p.screen.texts = {"x"};
    p.form.run("only_disp");
    ASSERT_EQ(p.form.ListView1.row_count(), 2);
    p.form.ListView1.set_text(1, 4, "");
    p.state.same_count = 2;
    EXPECT_TRUE(rewrite_store(p.form));
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"),
              "内容相同文件清单            \r\n 2 \r\n30\r\n/e.x\r\n/f.x\r\n20\r\n/c.y\r\n/d.y\r\n");
    p.form.run("result_refresh");
    EXPECT_EQ(p.form.ListView1.row_count(), 2);
    EXPECT_EQ(p.form.ListView1.cell(1, 3), "/c.y");
}

TEST(RewriteStore, WhatHasGoneStaysOutAlsoWhenAnotherFilterHidesIt) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{10, "/z.zip*a", "/b.y"}, {20, "/c.y", "/d.y"}});
    p.form.run("Picture4_Click");
    p.form.ListView1.set_text(2, 3, "");  // the member: "/z" stands behind "/c"
    EXPECT_TRUE(rewrite_store(p.form));
    p.state.same_count = 2;
    p.screen.texts = {"none"};
    p.form.run("only_disp");
    ASSERT_EQ(p.form.ListView1.row_count(), 0);
    EXPECT_TRUE(rewrite_store(p.form));
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"),
              "内容相同文件清单            \r\n 2 \r\n20\r\n/c.y\r\n/d.y\r\n");
}

TEST(RewriteStore, OfAnotherViewWritesNothing) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{10, "/a", "/b"}});
    const std::string before = p.files.content_of("/prog/相同文件.txt");
    p.form.run("Picture4_Click");
    p.state.list_mode = 2;
    EXPECT_TRUE(rewrite_store(p.form));
    EXPECT_EQ(p.files.content_of("/prog/相同文件.txt"), before);
}

}  // namespace
}  // namespace corvane
