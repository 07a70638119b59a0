// The column that is counted from 1, and the flag that prints -1 and 0.
#include "core/text/column.h"

#include <gtest/gtest.h>

#include "core/text/flag.h"

namespace corvane {
namespace {

TEST(Column, IsCountedFromOne) {
    column<int> values;
    EXPECT_TRUE(values.empty());
    values.push_back(7);
    values.push_back(8);
    EXPECT_EQ(values.size(), 2);
    EXPECT_EQ(values[1], 7);
    EXPECT_EQ(values[2], 8);
    EXPECT_TRUE(values.has(1));
    EXPECT_TRUE(values.has(2));
    EXPECT_FALSE(values.has(0));
    EXPECT_FALSE(values.has(3));
}

TEST(Column, NewEntriesAreEmptyValues) {
    column<int> values{1};
    values.resize(3);
    EXPECT_EQ(values, (column<int>{1, 0, 0}));
    values.assign(2, 9);
    EXPECT_EQ(values, (column<int>{9, 9}));
}

TEST(Column, ARangeTakesBothItsEnds) {
    column<int> values{1, 2, 3, 4};
    const std::span<int> middle = values.range(2, 3);
    ASSERT_EQ(middle.size(), 2u);
    middle[0] = 20;
    middle[1] = 30;
    EXPECT_EQ(values, (column<int>{1, 20, 30, 4}));
    EXPECT_TRUE(values.range(1, 0).empty());
}

#ifndef NDEBUG
TEST(ColumnDeathTest, AnIndexOutsideEndsADebugBuild) {
    column<int> values{1};
    EXPECT_DEATH(values[0], "has");
    EXPECT_DEATH(values[2], "has");
}
#endif

TEST(Flag, AnyNumberButZeroIsMinusOne) {
    EXPECT_EQ(flag(), 0);
    EXPECT_EQ(flag(true), -1);
    EXPECT_EQ(flag(1), -1);
    EXPECT_EQ(flag(-1), -1);
    EXPECT_EQ(flag(0), 0);
    flag raised = 5;
    EXPECT_TRUE(raised);
    raised = false;
    EXPECT_FALSE(raised);
}

}  // namespace
}  // namespace corvane
