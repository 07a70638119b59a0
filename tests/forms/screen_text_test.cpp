// Program text on the screen.
#include <gtest/gtest.h>

#include "forms/screen_text.h"

namespace corvane {
namespace {

TEST(screen_text, bytes_that_are_no_utf8_become_marks) {
    EXPECT_EQ(screen_text("a\xFF"), QStringLiteral(u"a\uFFFD"));
    EXPECT_EQ(screen_text("照片"), QStringLiteral("照片"));
}

TEST(screen_text, mapped_characters_become_visible_ones) {
    EXPECT_EQ(screen_text("a\xEF\x80\xAA"
                          "b"),
              QStringLiteral("a*b"));  // U+F02A
    EXPECT_EQ(screen_text("a\xEF\x80\x8A"
                          "b"),
              QStringLiteral(u"a\u240Ab"));  // U+F00A
    EXPECT_EQ(screen_text("a\xEF\x81\xBF"
                          "b"),
              QStringLiteral(u"a\u2421b"));  // U+F07F
}

TEST(screen_text, one_line_has_no_line_ends) {
    EXPECT_EQ(screen_line("a\r\nb\tc"), QStringLiteral("a  b c"));
}

}  // namespace
}  // namespace corvane
