#include "compare/column_order.h"

#include <gtest/gtest.h>

#include <random>

#include "compare/preparation.h"
#include "core/state/proven_files.h"

namespace corvane {
namespace {

// Files with lengths and signatures in some order; a signature says which file it is.
file_columns some_files(std::vector<std::string> names, unsigned seed) {
    std::mt19937 random(seed);
    file_columns files;
    result_state result;
    for (const std::string& name : names) files.file_list.push_back(name);
    files.file_count = files.file_list.size();
    size_columns(files, result);
    for (std::int32_t i = 1; i <= files.file_count; ++i) {
        files.file_len[i] = static_cast<std::int64_t>(random() % 5);
        files.file_date_lo[i] = i;
    }
    return files;
}

std::vector<std::string> names_of(int count, unsigned seed, bool twice) {
    std::mt19937 random(seed);
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) names.push_back("/d/" + std::to_string(i * 7919 % 10007));
    if (twice) names.insert(names.end(), 20, names[3]);
    if (twice) names.insert(names.end(), 20, "");
    std::shuffle(names.begin(), names.end(), random);
    return names;
}

void order_groups(file_columns& files) {
    for (std::int32_t i = 1; i <= files.file_count; ++i)
        files.file_crc[i] = static_cast<std::int32_t>((i * std::int64_t{2654435761}) % 1000) - 500;
    for (std::int32_t first = 1; first <= files.file_count;) {
        std::int32_t last = first;
        while (last < files.file_count && files.file_len[last + 1] == files.file_len[first]) ++last;
        sort_group(files, first, last);
        first = last + 1;
    }
}

TEST(OrderByName, ByRankIsThatByText) {
    for (const bool twice : {false, true})
        for (const bool ascending : {false, true}) {
            std::vector<std::string> names = names_of(500, 11, twice);
            if (ascending) std::sort(names.begin(), names.end());
            file_columns files = some_files(names, 3);
            sort_by_length_and_name(files);
            ASSERT_EQ(files.file_rank.size(), files.file_count);
            order_groups(files);
            file_columns by_text = files;
            by_text.file_rank = {};
            sort_by_name(files);
            sort_by_name(by_text);
            for (std::int32_t i = 1; i <= files.file_count; ++i) {
                EXPECT_EQ(files.file_list[i], by_text.file_list[i]);
                EXPECT_EQ(files.file_len[i], by_text.file_len[i]);
                EXPECT_EQ(files.file_crc[i], by_text.file_crc[i]);
                EXPECT_EQ(files.file_date_lo[i], by_text.file_date_lo[i]);
            }
        }
}

TEST(OrderByName, RanksThatNoLongerHoldAreNotFollowed) {
    file_columns files = some_files(names_of(100, 5, false), 4);
    sort_by_length_and_name(files);
    files.file_list.set(40, "/a changed name");
    sort_by_name(files);
    EXPECT_EQ(files.file_list[1], "/a changed name");
    for (std::int32_t i = 2; i <= files.file_count; ++i)
        EXPECT_LT(files.file_list[i - 1], files.file_list[i]);
}

TEST(ProvenFiles, TheLastNoteOfAPathCountsAndOthersAreNotFound) {
    proven_files proven;
    for (std::int32_t i = 0; i < 1000; ++i)
        proven.note("/d/" + std::to_string(i % 700), i, {static_cast<std::uint64_t>(i), 5, 6, 7, 8});
    for (std::int32_t i = 0; i < 700; ++i) {
        const proven_files::proof* proof = proven.find("/d/" + std::to_string(i));
        ASSERT_NE(proof, nullptr);
        EXPECT_EQ(proof->star, i < 300 ? i + 700 : i);
    }
    EXPECT_EQ(proven.find("/d/700"), nullptr);
    proven.note("/d/700", 1, {});
    EXPECT_NE(proven.find("/d/700"), nullptr) << "also after a question";
    proven.clear();
    EXPECT_EQ(proven.find("/d/700"), nullptr);
}

TEST(ProvenFiles, EachFactThatHasChangedEndsAProof) {
    file_facts facts;
    facts.exists = true;
    facts.identity = {3, 4};
    facts.length = 5;
    facts.changed_ns = 6;
    facts.date_high = 7;
    facts.date_low = 8;
    const file_state state = state_of(facts);
    EXPECT_TRUE(same_state(state, facts));
    const auto ends = [&](auto change) {
        file_facts other = facts;
        change(other);
        return !same_state(state, other);
    };
    EXPECT_TRUE(ends([](file_facts& f) { f.exists = false; }));
    EXPECT_TRUE(ends([](file_facts& f) { ++f.identity.index; }));
    EXPECT_TRUE(ends([](file_facts& f) { ++f.identity.device; }));
    EXPECT_TRUE(ends([](file_facts& f) { f.length += std::int64_t{1} << 40; }));
    EXPECT_TRUE(ends([](file_facts& f) { ++f.changed_ns; }));
    EXPECT_TRUE(ends([](file_facts& f) { ++f.date_high; }));
    EXPECT_TRUE(ends([](file_facts& f) { ++f.date_low; }));
}

}  // namespace
}  // namespace corvane
