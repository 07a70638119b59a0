#include "core/text/packed_texts.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

std::vector<std::string> unpacked(const packed_texts& packed) {
    std::vector<std::string> texts;
    packed.each([&](std::string_view text) { texts.emplace_back(text); });
    return texts;
}

TEST(PackedTexts, ComeBackAsTheyWere) {
    std::vector<std::string> texts = {"",          "/d/a", "/d/a", "/d/ab", "/d", "", std::string(3, '\0'),
                                      "/e\n\t\xFF"};
    texts.emplace_back(700'000, 'l');  // longer than a block
    texts.emplace_back(700'000, 'l');
    for (int i = 0; i < 30'000; ++i) texts.push_back("/some/tree/of/files/" + std::to_string(i * 7919));
    texts.emplace_back();
    packed_texts packed;
    EXPECT_TRUE(packed.empty());
    for (const std::string& text : texts) packed.push_back(text);
    EXPECT_FALSE(packed.empty());
    EXPECT_EQ(unpacked(packed), texts);
}

TEST(PackedTexts, NoneAreNone) {
    EXPECT_TRUE(unpacked({}).empty());
}

}  // namespace
}  // namespace corvane
