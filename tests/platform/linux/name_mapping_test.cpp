#include "platform/name_mapping.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <unordered_map>

namespace corvane {
namespace {

// Bytes that meet the mapping at every turn, with some ordinary ones between them.
std::string random_raw(std::mt19937& random) {
    const std::size_t length = random() % 14;
    std::string raw;
    while (raw.size() < length) {
        const auto draw = random() % 16;
        if (draw < 4) {
            raw += '\xEF';
        } else if (draw < 8) {
            raw += static_cast<char>(0x80 + random() % 4);
        } else if (draw < 9) {
            raw += static_cast<char>(0x80 + random() % 0x40);
        } else if (draw < 10) {
            raw += '*';
        } else if (draw < 11) {
            raw += static_cast<char>(1 + random() % 0x1F);
        } else if (draw < 12) {
            raw += '\x7F';
        } else if (draw < 14) {
            raw += static_cast<char>('a' + random() % 3);
        } else {
            raw += static_cast<char>(1 + random() % 0xFF);
        }
    }
    return raw;
}

bool holds_control_byte_or_star(const std::string& text) {
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        if (value < 0x20 || value == 0x7F || value == '*') return true;
    }
    return false;
}

TEST(name_mapping, ordinary_names_pass_through) {
    for (const std::string name :
         {"", "a", "file.txt", "/home/user/My Documents/letter (2).odt", "caf\u00E9", "\u4E2D\u6587.txt",
          "\uF8FF \uEFFF \uF100", "\uFEFF", "\uFF0A", "\U0001F600", "~!@#$%^&()_+ "}) {
        EXPECT_FALSE(needs_mapping(name)) << name;
        EXPECT_EQ(to_text(name), name);
        EXPECT_FALSE(needs_unmapping(name)) << name;
        EXPECT_EQ(to_raw(name), name);
    }
}

TEST(name_mapping, bytes_that_are_no_utf_8_pass_through) {
    for (const std::string name : {"caf\xE9", "\xFF\xFE", "\x80", "\xEF", "\xEF\x80", "a\xEF\x83",
                                   "\xEF\x84\x80", "\xEF\x80z", "\xEF\x7E\x80", "\xC0\xAA", "\xF0\x9F"}) {
        EXPECT_FALSE(needs_mapping(name));
        EXPECT_EQ(to_text(name), name);
        EXPECT_FALSE(needs_unmapping(name));
        EXPECT_EQ(to_raw(name), name);
    }
}

TEST(name_mapping, control_bytes_and_the_star_become_private_characters) {
    EXPECT_EQ(to_text("*"), "\uF02A");
    EXPECT_EQ(to_text("\x01"), "\uF001");
    EXPECT_EQ(to_text("\x1F"), "\uF01F");
    EXPECT_EQ(to_text("\x7F"), "\uF07F");
    EXPECT_EQ(to_text("a*b.txt"),
              "a\uF02A"
              "b.txt");
    EXPECT_EQ(to_raw("a\uF02A"
                     "b.txt"),
              "a*b.txt");
    EXPECT_TRUE(needs_mapping("a long name with a star at its very end*"));
    EXPECT_TRUE(needs_unmapping("\uF07F"));
}

TEST(name_mapping, line_breaks_become_private_characters) {
    EXPECT_EQ(to_text("one\ntwo\r\n"), "one\uF00Atwo\uF00D\uF00A");
    EXPECT_EQ(to_raw("one\uF00Atwo\uF00D\uF00A"), "one\ntwo\r\n");
}

TEST(name_mapping, private_characters_of_the_disk_are_escaped) {
    EXPECT_EQ(to_text("\uF02A"), "\uF000\uF02A");
    EXPECT_EQ(to_text("\uF000"), "\uF000\uF000");
    EXPECT_EQ(to_text("\uF0FF"), "\uF000\uF0FF");
    EXPECT_EQ(to_text("\uF000*"), "\uF000\uF000\uF02A");
    EXPECT_EQ(to_raw("\uF000\uF02A"), "\uF02A");
    EXPECT_EQ(to_raw("\uF000\uF000\uF02A"), "\uF000*");
    EXPECT_TRUE(needs_mapping("\uF0FF"));
    EXPECT_TRUE(needs_unmapping("\uF000\uF0FF"));
}

TEST(name_mapping, private_characters_that_stand_for_nothing_pass_to_raw) {
    for (const std::string text : {"\uF000", "\uF041", "\uF0FF", "\uF020", "a\uF000", "\uF000b", "\uF080"}) {
        EXPECT_FALSE(needs_unmapping(text));
        EXPECT_EQ(to_raw(text), text);
    }
}

TEST(name_mapping, broken_characters_beside_mapped_bytes_come_back) {
    for (const std::string raw : {"\xEF*", "\xEF\x80*", "*\x80", "\xEF\xEF\x80\x80", "\xEF\x80\x80\x80",
                                  "\xEF\x80\n", "\xEF\x80\x80\xEF\x80", "\x7F\xBF", "\xEF\x81\x7F"}) {
        EXPECT_TRUE(needs_mapping(raw));
        EXPECT_EQ(to_raw(to_text(raw)), raw);
    }
}

TEST(name_mapping, every_single_byte_comes_back_at_every_place) {
    for (unsigned value = 1; value <= 0xFF; ++value) {
        const bool mapped = value < 0x20 || value == 0x7F || value == '*';
        for (std::size_t place = 0; place < 20; ++place) {
            std::string raw(20, 'x');
            raw[place] = static_cast<char>(value);
            ASSERT_EQ(needs_mapping(raw), mapped);
            ASSERT_EQ(to_text(raw).size(), mapped ? 22u : 20u);
            ASSERT_EQ(to_raw(to_text(raw)), raw);
        }
    }
}

TEST(name_mapping, text_is_appended_to_what_is_there) {
    std::string path = "/a/";
    append_text(path, "b*");
    append_text(path, "");
    append_text(path, "c");
    EXPECT_EQ(path,
              "/a/b\uF02A"
              "c");
}

TEST(name_mapping, raw_bytes_come_back_and_no_two_share_a_text) {
    std::mt19937 random(1);
    std::unordered_map<std::string, std::string> raw_of_text;
    for (int round = 0; round < 300'000; ++round) {
        const std::string raw = random_raw(random);
        const std::string text = to_text(raw);
        ASSERT_EQ(to_raw(text), raw);
        ASSERT_FALSE(holds_control_byte_or_star(text));
        ASSERT_EQ(needs_mapping(raw), text != raw);
        ASSERT_EQ(needs_unmapping(text), text != raw);
        ASSERT_EQ(raw_of_text.try_emplace(text, raw).first->second, raw);
    }
}

TEST(name_mapping, the_question_for_a_way_back_is_exact_for_any_text) {
    std::mt19937 random(2);
    for (int round = 0; round < 100'000; ++round) {
        const std::string text = random_raw(random);
        ASSERT_EQ(needs_unmapping(text), to_raw(text) != text);
    }
}

}  // namespace
}  // namespace corvane
