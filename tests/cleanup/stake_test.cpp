// What the marks would touch, counted at once and in parts.
#include "cleanup/stake.h"

#include <gtest/gtest.h>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

struct marked_pairs : deleting {
    marked_pairs() {
        show_files({{10, "/a", "/a2"}, {7, "/b", "/b2"}, {7, "/b", "/z.zip*m"}, {20, "/c", "/c2"}});
        mark(1, 4);
        mark(2, 3);
        mark(3, 3);  // the same file
        mark(3, 4);
        list().set_colour(4, 4, cell_colour::mark_blue);
    }
};

TEST(StakeCount, CountsAPathOnceAndBlueOnesWhereTheyGo) {
    marked_pairs p;
    const deletion_stake red = stake_of(p.form);
    EXPECT_EQ(red.files, 3) << "/a2, /b, /z.zip*m";
    EXPECT_EQ(red.entries, 1);
    EXPECT_EQ(red.bytes, 24);
    p.state.force_protected = -1;
    const deletion_stake with_blue = stake_of(p.form);
    EXPECT_EQ(with_blue.files, 4);
    EXPECT_EQ(with_blue.bytes, 44);
}

TEST(StakeCount, RowByRowItIsTheSame) {
    marked_pairs p;
    stake_count count;
    EXPECT_FALSE(count.go_on(p.form, 1));
    EXPECT_FALSE(count.go_on(p.form, 2));
    EXPECT_TRUE(count.go_on(p.form, 1));
    EXPECT_EQ(count.stake().files, 3);
    EXPECT_EQ(count.stake().bytes, 24);
    EXPECT_TRUE(count.go_on(p.form, 1)) << "nothing has changed";
    EXPECT_EQ(count.stake().files, 3);
}

TEST(StakeCount, BeginsAnewWithOtherMarksRowsOrRules) {
    marked_pairs p;
    stake_count count;
    count.go_on(p.form, 2);
    p.double_click(1, 4);  // its mark goes, in a row that was counted
    while (!count.go_on(p.form, 1)) {
    }
    EXPECT_EQ(count.stake().files, 2);
    EXPECT_EQ(count.stake().bytes, 14);
    p.state.force_protected = -1;
    EXPECT_FALSE(count.go_on(p.form, 1));
    while (!count.go_on(p.form, 1)) {
    }
    EXPECT_EQ(count.stake().files, 3);
    count.go_on(p.form, 2);
    p.show_files({{5, "/n", "/n2"}});
    p.state.force_protected = 0;
    EXPECT_TRUE(count.go_on(p.form, 1));
    EXPECT_EQ(count.stake().files, 0);
}

}  // namespace
}  // namespace corvane
