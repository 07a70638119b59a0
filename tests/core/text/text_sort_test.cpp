#include "core/text/text_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace corvane {
namespace {

text_column column_of(const std::vector<std::string>& texts) {
    text_column column;
    for (const std::string& text : texts) column.push_back(text);
    return column;
}

std::vector<std::string> texts_of(const text_column& column) {
    std::vector<std::string> texts;
    for (std::int32_t i = 1; i <= column.size(); ++i) texts.emplace_back(column[i]);
    return texts;
}

std::vector<std::string> random_texts(std::uint32_t seed, std::size_t count) {
    std::mt19937 random(seed);
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < count; ++i) {
        std::string text = random() % 3 ? "/data/tree/with a long common start/" : "";
        const std::size_t length = random() % 40;
        for (std::size_t k = 0; k < length; ++k) text += "\0ab/Z*\xE4\xFF"[random() % 8];
        texts.push_back(text);
        if (random() % 10 == 0) texts.push_back(text);
    }
    return texts;
}

TEST(SortTextArray, ComparesByCodeSoThatUpperCaseStandsBeforeLowerCase) {
    text_column column = column_of({"b", "a", "Z", "", "a/b", "a-b"});
    sort_text_array(column, 1, 6);
    EXPECT_EQ(texts_of(column), (std::vector<std::string>{"", "Z", "a", "a-b", "a/b", "b"}));
}

TEST(SortTextArray, GivesTheOrderOfAPlainSortOnRandomTexts) {
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        std::vector<std::string> texts = random_texts(seed, std::size_t{seed} * 50);
        text_column column = column_of(texts);
        sort_text_array(column, 1, column.size());
        std::sort(texts.begin(), texts.end());
        ASSERT_EQ(texts_of(column), texts) << "seed " << seed;
    }
}

TEST(SortTextArray, SortsOnlyTheGivenRange) {
    text_column column = column_of({"d", "c", "b", "a"});
    sort_text_array(column, 2, 3);
    EXPECT_EQ(texts_of(column), (std::vector<std::string>{"d", "b", "c", "a"}));
}

TEST(SortTextArray, HoldsTextsThatDifferOnlyFarBehind) {
    std::vector<std::string> texts;
    for (int i = 0; i < 100; ++i) texts.push_back(std::string(4000, 'x') + std::to_string(i));
    text_column column = column_of(texts);
    sort_text_array(column, 1, column.size());
    std::sort(texts.begin(), texts.end());
    EXPECT_EQ(texts_of(column), texts);
}

TEST(SortRows, KeepsTheOrderOfEqualTexts) {
    const text_column column = column_of(std::vector<std::string>(100, "same text"));
    std::vector<text_row> rows;
    for (std::int32_t i = 1; i <= 100; ++i) rows.push_back({column.entry(i), i});
    sort_rows_by_text(rows);
    for (std::int32_t i = 1; i <= 100; ++i) EXPECT_EQ(rows[static_cast<std::size_t>(i - 1)].row, i);
}

TEST(FindText, FindsEveryEntryAndTellsMisses) {
    const text_column column = column_of({"b", "d", "f"});
    for (std::int32_t i = 1; i <= 3; ++i) EXPECT_EQ(find_text(column, column[i], 1, 3).index, i);
    EXPECT_EQ(find_text(column, "c", 1, 3).index, -1);
    EXPECT_EQ(find_text(column, "c", 1, 3).upper_bound, 1);
    EXPECT_EQ(find_text(column, "a", 1, 3).upper_bound, 0);
    EXPECT_EQ(find_text(column, "z", 1, 3).upper_bound, 3);
}

TEST(FindText, GivesZeroWhenTheBoundsAreCrossedOnEntry) {
    const text_column column = column_of({"b"});
    EXPECT_EQ(find_text(column, "b", 2, 1).index, 0);
    EXPECT_EQ(find_text(column, "b", 2, 1).upper_bound, 1);
}

TEST(FindText, IsCaseSensitive) {
    EXPECT_EQ(find_text(column_of({"A"}), "a", 1, 1).index, -1);
}

}  // namespace
}  // namespace corvane
