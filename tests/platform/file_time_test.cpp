#include "platform/file_time.h"

#include <gtest/gtest.h>

using namespace corvane;

// 11,644,473,600 seconds of 10,000,000 units: 116,444,736,000,000,000 = 27,111,902 * 2^32 + 3,577,643,008.
TEST(FileTime, TheUnixEpochLiesThatManyUnitsAfterTheYear1601) {
    const file_time time = to_file_time(0, 0);
    EXPECT_EQ(time.high, 27'111'902);
    EXPECT_EQ(time.low, -717'324'288);  // 3,577,643,008 as a signed half
    EXPECT_EQ(to_unix_seconds(time), 0);
}

TEST(FileTime, AUnitIsAHundredNanosecondsAndAPartOfOneIsDropped) {
    EXPECT_EQ(to_file_time(0, 99).low, to_file_time(0, 0).low);
    EXPECT_EQ(to_file_time(0, 199).low, to_file_time(0, 0).low + 1);
}

// 12,644,473,600 seconds: 126,444,736,000,000,000 = 29,440,209 * 2^32 + 1,157,595,136.
TEST(FileTime, ShowsWholeSeconds) {
    const file_time time = to_file_time(1'000'000'000, 999'999'999);
    EXPECT_EQ(time.high, 29'440'209);
    EXPECT_EQ(time.low, 1'157'595'136 + 9'999'999);
    EXPECT_EQ(to_unix_seconds(time), 1'000'000'000);
    EXPECT_EQ(to_unix_seconds(to_file_time(-1, 0)), -1);
}
