#include "platform/windows/gb18030.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/code_page_files.h"
#include "platform/windows/code_points.h"

namespace corvane {
namespace {

std::string bytes_of(std::string_view text) {
    std::string bytes;
    gb18030_files().append_bytes(bytes, text);
    return bytes;
}
std::string text_of_bytes(std::string_view bytes) {
    std::string text;
    gb18030_files().append_text(text, bytes);
    return text;
}

TEST(GB18030, IsCodePage936ForWhatThatCanSay) {
    EXPECT_EQ(bytes_of("abc*\\"), "abc*\\");
    EXPECT_EQ(bytes_of("中文"), "\xD6\xD0\xCE\xC4");
    EXPECT_EQ(bytes_of("照片，㎎"), "\xD5\xD5\xC6\xAC\xA3\xAC\xA9\x4A");
    EXPECT_EQ(bytes_of("€"), "\x80");
    EXPECT_EQ(text_of_bytes("\xD6\xD0\xCE\xC4\x80"), "中文€");
}

TEST(GB18030, HasFourBytesForTheRest) {
    EXPECT_EQ(bytes_of("\u0080"), "\x81\x30\x81\x30");
    EXPECT_EQ(bytes_of("\u00E4"), "\x81\x30\x8A\x31");
    EXPECT_EQ(bytes_of("\uFFFF"), "\x84\x31\xA4\x39");
    EXPECT_EQ(bytes_of("\U00010000"), "\x90\x30\x81\x30");
    EXPECT_EQ(bytes_of("\U0001F600"), "\x94\x39\xFC\x36");
    EXPECT_EQ(bytes_of("\U0010FFFF"), "\xE3\x32\x9A\x35");
    EXPECT_EQ(text_of_bytes("\x94\x39\xFC\x36"), "\U0001F600");
}

TEST(GB18030, HasTwoBytesForWhatTheStandardAddedToThem) {
    EXPECT_EQ(bytes_of("\u2E81"), "\xFE\x50");
    EXPECT_EQ(bytes_of("\u01F9"), "\xA8\xBF");
    EXPECT_EQ(bytes_of("\uE864"), "\xFE\xA0");
    EXPECT_EQ(text_of_bytes("\xFE\x50\xA8\xBF"), "\u2E81\u01F9");
    // In the code page these codes are for users to define, and what they stand for there has four bytes.
    EXPECT_EQ(text_of_bytes(bytes_of("\uE815\uE7C8")), "\uE815\uE7C8");
    EXPECT_EQ(bytes_of("\uE815").size(), 4u);
}

TEST(GB18030, EveryCharacterComesBackAndNoneHoldsALineBreak) {
    for (char32_t point = 1; point <= 0x10FFFF; point += point < 0x20000 ? 1 : 97) {
        if (is_half(point)) continue;
        std::string text;
        append_code_point(text, point);
        const std::string bytes = bytes_of(text);
        ASSERT_EQ(text_of_bytes(bytes), text) << static_cast<unsigned>(point);
        if (point >= 0x80) {
            ASSERT_EQ(bytes.find_first_of("\r\n"), std::string::npos);
        }
    }
}

TEST(GB18030, BytesThatAreNoneAreReplacementMarks) {
    EXPECT_EQ(text_of_bytes("a\xD6"), "a\uFFFD");
    EXPECT_EQ(text_of_bytes("\xD6\x20z"), "\uFFFD z");
    EXPECT_EQ(text_of_bytes("\x81\x30\x81"),
              "\uFFFD"
              "0\uFFFD");
    EXPECT_EQ(text_of_bytes("\xFE\x39\xFE\x39"), "\uFFFD");
}

TEST(GB18030, IsTheEncodingOfAChineseSystem) {
    // The prefix in which these tests run has code page 936.
    ASSERT_EQ(GetACP(), 936u);
    std::string bytes;
    ASSERT_NE(own_data_encoding(), nullptr);
    own_data_encoding()->append_bytes(bytes, "文件清单\U0001F600");
    EXPECT_EQ(bytes, "\xCE\xC4\xBC\xFE\xC7\xE5\xB5\xA5\x94\x39\xFC\x36");
}

}  // namespace
}  // namespace corvane
