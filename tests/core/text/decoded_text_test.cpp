// Texts of files whose encoding nobody has stated.
#include "core/text/decoded_text.h"

#include <gtest/gtest.h>

#include "platform/machine.h"

namespace corvane {
namespace {
using namespace std::string_view_literals;

struct decoding {
    decoded_text of(std::string_view head, bool cut = false) { return decode_text(head, cut, encodings); }
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
};

TEST(DecodedText, PlainLettersAndValidUtf8AreTold) {
    decoding d;
    EXPECT_STREQ(d.of("plain\ttext\r\n").encoding, "ASCII");
    EXPECT_EQ(d.of("plain\ttext\r\n").utf8, "plain\ttext\r\n");
    EXPECT_STREQ(d.of("照片").encoding, "UTF-8");
    EXPECT_STREQ(d.of("\xEF\xBB\xBF照片").encoding, "UTF-8 BOM");
    EXPECT_EQ(d.of("\xEF\xBB\xBF照片").utf8, "照片") << "the mark is no letter";
    EXPECT_TRUE(d.of("").is_text);
}

TEST(DecodedText, ALetterThatTheHeadBreaksOffIsLeftOut) {
    decoding d;
    const std::string text = "照片";
    for (std::size_t length = 4; length < 6; ++length) {
        EXPECT_STREQ(d.of(text.substr(0, length), true).encoding, "UTF-8") << length;
        EXPECT_EQ(d.of(text.substr(0, length), true).utf8, "照") << length;
    }
    // At the real end of a file such a letter is damage, and the bytes are no UTF-8.
    EXPECT_STRNE(d.of(text.substr(0, 4), false).encoding, "UTF-8");
}

TEST(DecodedText, MarksTellWideUnitsInBothOrders) {
    decoding d;
    EXPECT_EQ(d.of("\xFF\xFE"
                   "a\0\x67\x71"sv)
                  .utf8,
              "a\u7167");
    EXPECT_STREQ(d.of("\xFF\xFE"
                      "a\0"sv)
                     .encoding,
                 "UTF-16LE");
    EXPECT_EQ(d.of("\xFE\xFF\0a\x71\x67"sv).utf8, "a\u7167");
    EXPECT_EQ(d.of("\xFE\xFF\xD8\x3D\xDE\x00"sv).utf8, "\U0001F600") << "a letter of two units";
    EXPECT_EQ(d.of("\xFE\xFF\xD8\x3D\0a"sv).utf8,
              "\uFFFD"
              "a")
        << "its first half alone";
    EXPECT_EQ(d.of("\xFE\xFF\xDE\x00\0a"sv).utf8,
              "\uFFFD"
              "a")
        << "its second half alone";
    EXPECT_EQ(d.of("\xFF\xFE\0\0a\0\0\0"sv).utf8, "a");
    EXPECT_STREQ(d.of("\xFF\xFE\0\0a\0\0\0"sv).encoding, "UTF-32LE");
    EXPECT_EQ(d.of("\0\0\xFE\xFF\0\0\0a\0\x11\0\0"sv).utf8, "a\uFFFD") << "beyond the last letter";
    EXPECT_EQ(d.of("\xFF\xFE"
                   "a\0b"sv)
                  .utf8,
              "a")
        << "half a unit at the end";
}

TEST(DecodedText, OtherBytesAreChineseOfTheCodePage) {
    decoding d;
    // 照片 in code page 936.
    const decoded_text found = d.of("\xD5\xD5\xC6\xAC.jpg\n");
    EXPECT_TRUE(found.is_text);
    EXPECT_STREQ(found.encoding, "GB18030");
    EXPECT_EQ(found.utf8, "照片.jpg\n");
    EXPECT_EQ(d.of("\xD5\xD5\xC6", true).utf8, "照") << "broken off by the head";
    // U+20000 has four bytes there.
    EXPECT_EQ(d.of("\xD5\xD5\x95\x32\x82\x36").utf8, "照\U00020000");
}

TEST(DecodedText, BinaryBytesAreNoText) {
    decoding d;
    EXPECT_FALSE(d.of("\x7F"
                      "ELF\2\1\1\0"sv)
                     .is_text);
    EXPECT_FALSE(d.of("text with a zero\0"sv).is_text);
    std::string random;
    std::uint32_t state = 1;
    for (int i = 0; i < 4000; ++i) {
        state = state * 1664525 + 1013904223;
        random += static_cast<char>(0x80 | (state >> 24));
    }
    EXPECT_FALSE(d.of(random).is_text);
}

TEST(DecodedText, OnlyTheFirstLinesAndLettersAreTaken) {
    bool shortened = false;
    EXPECT_EQ(first_lines("a\r\nb\rc\n", 10, 10, shortened), "a\nb\nc\n");
    EXPECT_FALSE(shortened);
    EXPECT_EQ(first_lines("a\nb\nc", 2, 10, shortened), "a\nb");
    EXPECT_TRUE(shortened);
    shortened = false;
    EXPECT_EQ(first_lines("照片照片", 10, 3, shortened), "照片照");
    EXPECT_TRUE(shortened);
    shortened = false;
    EXPECT_EQ(first_lines("a\n", 1, 10, shortened), "a");
    EXPECT_FALSE(shortened) << "a closing line end is nothing that is left out";
    EXPECT_EQ(first_lines("a\x1B[2Jb\t", 1, 10, shortened), "a\x1B[2Jb\t");
}

TEST(DecodedText, BytesStandInLinesOfSixteen) {
    EXPECT_EQ(hex_lines("AB\x00\xFF"sv), "00000000  41 42 00 FF " + std::string(3 * 12 + 1, ' ') + " AB..\n");
    const std::string two = hex_lines(std::string(17, 'x'));
    EXPECT_EQ(two.substr(0, 10), "00000000  ");
    EXPECT_NE(two.find("\n00000010  78 "), std::string::npos);
    EXPECT_EQ(hex_lines(""), "");
}

}  // namespace
}  // namespace corvane
