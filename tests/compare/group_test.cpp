// A group alone: columns, a disk in memory and nothing of the program around them.
#include "compare/group.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/archives/checksum.h"
#include "tests/compare/group_case.h"

namespace corvane {
namespace {

TEST(Group, TwoFilesGetNoSignature) {
    group_case c;
    c.add("/a", "12345");
    c.add("/b", "12345");
    c.list({"/a", "/b"});
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    EXPECT_EQ(group.end(), 2);
    EXPECT_EQ(c.files.file_crc, (column<std::int32_t>{0, 0}));
    EXPECT_EQ(group.same(1, 2), sameness::by_bytes);
}

TEST(Group, OfThreeFilesTheSignaturesOrderThemAndEndTheSearchForTwins) {
    group_case c;
    // Up to four bytes the content is the signature: 2, 10 and 1, ordered as texts.
    c.add("/a", "\x02");
    c.add("/b", "\x0A");
    c.add("/c", "\x01");
    c.list({"/a", "/b", "/c"});
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    EXPECT_EQ(c.files.file_crc, (column<std::int32_t>{1, 10, 2}));
    EXPECT_EQ(c.files.file_list[1], "/c");
    EXPECT_EQ(group.next_candidate(1, 1), 4) << "behind the end: no twin";
    EXPECT_EQ(c.touched, (std::vector<std::string>{"/a", "/b", "/c"}));
}

TEST(Group, AFileThatCannotBeReadTakesNoPart) {
    group_case c;
    for (const char* path : {"/a", "/b", "/c"}) c.add(path, "equal");
    c.disk.add_file("/b", "equal").unreadable = true;
    c.list({"/a", "/b", "/c"});
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    int bad = 0;
    for (std::int32_t i = 1; i <= 3; ++i) {
        if (!c.files.file_bad[i]) continue;
        ++bad;
        EXPECT_EQ(c.files.file_list[i], "/b");
        EXPECT_FALSE(c.files.file_ok[i]);
    }
    EXPECT_EQ(bad, 1);
}

TEST(Group, AClosingProgramEndsTheSignatures) {
    group_case c;
    for (const char* path : {"/a", "/b", "/c"}) c.add(path, "equal");
    c.list({"/a", "/b", "/c"});
    c.turns_left = 1;
    file_group group = c.make();
    EXPECT_FALSE(group.open(1));
    EXPECT_EQ(c.disk.total_opened(), 0);
}

TEST(Group, WithAMemberInReachAStoredSignatureOfALongFilesStartIsReadAnew) {
    group_case c;
    const std::string start(65'536, 's');
    const auto with_tail = [&start](const char* tail) {
        std::string content = start;
        return content.append(tail);
    };
    c.add("/b", with_tail("tail 1"));
    c.add("/c", with_tail("tail 2"));
    c.list({"/a.zip*m*00000001*65542", "/b", "/c"});
    const auto signature = [](const std::string& bytes) {
        return static_cast<std::int32_t>(checksum(std::as_bytes(std::span(bytes))));
    };
    for (const std::int32_t file : {2, 3}) c.files.file_crc[file] = signature(start);
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    for (std::int32_t i = 1; i <= 3; ++i) {
        if (c.files.file_list[i] == "/a.zip*m") {
            EXPECT_EQ(c.files.file_crc[i], 1);
            EXPECT_FALSE(c.files.file_start_crc[i]);
            continue;
        }
        EXPECT_EQ(c.files.file_crc[i], signature(c.disk.content_of(std::string(c.files.file_list[i]))));
        EXPECT_EQ(c.files.file_start_crc[i], signature(start));
    }
}

TEST(Group, TellsBytesThatItHasReadFromWhatItAccepts) {
    group_case c;
    for (const char* path : {"/a", "/b", "/c"}) c.add(path, "abcd");
    c.list({"/a", "/b", "/c"});
    c.files.file_crc[2] = 0x64636261;  // of an earlier run
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    EXPECT_EQ(group.same(1, 3), sameness::by_bytes);
    EXPECT_EQ(group.same(1, 2), sameness::by_rule);
    EXPECT_EQ(group.readings(), 0);
}

TEST(Group, OnlyEqualSuffixesAreCandidatesWhereTheColumnSaysSo) {
    group_case c;
    for (const char* path : {"/a.txt", "/b.jpg", "/c.TXT"}) c.add(path, "equal");
    c.list({"/a.txt", "/b.jpg", "/c.TXT"});
    fill_suffix_column(c.files);
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    EXPECT_EQ(group.next_candidate(1, 1), 3);
    EXPECT_EQ(group.next_candidate(2, 2), 4);
}

// Looks at the disk at the moment a file is told.
TEST(Group, WhileFilesMustBeToldFirstNoneIsReadBefore) {
    group_case c;
    std::vector<std::string> paths;
    for (const char* path : {"/a", "/b", "/c", "/d", "/e", "/f", "/g", "/h"}) {
        c.add(path, std::string(paths.size() < 3 ? 9 : paths.size() < 6 ? 10 : 11, 'x'));
        paths.emplace_back(path);
    }
    c.list(paths);
    std::vector<std::string> told;
    file_group group(c.disk, c.files,
                     {[] { return true; },
                      [&](std::string_view path) {
                          for (const auto& [opened, count] : c.disk.opened)
                              EXPECT_NE(std::find(told.begin(), told.end(), opened), told.end()) << opened;
                          told.emplace_back(path);
                      },
                      [](std::string_view) {}, [] { return true; }});
    for (const std::int32_t i : {1, 4, 7}) {
        ASSERT_TRUE(group.open(i));
        EXPECT_EQ(group.same(i, i + 1), sameness::by_bytes);
    }
    EXPECT_EQ(told.size(), 8u);
}

TEST(Group, ReadsEachFileOnceAheadAndNothingThatItNeedNot) {
    group_case c;
    c.add("/alone", "1");
    for (const char* path : {"/a", "/b", "/c"}) c.add(path, "22");
    for (const char* path : {"/k", "/l", "/m"}) c.add(path, "333");
    for (const char* path : {"/p", "/q"}) c.add(path, "4444");
    for (const char* path : {"/x", "/y"}) c.add(path, std::string(70'000, 'x'));
    c.list({"/alone", "/a", "/b", "/c", "/k", "/l", "/m", "/p", "/q", "/x", "/y"});
    c.files.file_crc[6] = 7;  // known from the history
    file_group group = c.make();
    ASSERT_TRUE(group.open(2));
    EXPECT_EQ(c.disk.opened.count("/alone"), 0u);
    EXPECT_EQ(c.disk.opened["/q"], 1) << "a short pair cannot do without";
    EXPECT_EQ(c.disk.opened.count("/x"), 0u) << "a long one may be told apart by less";
    for (const std::int32_t i : {5, 8, 10}) {
        ASSERT_TRUE(group.open(i));
        group.same(i, i + 1);
    }
    for (const char* path : {"/a", "/b", "/c", "/p", "/q", "/x", "/y"})
        EXPECT_EQ(c.disk.opened[path], 1) << path;
    EXPECT_EQ(c.disk.opened.count("/l"), 0u);
}

// Eight files of one length, all known from the history, in a group of its own; /s0 to /s7.
struct known_case : group_case {
    explicit known_case(std::vector<std::int32_t> signatures) {
        for (const char* path : {"/a", "/b", "/c"}) add(path, "22222");
        std::vector<std::string> paths{"/a", "/b", "/c"};
        for (std::size_t n = 0; n < signatures.size(); ++n) {
            paths.push_back("/s" + std::to_string(n));
            add(paths.back(), "999999");
        }
        list(paths);
        for (std::size_t n = 0; n < signatures.size(); ++n)
            files.file_crc[static_cast<std::int32_t>(n) + 4] = signatures[n];
    }
    void compare_all(file_group& group) {
        for (std::int32_t i = 1; i <= files.file_count; ++i) {
            if (group.end() <= i) {
                ASSERT_TRUE(group.open(i));
            }
            for (std::int32_t j = group.next_candidate(i, i); j <= group.end();
                 j = group.next_candidate(i, j))
                if (group.same(i, j) != sameness::different) files.file_matched[j] = 1;
        }
    }
};

TEST(Group, OfFilesWithKnownSignaturesOnlyThoseThatShareOneAreReadAndOnce) {
    known_case c({5, 6, 7, 6, 9, 5, 1, 6});
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    for (const char* path : {"/s0", "/s1", "/s3", "/s5", "/s7"})
        EXPECT_EQ(c.disk.opened[path], 1) << path << " ahead";
    c.compare_all(group);
    for (const char* path : {"/s0", "/s1", "/s3", "/s5", "/s7"}) EXPECT_EQ(c.disk.opened[path], 1) << path;
    for (const char* path : {"/s2", "/s4", "/s6"}) EXPECT_EQ(c.disk.opened.count(path), 0u) << path;
}

TEST(Group, WhatTheHistoryMakesUnnecessaryIsNotReadAhead) {
    group_case c;
    for (const char* path : {"/a", "/b", "/c"}) c.add(path, "22222");
    for (const char* path : {"/1/n", "/2/n", "/3/other"}) c.add(path, "333333");
    c.list({"/a", "/b", "/c", "/1/n", "/2/n", "/3/other"});
    for (const std::int32_t i : {4, 5, 6}) c.files.file_crc[i] = i == 6 ? 8 : 7;
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    ASSERT_TRUE(group.open(4));
    EXPECT_EQ(c.disk.total_opened(), 3) << "one name, one date, one signature: accepted";
}

TEST(Group, MoreThanIsHeldAtOnceIsStillReadOnce) {
    std::vector<std::int32_t> signatures;
    for (std::int32_t n = 0; n < 1500; ++n) signatures.push_back(1 + n * 7919 % 500);
    known_case c(signatures);
    file_group group = c.make();
    c.compare_all(group);
    std::int64_t matched = 0;
    for (std::int32_t i = 4; i <= c.files.file_count; ++i) matched += c.files.file_matched[i];
    EXPECT_EQ(matched, 1000) << "three files of each signature";
    EXPECT_LE(c.disk.total_opened(), 3 + 1500 + 3 * 2) << "but where a star does not fit into what is held";
    EXPECT_GE(c.disk.total_opened(), 3 + 1500);
}

TEST(Group, APairThatWasReadAheadAndCannotBeReadIsDifferent) {
    group_case c;
    for (const char* path : {"/a", "/b", "/c"}) c.add(path, "22");
    for (const char* path : {"/p", "/q"}) c.add(path, "4444");
    c.list({"/a", "/b", "/c", "/p", "/q"});
    c.disk.add_file("/q", "44445");
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    ASSERT_TRUE(group.open(4));
    EXPECT_EQ(group.same(4, 5), sameness::different) << "it has grown";
}

TEST(Group, AGroupOfKnownAndReadSignaturesLeavesWhatIsHeldForTheNextOnes) {
    group_case c;
    std::vector<std::string> paths;
    for (int n = 0; n < 12; ++n) {
        paths.push_back("/a" + std::to_string(10 + n));
        c.add(paths.back(), "999999");
    }
    for (const char* path : {"/b", "/c", "/d"}) {
        paths.emplace_back(path);
        c.add(path, "7777777");
    }
    c.list(paths);
    const std::string content = "999999";
    for (const std::int32_t i : {1, 2, 5, 6, 7, 12})
        c.files.file_crc[i] = static_cast<std::int32_t>(checksum(std::as_bytes(std::span(content))));
    file_group group = c.make();
    ASSERT_TRUE(group.open(1));
    for (std::int32_t j = 2; j <= 12; ++j) EXPECT_EQ(group.same(1, j), sameness::by_bytes) << j;
    ASSERT_TRUE(group.open(13));
    EXPECT_EQ(group.same(13, 14), sameness::by_bytes);
    for (const std::string& path : paths) EXPECT_EQ(c.disk.opened[path], 1) << path;
}

// A disk that reads in an order of its own and has nothing to hand over at first.
struct late_disk : memory_file_system {
    std::size_t read_starts(std::span<start_request> requests) override {
        return ++asked % 3 == 0 ? memory_file_system::read_starts(requests) : 0;
    }
    int asked = 0;
};

TEST(Group, WaitsForADiskThatAnswersLaterAndHearsEventsMeanwhile) {
    for (const bool closes : {false, true}) {
        late_disk disk;
        file_columns files;
        result_state result;
        for (const char* path : {"/a", "/b", "/c"}) {
            disk.add_file(path, "12345");
            files.file_list.push_back(path);
        }
        files.file_count = 3;
        size_columns(files, result);
        bool members = false;
        refresh_attributes(disk, files, result, members, [](std::int32_t) { return true; });
        bool goes_on = true;
        int turns = 0;
        const auto nothing = [](std::string_view) {};
        file_group group(disk, files,
                         {[&] {
                              ++turns;
                              if (closes && disk.asked > 0) goes_on = false;
                              return goes_on;
                          },
                          nothing, nothing});
        EXPECT_EQ(group.open(1), !closes);
        EXPECT_GE(turns, 3);
        if (closes) {
            EXPECT_EQ(disk.total_opened(), 0);
        } else {
            EXPECT_EQ(group.same(1, 2), sameness::by_bytes);
        }
    }
}

}  // namespace
}  // namespace corvane
