// Names of members, as both readers decode them.
#include <gtest/gtest.h>

#include "tests/support/archive_case.h"
#include "tests/support/archive_images.h"

namespace corvane {
namespace {

// The name that a ZIP member with these bytes gets in the list.
std::string listed_name(const std::string& bytes, const std::string& extra = {}) {
    archive_case c;
    const std::vector<std::string> found =
        c.members_of("a.zip", zip_image({{.name = bytes, .crc = 0xABCDEF01, .size = 5, .extra = extra}}));
    const std::string rest = "*ABCDEF01*5";
    if (found.size() != 1 || !found[0].ends_with(rest)) return "no member";
    return found[0].substr(0, found[0].size() - rest.size());
}

TEST(MemberName, AsciiStaysAsItIs) {
    EXPECT_EQ(listed_name("dir/File (1)_~!.txt"), "dir/File (1)_~!.txt");
    EXPECT_EQ(listed_name(""), "");
}

TEST(MemberName, PairsAreCharactersOfCodePage936) {
    EXPECT_EQ(listed_name("\xD6\xD0\xCE\xC4/\xB2\xE2\xCA\xD4.txt"), "中文/测试.txt");
    EXPECT_EQ(listed_name("\xA1\xA4\xA3\xC1\xB0\xA1\xF7\xFE"), "·Ａ啊齄");
    // The second byte may be one of ASCII.
    EXPECT_EQ(listed_name("\xAA\x40\xFE\x4F"), "狜﨩");
}

TEST(MemberName, APairThatIsNoCharacterBecomesTheReplacement) {
    EXPECT_EQ(listed_name("a\xFF\xFF"
                          "b"),
              "a\uFFFD"
              "b");
    EXPECT_EQ(listed_name("a\xC4/b"),
              "a\uFFFD"
              "b");
    EXPECT_EQ(listed_name("a\xC4*b"),
              "a\uFFFD"
              "b");
    EXPECT_EQ(listed_name("a\xC4\nb"),
              "a\uFFFD"
              "b");
    EXPECT_EQ(listed_name(std::string("a\xC4\0b", 4)),
              "a\uFFFD"
              "b");
}

TEST(MemberName, BytesFrom128To160AreSingleCharacters) {
    EXPECT_EQ(listed_name("\x80"), "\u0080");
    EXPECT_EQ(listed_name("\x81\x40\xA0"
                          "a"),
              "\u0081@\u00A0a");
}

TEST(MemberName, AZeroByteEndsTheName) {
    EXPECT_EQ(listed_name(std::string("seen\0hidden", 11)), "seen");
}

TEST(MemberName, ALeadByteAtTheEndTakesTheByteBehindTheName) {
    EXPECT_EQ(listed_name("a\xD6", "\xD0--"), "a中");
}

TEST(MemberName, LineBreaksAndStarsAreMappedToCharactersOfTheirOwn) {
    EXPECT_EQ(listed_name("a*b\r\nc\td\x7F\x01"), "a\uF02Ab\uF00D\uF00Ac\uF009d\uF07F\uF001");
}

TEST(MemberName, NoPairDecodesToAMappedCharacter) {
    const std::unique_ptr<text_encoding> own_encoding = make_text_encoding();
    text_encoding& encoding = *own_encoding;
    int characters = 0;
    for (unsigned lead = 161; lead < 256; ++lead)
        for (unsigned trail = 0; trail < 256; ++trail) {
            const char32_t character =
                encoding.double_byte_936(static_cast<unsigned char>(lead), static_cast<unsigned char>(trail));
            EXPECT_GE(character, 0x80u);
            EXPECT_FALSE(character >= 0xF000 && character <= 0xF0FF);
            characters += character != 0xFFFD;
        }
    EXPECT_EQ(characters, 15'711);  // what the code page has from this lead byte on
}

TEST(MemberName, APairIsTheSameEachTimeItIsAsked) {
    const std::unique_ptr<text_encoding> own_encoding = make_text_encoding();
    text_encoding& encoding = *own_encoding;
    for (int time = 0; time < 3; ++time) {
        EXPECT_EQ(encoding.double_byte_936(0xD6, 0xD0), U'中');
        EXPECT_EQ(encoding.double_byte_936(0xD6, 0x30), 0xFFFDu);
        EXPECT_EQ(encoding.double_byte_936('a', 'b'), 0xFFFDu);
    }
}

TEST(MemberName, TheListWithMappedNamesIsReadBackAsItWas) {
    archive_case c;
    c.files.add_file("/d/a.zip",
                     zip_image({{.name = "a*b\r\nc", .crc = 1, .size = 2}, {.name = "x\ny", .crc = 3}}));
    c.search({"/d"});
    const std::vector<std::string> before = c.listed();
    ASSERT_EQ(before.size(), 3u);
    c.form.run("Command21_Click");
    EXPECT_EQ(c.listed(), before);
}

std::string listed_utf8_name(const std::string& bytes) {
    archive_case c;
    const std::vector<std::string> found =
        c.members_of("a.zip", zip_image({{.name = bytes, .crc = 0xABCDEF01, .size = 5, .flags = 0x800}}));
    const std::string rest = "*ABCDEF01*5";
    if (found.size() != 1 || !found[0].ends_with(rest)) return "no member";
    return found[0].substr(0, found[0].size() - rest.size());
}

TEST(MemberName, WithTheFlagIsUtf8) {
    EXPECT_EQ(listed_utf8_name("中文/é.txt"), "中文/é.txt");
    EXPECT_EQ(listed_utf8_name("\U0001F600"), "\U0001F600");
    EXPECT_EQ(listed_name("\xC3\xA9"), "茅") << "without it the code page";
}

TEST(MemberName, OfUtf8BreaksNoLineAndNoEntry) {
    EXPECT_EQ(listed_utf8_name("a\r\nb*c\x7F"), "a\uF00D\uF00Ab\uF02Ac\uF07F");
    EXPECT_EQ(listed_utf8_name("\uF02A"), "\uF000\uF02A") << "not that of a star";
    EXPECT_EQ(listed_utf8_name(std::string("seen\0hidden", 11)), "seen");
}

TEST(MemberName, WhatIsNoUtf8BecomesTheReplacementAndEatsNothing) {
    EXPECT_EQ(listed_utf8_name("a\xFF\nb"), "a\uFFFD\uF00Ab");
    EXPECT_EQ(listed_utf8_name("\xE4\xB8/x"), "\uFFFD\uFFFD/x");
    EXPECT_EQ(listed_utf8_name("x\xC0\xAA"), "x\uFFFD\uFFFD") << "too long a form of a star";
    EXPECT_EQ(listed_utf8_name("end\xE4"), "end\uFFFD") << "nothing behind the name is taken";
}

TEST(MemberName, AUtf8DirectoryIsKnownByItsLastSlash) {
    archive_case c;
    // Read in pairs of the code page, the last byte of the letter would take the slash with it.
    EXPECT_TRUE(c.members_of("a.zip", zip_image({{.name = "é中/", .flags = 0x800}})).empty());
}

}  // namespace
}  // namespace corvane
