#include "reports/result_groups.h"

#include <gtest/gtest.h>

#include "reports/stored_pairs.h"
#include "tests/reports/result_case.h"

namespace corvane {
namespace {

using lines = std::vector<std::string>;

TEST(ResultGroups, AStarIsOneGroupInAscendingOrder) {
    result_case c;
    c.keep({{5, "/d/b", "/d/c"}, {5, "/d/a", "/d/b"}, {5, "/d/b", "/d/d"}});
    EXPECT_EQ(c.groups(), lines{"5: /d/a /d/b /d/c /d/d"});
}

TEST(ResultGroups, GroupsKeepTheOrderOfTheStore) {
    result_case c;
    c.keep({{0, "/z", "/y"}, {7, "/a", "/b"}, {5, "/m", "/n"}});
    EXPECT_EQ(c.groups(), (lines{"0: /y /z", "7: /a /b", "5: /m /n"}));
}

TEST(ResultGroups, PairsOfOneGroupThatStandApartAreJoined) {
    // As the rows of a list that was sorted anew are stored.
    result_case c;
    c.keep({{5, "/a", "/b"}, {6, "/x", "/y"}, {5, "/c", "/d"}, {5, "/b", "/c"}});
    EXPECT_EQ(c.groups(), (lines{"5: /a /b /c /d", "6: /x /y"}));
}

TEST(ResultGroups, APathStandsInItsGroupOnceAndNeverAlone) {
    result_case c;
    c.keep({{5, "/a", "/a"}, {6, "/b", "/c"}, {6, "/b", "/b"}, {6, "/c", "/b"}});
    EXPECT_EQ(c.groups(), lines{"6: /b /c"});
}

TEST(ResultGroups, PairsThatNoComparisonWritesAreLeftOut) {
    result_case c;
    c.keep({{5, "/a", "/b"}, {6, "/b", "/c"}, {5, "", "/d"}, {5, " ", "/e"}, {5, "/f", ""}});
    EXPECT_EQ(c.groups(), lines{"5: /a /b"});
}

TEST(ResultGroups, TheTotalsCountAllButOneOfEachGroup) {
    result_case c;
    c.keep({{5, "/a", "/b"}, {5, "/a", "/c"}, {0, "/x", "/y"}, {3'000'000'000, "/l", "/m"}});
    const result_groups result = c.read();
    EXPECT_EQ(result.spare_count(), 4);
    EXPECT_EQ(result.spare_bytes(), 3'000'000'010);
}

TEST(ResultGroups, AMissingStoreIsAResultWithoutPairs) {
    result_case c;
    EXPECT_TRUE(c.groups().empty());
}

TEST(ResultGroups, ACutStoreGivesItsWholePairs) {
    const std::string heading = "内容相同文件清单            \r\n 2 \r\n";
    for (const char* rest : {"", " 5 \r\n", " 5 \r\n/c\r\n"}) {
        result_case c;
        c.files.add_file(result_case::store, heading + " 4 \r\n/a\r\n/b\r\n" + rest);
        EXPECT_EQ(c.groups(), lines{"4: /a /b"}) << rest;
    }
    for (const std::string& hostile : {std::string(), heading.substr(0, 5), std::string("\0\0\r\n\r\n", 6)}) {
        result_case c;
        c.files.add_file(result_case::store, hostile);
        EXPECT_TRUE(c.groups().empty());
    }
}

TEST(ResultGroups, WhatIsNotKeptIsLeftOutAndAGroupOfOneWithIt) {
    result_case c;
    c.keep({{5, "/a", "/b"}, {5, "/a", "/c"}, {6, "/x", "/y"}});
    const auto keeps = [](std::string_view path) { return path != "/a" && path != "/x"; };
    // The centre of a star has gone; the others are still equal.
    EXPECT_EQ(c.groups(read_result_groups(c.files, result_case::store, {}, keeps)), lines{"5: /b /c"});
}

TEST(ResultGroups, AGroupHasTheChecksumOfAnyOfItsPairs) {
    result_case c;
    c.keep({{5, "/a", "/b"}, {6, "/x", "/y"}, {5, "/b", "/c"}, {7, "/p", "/q"}});
    const result_groups result = read_result_groups(c.files, result_case::store, {-1, 0, 0xFFFFFFFF});
    ASSERT_EQ(result.groups.size(), 3u);
    EXPECT_EQ(result.groups[0].checksum, 0xFFFFFFFF);
    EXPECT_EQ(result.groups[1].checksum, 0);
    EXPECT_EQ(result.groups[2].checksum, -1);
}

}  // namespace
}  // namespace corvane
