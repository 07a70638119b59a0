// What earlier readings told of the contents of a group's files.
#include "core/state/known_contents.h"

#include <gtest/gtest.h>

#include "tests/compare/group_case.h"

namespace corvane {
namespace {

// Four files of one content. `numbers` are what earlier readings told, `firsts` where those began.
struct contents_case : group_case {
    contents_case(column<std::int32_t> numbers, std::vector<std::int32_t> firsts, std::int32_t next) {
        for (const char* path : {"/a", "/b", "/c", "/d"}) add(path, "equal");
        list({"/a", "/b", "/c", "/d"});
        for (std::int32_t i = 1; i <= 4; ++i) files.file_crc[i] = 7;
        files.contents_known.numbers = std::move(numbers);
        files.contents_known.firsts = std::move(firsts);
        files.contents_known.next = next;
    }
};

TEST(KnownContents, WhatOneReadingToldIsNotReadAgain) {
    // The middle of three readings; by it, and not by the disk, one of them is another.
    contents_case c({2, 2, 3, 2}, {1, 2, 4}, 5);
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    EXPECT_EQ(group.same(1, 2), sameness::as_before);
    EXPECT_EQ(group.same(1, 3), sameness::different);
    EXPECT_EQ(group.same(1, 4), sameness::as_before);
    EXPECT_EQ(group.readings(), 0);
    EXPECT_TRUE(c.disk.opened.empty());
    EXPECT_EQ(c.files.contents_known.next, 5);
}

TEST(KnownContents, TwoReadingsTellNothingOfEachOther) {
    for (const column<std::int32_t>& numbers :
         {column<std::int32_t>{1, 1, 2, 2}, {1, 1, 1, 0}, {0, 1, 1, 1}, {2, 2, 1, 2}}) {
        contents_case c(numbers, {1, 2}, 3);
        file_group group = c.make();
        ASSERT_TRUE(group.open(1));
        for (const std::int32_t j : {2, 3, 4}) EXPECT_EQ(group.same(1, j), sameness::by_bytes);
        // All of them are of one new reading.
        EXPECT_EQ(c.files.contents_known.numbers, (column<std::int32_t>{3, 3, 3, 3}));
        EXPECT_EQ(c.files.contents_known.firsts, (std::vector<std::int32_t>{1, 2, 3}));
        EXPECT_EQ(c.files.contents_known.next, 4);
    }
}

TEST(KnownContents, NumbersMoveWithTheirFiles) {
    contents_case c({1, 2, 3, 4}, {1}, 5);
    // Ordered as texts: "10", "2", "7", "9".
    c.files.file_crc = {9, 7, 2, 10};
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    ASSERT_EQ(c.files.file_list[1], "/d");
    EXPECT_EQ(c.files.contents_known.numbers, (column<std::int32_t>{4, 3, 2, 1}));
}

TEST(KnownContents, NothingIsKeptWhereNumbersAreNotWanted) {
    contents_case c({}, {}, 1);
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    EXPECT_EQ(group.same(1, 2), sameness::by_bytes);
    EXPECT_TRUE(c.files.contents_known.firsts.empty());
}

}  // namespace
}  // namespace corvane
