#include "core/text/text_case.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace corvane {
namespace {

TEST(text_case, ascii_letters_change_and_other_characters_stay) {
    for (int value = 0; value < 0x80; ++value) {
        const int expected = value >= 'a' && value <= 'z' ? value - 32 : value;
        EXPECT_EQ(upper_case(std::string(1, static_cast<char>(value))),
                  std::string(1, static_cast<char>(expected)));
        EXPECT_EQ(upper_case(static_cast<char32_t>(value)), static_cast<char32_t>(expected));
    }
    EXPECT_EQ(upper_case(""), "");
    EXPECT_EQ(upper_case("/home/user/Read Me (2).txt"), "/HOME/USER/READ ME (2).TXT");
}

TEST(text_case, latin_letters_with_marks_change) {
    EXPECT_EQ(upper_case("\u00E9"), "\u00C9");
    EXPECT_EQ(upper_case("\u00E4\u00F6\u00FC"), "\u00C4\u00D6\u00DC");
    EXPECT_EQ(upper_case("\u0101\u0142\u017E"), "\u0100\u0141\u017D");
    EXPECT_EQ(upper_case("\u00F7"), "\u00F7");
}

TEST(text_case, a_letter_may_go_far_away) {
    EXPECT_EQ(upper_case("\u00FF"), "\u0178");
    EXPECT_EQ(upper_case("\u00B5"), "\u039C");
}

TEST(text_case, the_result_may_have_another_length) {
    EXPECT_EQ(upper_case("a\u0131z"), "AIZ");
    EXPECT_EQ(upper_case("\u017F"), "S");
    EXPECT_EQ(upper_case("\u0250"), "\u2C6F");
    EXPECT_EQ(upper_case("\u2C65"), "\u023A");
}

TEST(text_case, letters_whose_upper_case_is_several_letters_stay) {
    EXPECT_EQ(upper_case("stra\u00DFe"), "STRA\u00DFE");
    EXPECT_EQ(upper_case("\u0149"), "\u0149");
    EXPECT_EQ(upper_case("\u0390"), "\u0390");
    EXPECT_EQ(upper_case("\uFB01"), "\uFB01");
}

TEST(text_case, letters_with_a_simple_and_a_longer_upper_case_take_the_simple_one) {
    EXPECT_EQ(upper_case(U'\u1F80'), U'\u1F88');
    EXPECT_EQ(upper_case(U'\u1F88'), U'\u1F88');
    EXPECT_EQ(upper_case(U'\u1FB3'), U'\u1FBC');
    EXPECT_EQ(upper_case(U'\u1FF3'), U'\u1FFC');
}

TEST(text_case, title_case_letters_become_upper_case) {
    EXPECT_EQ(upper_case("\u01C6\u01C5\u01C4"), "\u01C4\u01C4\u01C4");
}

TEST(text_case, cyrillic_and_greek_change) {
    EXPECT_EQ(upper_case("\u043F\u0440\u0438\u0432\u0435\u0442 \u0451"),
              "\u041F\u0420\u0418\u0412\u0415\u0422 \u0401");
    EXPECT_EQ(upper_case("\u03C3\u03AC\u03C2"), "\u03A3\u0386\u03A3");
}

TEST(text_case, letters_of_four_bytes_change) {
    EXPECT_EQ(upper_case("\U00010428"), "\U00010400");
    EXPECT_EQ(upper_case("\U0001E943"), "\U0001E921");
}

TEST(text_case, chinese_japanese_and_pictures_stay) {
    for (const std::string text : {"\u4E2D\u6587", "\u3042\u30AB", "\uAC00", "\U0001F600", "\U00020000"}) {
        EXPECT_EQ(upper_case(text), text);
    }
}

TEST(text_case, bytes_that_are_no_utf_8_stay) {
    EXPECT_EQ(upper_case("a\xE9z"), "A\xE9Z");
    EXPECT_EQ(upper_case("\xFF\xFE\x80x"), "\xFF\xFE\x80X");
    // Cut off, overlong, a surrogate, beyond the last character.
    EXPECT_EQ(upper_case("caf\xC3"), "CAF\xC3");
    EXPECT_EQ(upper_case("\xC3q"), "\xC3Q");
    EXPECT_EQ(upper_case("\xE2\xB1q"), "\xE2\xB1Q");
    EXPECT_EQ(upper_case("\xC1\xA1"), "\xC1\xA1");
    EXPECT_EQ(upper_case("\xE0\x81\xA1"), "\xE0\x81\xA1");
    EXPECT_EQ(upper_case("\xF0\x80\x81\xA1"), "\xF0\x80\x81\xA1");
    EXPECT_EQ(upper_case("\xED\xA0\x80"), "\xED\xA0\x80");
    EXPECT_EQ(upper_case("\xF4\x90\x80\x80"), "\xF4\x90\x80\x80");
    // A valid letter right after a broken one.
    EXPECT_EQ(upper_case("\xE2\u00E9"), "\xE2\u00C9");
}

TEST(text_case, values_that_are_no_letter_are_returned_as_they_are) {
    for (const char32_t value : {0xD800u, 0xDFFFu, 0x10FFFFu, 0x110000u, 0xFFFFFFFFu}) {
        EXPECT_EQ(upper_case(value), value);
    }
}

TEST(text_case, ascii_around_other_letters_changes_at_every_place) {
    for (std::size_t place = 0; place < 20; ++place) {
        std::string text(19, 'x');
        std::string expected(19, 'X');
        if (place < 19) {
            text.replace(place, 1, "\u00E9");
            expected.replace(place, 1, "\u00C9");
        }
        EXPECT_EQ(upper_case(text), expected);
    }
}

TEST(text_case, upper_case_is_appended_to_what_is_there) {
    std::string text = "start ";
    append_upper_case(text, "end \u00E9");
    EXPECT_EQ(text, "start END \u00C9");
}

TEST(LowerCase, FoldsLettersOfManyAlphabetsAndKeepsTheRest) {
    EXPECT_EQ(lower_case(std::string_view("ABZ[`az{ 09")), "abz[`az{ 09");
    EXPECT_EQ(lower_case(std::string_view("ÄÖÜ ПРИВЕТ ΑΣΩ ŐŰ")), "äöü привет ασω őű");
    EXPECT_EQ(lower_case(std::string_view("照片 𐐀")), "照片 𐐨");
    EXPECT_EQ(lower_case(std::string_view("A\xFF\xC3")), "a\xFF\xC3") << "bytes that are no UTF-8";
    EXPECT_EQ(lower_case(U'İ'), U'i');
    EXPECT_EQ(lower_case(U'ẞ'), U'ß');
}

TEST(LowerCase, UndoesTheUpperCaseOfEachLetterThatHasBoth) {
    int changed = 0;
    for (char32_t letter = 0; letter < 0x20000; ++letter) {
        const char32_t lower = lower_case(letter);
        if (lower == letter) continue;
        ++changed;
        EXPECT_EQ(lower_case(lower), lower) << static_cast<unsigned>(letter);
    }
    EXPECT_GT(changed, 1300);
}

}  // namespace
}  // namespace corvane
