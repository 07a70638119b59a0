// What tells the groups apart for the eye, and how it is taken over in parts.
#include "browser/group_bands.h"

#include <gtest/gtest.h>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

// Three groups: 2 x 10, 3 x 7 and 2 x 20 bytes.
struct three_groups : deleting {
    three_groups() { show_files({{10, "/a", "/a2"}, {7, "/b", "/b2"}, {7, "/b", "/b3"}, {20, "/c", "/c2"}}); }
};

// Calls until all is taken over; how many it took.
int taken_in_parts(group_bands& bands, const Tavrel& form, std::int64_t most) {
    int calls = 1;
    while (bands.renew(form, most) == walk_progress::on_its_way) ++calls;
    return calls;
}

TEST(GroupBands, RowsOfAStarShareABandAndTheFirstSaysItsSize) {
    three_groups p;
    group_bands bands;
    EXPECT_EQ(bands.renew(p.form), walk_progress::renewed);
    EXPECT_EQ(bands.renew(p.form), walk_progress::unchanged) << "nothing has changed";
    std::vector<bool> second;
    for (std::int32_t row = 1; row <= 4; ++row) second.push_back(bands.is_second(row));
    EXPECT_EQ(second, (std::vector<bool>{false, true, true, false}));
    EXPECT_EQ(bands.first_row(1).copies, 2);
    EXPECT_EQ(bands.first_row(2).copies, 3);
    EXPECT_EQ(bands.first_row(2).freed, 14);
    EXPECT_EQ(bands.first_row(3).copies, 0);
    EXPECT_EQ(bands.first_row(99).copies, 0);
    p.form.run("sort_by_freed");
    EXPECT_EQ(bands.renew(p.form), walk_progress::renewed);
    EXPECT_EQ(bands.first_row(1).freed, 20);
    EXPECT_EQ(bands.first_row(2).copies, 3);
    p.double_click(1, 4);
    EXPECT_EQ(bands.renew(p.form), walk_progress::unchanged) << "a mark moves no band";
}

TEST(GroupBands, ForgetWhatHasGone) {
    three_groups p;
    group_bands bands;
    bands.renew(p.form);
    p.double_click(3, 4);
    p.run_recycle();
    EXPECT_EQ(bands.renew(p.form), walk_progress::renewed);
    EXPECT_EQ(bands.first_row(2).copies, 2) << "/b3 is gone";
    p.form.run("Picture6_Click");  // another list, or none
    p.state.list_mode = 1;
    p.list().clear_rows();
    bands.renew(p.form);
    EXPECT_EQ(bands.first_row(1).copies, 0);
    EXPECT_TRUE(bands.is_second(2));
}

TEST(GroupBands, TakenRowByRowAreThoseThatAreTakenAtOnce) {
    three_groups p;
    group_bands parts;
    EXPECT_GT(taken_in_parts(parts, p.form, 1), 8) << "four rows are looked at three times";
    p.form.run("sort_by_freed");
    for (const int most : {1, 2, 3, 5, 100}) {
        group_bands whole;
        whole.renew(p.form);
        taken_in_parts(parts, p.form, most);
        for (std::int32_t row = 1; row <= 5; ++row) {
            EXPECT_EQ(parts.is_second(row), whole.is_second(row)) << most << " a call, row " << row;
            EXPECT_EQ(parts.first_row(row).copies, whole.first_row(row).copies);
            EXPECT_EQ(parts.first_row(row).freed, whole.first_row(row).freed);
        }
        EXPECT_EQ(parts.group_count(), 3);
        p.header(2);  // another order for the next turn
    }
}

TEST(GroupBands, RowsThatHaveMovedHaveNoGroupUntilAllAreTaken) {
    three_groups p;
    group_bands bands;
    bands.renew(p.form);
    ASSERT_EQ(bands.first_row(1).copies, 2);
    p.form.run("sort_by_freed");  // /c, /b, /b, /a
    ASSERT_EQ(bands.renew(p.form, 3), walk_progress::on_its_way);
    for (std::int32_t row = 1; row <= 4; ++row) EXPECT_EQ(bands.first_row(row).copies, 0) << row;
    EXPECT_FALSE(bands.is_second(1));
    EXPECT_TRUE(bands.is_second(2)) << "every second row meanwhile";
    EXPECT_EQ(bands.renew(p.form), walk_progress::renewed);
    EXPECT_EQ(bands.first_row(1).freed, 20);
    EXPECT_EQ(bands.first_row(2).copies, 3);
}

TEST(GroupBands, WhatStandsHoldsWhileAMarkIsTakenOver) {
    three_groups p;
    group_bands bands;
    bands.renew(p.form);
    p.double_click(1, 4);
    ASSERT_EQ(bands.renew(p.form, 1), walk_progress::on_its_way);
    EXPECT_EQ(bands.first_row(2).copies, 3);
    EXPECT_TRUE(bands.is_second(2));
    EXPECT_EQ(bands.renew(p.form), walk_progress::unchanged);
}

TEST(GroupBands, BeginAnewWhereTheListChangesOnTheWay) {
    three_groups p;
    group_bands bands;
    for (int part = 0; part < 6; ++part) ASSERT_EQ(bands.renew(p.form, 1), walk_progress::on_its_way);
    p.show_files({{5, "/n", "/n2"}, {5, "/n", "/n3"}, {5, "/n", "/n4"}});
    taken_in_parts(bands, p.form, 1);
    EXPECT_EQ(bands.first_row(1).copies, 4);
    EXPECT_EQ(bands.first_row(2).copies, 0);
    EXPECT_EQ(bands.group_count(), 1);
}

TEST(GroupBands, LookAtNoRowOfAResultThatHasGoneMeanwhile) {
    three_groups p;
    group_bands bands;
    // Four calls for the list, two for pairs of the result: the next one would look at the third pair.
    for (int part = 0; part < 6; ++part) ASSERT_EQ(bands.renew(p.form, 1), walk_progress::on_its_way);
    // Their texts with them, as far as no row holds these.
    p.state.result_file1.clear();
    p.state.result_file2.clear();
    taken_in_parts(bands, p.form, 1);
    EXPECT_EQ(bands.first_row(2).copies, 3) << "by the rows themselves";
}

TEST(GroupBands, WhatIsGivenUpIsCountedAnew) {
    three_groups p;
    group_bands bands;
    for (int part = 0; part < 7; ++part) ASSERT_EQ(bands.renew(p.form, 1), walk_progress::on_its_way);
    // A task, after which the list stands as it stood.
    p.state.result_file2.set(2, "");
    bands.give_up(p.list());
    bands.renew(p.form);
    EXPECT_EQ(bands.first_row(2).copies, 2) << "a pair of /b has gone";
}

TEST(GroupBands, RowsThatATaskHasMovedHaveNoGroup) {
    three_groups p;
    group_bands bands;
    bands.renew(p.form);
    p.form.run("sort_by_freed");  // /c, /b, /b, /a
    bands.give_up(p.list());
    for (std::int32_t row = 1; row <= 4; ++row) EXPECT_EQ(bands.first_row(row).copies, 0) << row;
    p.double_click(1, 4);
    bands.give_up(p.list());
    bands.renew(p.form);
    bands.give_up(p.list());
    EXPECT_EQ(bands.first_row(2).copies, 3);
}

}  // namespace
}  // namespace corvane
