#include "core/text/text_width.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(text_width, a_chinese_letter_takes_two_columns) {
    EXPECT_EQ(text_width(""), 0u);
    EXPECT_EQ(text_width("/a b.txt"), 8u);
    EXPECT_EQ(text_width("/照片/a"), 7u);
    EXPECT_EQ(text_width("（）"), 4u) << "full-width brackets";
    EXPECT_EQ(text_width("é"), 1u);
    EXPECT_EQ(text_width("e\u0301"), 1u) << "a combining accent has no column of its own";
}

TEST(text_width, a_byte_that_is_no_letter_takes_one) {
    EXPECT_EQ(text_width("a\xFF\xFE"), 3u);
    EXPECT_EQ(text_width("\xE7\x85"), 2u) << "a letter that is cut";
}

}  // namespace
}  // namespace corvane
