#include "platform/windows/windows_names.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

#include "platform/name_mapping.h"

namespace corvane {
namespace {

// Units that meet the mapping at every turn, with some ordinary ones between them.
std::wstring random_units(std::mt19937& random) {
    static constexpr wchar_t marked[] = {0xF000, 0xF00A, 0xF02A, 0xF07F, 0xF0FF, 0xF100,
                                         0xF8FF, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, '*',
                                         0x01,   0x1F,   0x7F,   'a',    0x4E2D};
    std::wstring units;
    for (auto length = random() % 10; units.size() < length;) {
        const auto draw = random() % 4;
        if (draw < 3)
            units += marked[random() % std::size(marked)];
        else
            units += static_cast<wchar_t>(1 + random() % 0xFFFF);
    }
    return units;
}

TEST(WindowsNames, OrdinaryNamesAreTheirUtf8) {
    EXPECT_EQ(text_of(L"a b(1).txt"), "a b(1).txt");
    EXPECT_EQ(text_of(L"照片\\é"), "照片\\é");
    EXPECT_EQ(text_of(L"\xD83D\xDE00"), "\U0001F600");
    std::wstring units;
    EXPECT_TRUE(units_of("照片\\\U0001F600", units));
    EXPECT_EQ(units, L"照片\\\xD83D\xDE00");
}

TEST(WindowsNames, EveryNameComesBackAndNoTwoMakeOneText) {
    std::mt19937 random(20261122);
    std::map<std::string, std::wstring> seen;
    for (int i = 0; i < 100'000; ++i) {
        const std::wstring units = random_units(random);
        const std::string text = text_of(units);
        std::wstring back;
        ASSERT_TRUE(units_of(text, back));
        ASSERT_EQ(back, units);
        const auto [place, is_new] = seen.emplace(text, units);
        ASSERT_TRUE(is_new || place->second == units);
        // What would end a line of a data file, or mark an archive entry, or be no UTF-8.
        for (const char unit : text) ASSERT_FALSE((unit > 0 && unit < 0x20) || unit == 0x7F || unit == '*');
        ASSERT_EQ(narrow(wide(text)), text);
    }
}

TEST(WindowsNames, HalvesOfPairsThatStandAloneAreCharactersOfTheirOwn) {
    EXPECT_EQ(text_of(std::wstring(1, 0xD800)), "\uF100");
    EXPECT_EQ(text_of(std::wstring(1, 0xDFFF)), "\uF8FF");
    EXPECT_EQ(text_of(std::wstring({L'a', 0xDC00, 0xD800, L'b'})), "a\uF500\uF100b");
}

TEST(WindowsNames, TextsThatNoNameMakesAreRefused) {
    std::wstring units = L"left";
    for (const char* text : {"\xFF", "a\xC0\xAF", "\xED\xA0\x80", "\xE4\xB8", "\x80", "\xF5\x80\x80\x80"}) {
        EXPECT_FALSE(units_of(text, units)) << text;
        EXPECT_TRUE(units.empty());
    }
}

TEST(WindowsNames, OtherProgramsGetTheNameAsItIs) {
    EXPECT_EQ(to_raw(text_of(std::wstring({L'x', 0xD800}))), "x\xED\xA0\x80");
    EXPECT_EQ(to_raw(text_of(L"\xF02A*")), "\uF02A*");
    EXPECT_EQ(to_text("照片"), "照片");
    EXPECT_FALSE(needs_mapping("照片"));
    EXPECT_TRUE(needs_mapping("x\xED\xA0\x80"));
    std::mt19937 random(7);
    for (int i = 0; i < 20'000; ++i) {
        const std::string text = text_of(random_units(random));
        ASSERT_EQ(to_text(to_raw(text)), text);
        ASSERT_EQ(needs_unmapping(text), to_raw(text) != text);
    }
}

}  // namespace
}  // namespace corvane
