#include "core/text/text_format.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(FormatElapsed, WritesNumbersWithoutLeadingZeros) {
    EXPECT_EQ(format_elapsed(307, 1), "0:5:7");
    EXPECT_EQ(format_elapsed(307.256, 0), "0:5:7.25");
    EXPECT_EQ(format_elapsed(307, 2), "0:5");
}

TEST(FormatElapsed, DoesNotCapHours) {
    EXPECT_EQ(format_elapsed(100 * 3600 + 61, 1), "100:1:1");
}

TEST(FormatElapsed, RaisesANegativeValueByWholeDays) {
    EXPECT_EQ(format_elapsed(-1, 1), "23:59:59");
    EXPECT_EQ(format_elapsed(-86400, 1), "0:0:0");
    EXPECT_EQ(format_elapsed(-86401, 1), "23:59:59");
}

struct scaled {
    double given;
    double value;
    const char* unit;
};

TEST(ScaleSize, UsesDecimalThresholdsAndBinaryDivisors) {
    for (const scaled& expected :
         {scaled{999'999, 999'999, ""}, scaled{1'000'000, 976, " K"}, scaled{999'999'999, 976'562, " K"},
          scaled{1e9, 953, " M"}, scaled{1e12, 931, " G"}, scaled{2, 2, ""}}) {
        double bytes = expected.given;
        std::string unit = " M";
        EXPECT_EQ(scale_size(bytes, unit), expected.unit);
        EXPECT_EQ(bytes, expected.value);
        EXPECT_EQ(unit, expected.unit);
    }
}

TEST(ScaleSize, LeavesOneAndLessWithTheOldUnit) {
    double bytes = 1;
    std::string unit = " G";
    EXPECT_EQ(scale_size(bytes, unit), "");
    EXPECT_EQ(unit, " G");
    EXPECT_EQ(bytes, 1);
}

TEST(GroupDigits, GroupsByThreeAndPrintsNothingForZero) {
    EXPECT_EQ(group_digits(0), "");
    EXPECT_EQ(group_digits(999), "999");
    EXPECT_EQ(group_digits(1000), "1,000");
    EXPECT_EQ(group_digits(1234567890), "1,234,567,890");
    EXPECT_EQ(group_digits(-1234), "-1,234");
}

TEST(SplitText, KeepsTheEmptyPartBehindTheLastDelimiter) {
    std::vector<std::string> parts;
    EXPECT_EQ(split_text("a,b,", ",", parts), 3);
    EXPECT_EQ(parts, (std::vector<std::string>{"", "a", "b", ""}));
    EXPECT_EQ(split_text("", ",", parts), 0);
    EXPECT_EQ(split_text("abc", ",", parts), 1);
}

TEST(NumberLine, CarriesALeadingAndATrailingBlank) {
    EXPECT_EQ(number_line(0), " 0 ");
    EXPECT_EQ(number_line(1024), " 1024 ");
    EXPECT_EQ(number_line(-5), "-5 ");
    EXPECT_EQ(number_line(4'000'000'000), " 4000000000 ");
}

TEST(ParseNumber, TakesTheLeadingNumberOrZero) {
    EXPECT_EQ(parse_number(" 52311 "), 52311);
    EXPECT_EQ(parse_number("letters"), 0);
    EXPECT_EQ(parse_number("12abc"), 12);
    EXPECT_EQ(parse_number(""), 0);
    EXPECT_EQ(parse_number("-7"), -7);
    EXPECT_EQ(parse_number("99999999999999999999"), INT64_MAX);
    EXPECT_EQ(parse_decimal(" 2.5,"), 2.5);
    EXPECT_EQ(parse_decimal("inf"), 0);
}

TEST(IsBlank, HoldsForWhatDoesNotCompareAboveOneBlank) {
    EXPECT_TRUE(is_blank(""));
    EXPECT_TRUE(is_blank(" "));
    EXPECT_FALSE(is_blank("  "));
    EXPECT_FALSE(is_blank("a"));
    EXPECT_TRUE(is_blank("\x01"));
}

}  // namespace
}  // namespace corvane
