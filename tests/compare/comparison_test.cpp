// The decision that two files are the same, rule by rule, over a disk in memory that tells what was read.
#include <gtest/gtest.h>

#include "core/archives/checksum.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

std::string checksum_text(const std::string& content) {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%08X", checksum(std::as_bytes(std::span(content))));
    return digits;
}

std::string member(const std::string& archive_and_name, const std::string& content) {
    return archive_and_name + "*" + checksum_text(content) + "*" + std::to_string(content.size());
}

TEST(Comparison, AFileOfUniqueLengthIsNeverOpened) {
    test_program p;
    p.files.add_file("/d/a", "1");
    p.files.add_file("/d/b", "22");
    p.compare({"/d"});
    EXPECT_EQ(p.files.opened.count("/d/a") + p.files.opened.count("/d/b"), 0u);
    EXPECT_FALSE(p.files.has("/prog/相同文件.txt"));
}

TEST(Comparison, EmptyFilesPairWithTheFirstAndStayDifferentFiles) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path);
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), (texts{"0 /d/a /d/b", "0 /d/a /d/c"}));
    EXPECT_EQ(p.stored_lines("不相同文件.txt"), (texts{"/d/a", "/d/b", "/d/c"}));
    EXPECT_EQ(p.state.same_bytes, 0);
}

TEST(Comparison, TwoPlainFilesAreComparedByBytesWithoutASignature) {
    test_program p;
    p.files.add_file("/d/a", "same content");
    p.files.add_file("/d/b", "same content");
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"12 /d/a /d/b"});
    EXPECT_EQ(p.state.file_crc[1], 0);
    EXPECT_EQ(p.state.file_crc[2], 0);
}

TEST(Comparison, ThreeFilesGetSignaturesAndTheTwoEqualOnesPair) {
    test_program p;
    p.files.add_file("/d/a", "content 1");
    p.files.add_file("/d/b", "content 2");
    p.files.add_file("/d/c", "content 1");
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"9 /d/a /d/c"});
    EXPECT_EQ(p.files.opened["/d/a"], 1);  // held from the signature, not read again
    EXPECT_EQ(p.files.opened["/d/b"], 1);
}

TEST(Comparison, AGroupOfEqualFilesIsAStarRoundItsFirst) {
    test_program p;
    for (const char* path : {"/d/d", "/d/b", "/d/a", "/d/c"}) p.files.add_file(path, "equal");
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), (texts{"5 /d/a /d/b", "5 /d/a /d/c", "5 /d/a /d/d"}));
    EXPECT_EQ(p.state.same_bytes, 15);
    EXPECT_EQ(p.stored_lines("不相同文件.txt"), texts{});
}

TEST(Comparison, PairsAreNumberedByAscendingLength) {
    test_program p;
    p.files.add_file("/d/z1", "1");
    p.files.add_file("/d/z2", "1");
    p.files.add_file("/d/a1", "longer");
    p.files.add_file("/d/a2", "longer");
    p.files.add_file("/d/e1");
    p.files.add_file("/d/e2");
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), (texts{"0 /d/e1 /d/e2", "1 /d/z1 /d/z2", "6 /d/a1 /d/a2"}));
}

TEST(Comparison, WithinALengthTheOrderIsTheSignatureAsTextThenTheName) {
    // Signatures of one-byte files are their bytes: 9 and 10 as text order "10" before "9".
    test_program p;
    p.files.add_file("/d/a1", "\x09");
    p.files.add_file("/d/a2", "\x09");
    p.files.add_file("/d/b1", "\x0A");
    p.files.add_file("/d/b2", "\x0A");
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), (texts{"1 /d/b1 /d/b2", "1 /d/a1 /d/a2"}));
}

TEST(Comparison, TheSignatureOfFourBytesIsTheContentLowByteFirst) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"})
        p.files.add_file(path, std::string("\x01\x02\x03\x84", 4));
    p.search({"/d"});
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.state.file_crc[1], static_cast<std::int32_t>(0x84030201u));
    EXPECT_EQ(p.stored_pairs().size(), 2u);
}

TEST(Comparison, SameNameTimeAndChecksumIsAcceptedUnread) {
    // Three files whose stored signatures agree although their contents differ: only the rule pairs them.
    test_program p;
    const std::string history = "3           \r\n";
    for (const char* path : {"/d/x/Name", "/d/y/name", "/d/z/other"}) p.files.add_file(path);
    p.files.add_file("/d/x/Name", "11111");
    p.files.add_file("/d/y/name", "22222");
    p.files.add_file("/d/z/other", "33333");
    std::string rows = history;
    for (const char* path : {"/d/x/Name", "/d/y/name", "/d/z/other"}) {
        const file_facts facts = p.files.facts(path);
        rows += std::string(path) + "\t5\t" + std::to_string(facts.date_high) + "\t" +
                std::to_string(facts.date_low) + "\t77\r\n";
    }
    for (int i = 0; i < 500; ++i) p.files.add_file("/d/f/" + std::to_string(i), std::string(100 + i, 'x'));
    p.files.add_file("/prog/run_history.txt", rows);
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"5 /d/x/Name /d/y/name"});
}

TEST(Comparison, AnotherTimeForcesTheByteComparison) {
    test_program p;
    std::string rows = "2           \r\n";
    p.files.add_file("/d/x/name", "11111");
    p.files.add_file("/d/y/name", "22222").date_low = 5;
    p.files.add_file("/d/z", "33333");
    for (const char* path : {"/d/x/name", "/d/y/name"}) {
        const file_facts facts = p.files.facts(path);
        rows += std::string(path) + "\t5\t" + std::to_string(facts.date_high) + "\t" +
                std::to_string(facts.date_low) + "\t77\r\n";
    }
    for (int i = 0; i < 500; ++i) p.files.add_file("/d/f/" + std::to_string(i), std::string(100 + i, 'x'));
    p.files.add_file("/prog/run_history.txt", rows);
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{});
    EXPECT_GT(p.files.opened["/d/x/name"], 0);
}

TEST(Comparison, From65536BytesOnBytesDecideEvenWithOneNameAndTime) {
    test_program p;
    std::string content(65536, 'a');
    std::string longer(70000, 'b');
    for (const char* directory : {"/d/x/", "/d/y/", "/d/z/"}) {
        p.files.add_file(directory + std::string("n"), content);
        longer.back() = directory[3];  // equal in the first 65536 bytes only
        p.files.add_file(directory + std::string("m"), longer);
    }
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), (texts{"65536 /d/x/n /d/y/n", "65536 /d/x/n /d/z/n"}));
}

TEST(Comparison, LargeFilesReadOnlyTheirStartWhenSignaturesDiffer) {
    test_program p;
    for (const char* name : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(name, std::string(1'000'000, name[3]));
    p.compare({"/d"});
    for (const char* name : {"/d/a", "/d/b", "/d/c"}) EXPECT_EQ(p.files.bytes_read[name], 65536) << name;
}

TEST(Comparison, AStarOfLargeFilesReadsEachByteOfEachFileOnce) {
    test_program p;
    const std::string content(3'000'000, 'q');
    for (const char* name : {"/d/a", "/d/b", "/d/c", "/d/e"}) p.files.add_file(name, content);
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs().size(), 3u);
    for (const char* name : {"/d/a", "/d/b", "/d/c", "/d/e"})
        EXPECT_EQ(p.files.bytes_read[name], 3'000'000) << name;
}

TEST(Comparison, AFileThatCannotBeReadDropsOutSilently) {
    test_program p;
    for (const char* name : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(name, "equal");
    p.files.add_file("/d/b", "equal").unreadable = true;
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"5 /d/a /d/c"});
    EXPECT_EQ(p.stored_lines("不相同文件.txt"), texts{"/d/b"});
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(Comparison, AFileThatShrankOrGrewIsNotTakenAsEqual) {
    for (const std::int64_t change : {-1, 1}) {
        test_program p;
        for (const char* name : {"/d/a", "/d/b", "/d/c", "/d/x", "/d/y"})
            p.files.add_file(name, name[3] < 'x' ? "equal" : "a pair");
        p.files.add_file("/d/b", change < 0 ? "equa" : "equalx").stated_length = 5;
        p.files.add_file("/d/y", change < 0 ? "a pai" : "a pairx").stated_length = 6;
        p.compare({"/d"});
        EXPECT_EQ(p.stored_pairs(), texts{"5 /d/a /d/c"}) << change;
    }
}

TEST(Comparison, AVanishedFileCountsAsNotComparable) {
    test_program p;
    p.files.add_file("/d/a", "x");
    p.files.add_file("/d/b", "x");
    p.files.add_file("/d/e");
    p.search({"/d"});
    p.files.erase("/d/b");
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.stored_pairs(), texts{});
    EXPECT_EQ(p.stored_lines("不相同文件.txt"), (texts{"/d/b", "/d/e", "/d/a"}));
}

TEST(Comparison, TwoPathsOfOneSingleLinkFileAreNoPairButHardLinksAre) {
    test_program p;
    memory_file& a = p.files.add_file("/d/a", "one");
    memory_file& b = p.files.add_file("/d/b", "one");
    b.index = a.index;
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{});
    a.link_count = b.link_count = 2;
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"3 /d/a /d/b"});
}

TEST(Comparison, OnePathListedTwiceIsAPairLikeAnyOther) {
    test_program p;
    p.files.add_file("/d/s/a", "one");
    p.compare({"/d", "/d/s"});
    EXPECT_EQ(p.stored_pairs(), texts{"3 /d/s/a /d/s/a"});
}

TEST(Comparison, LengthsBeyondTwoGibibytesAreExact) {
    // Equal modulo 2^32, and equal in every byte that could be read: only the length tells them apart.
    test_program p;
    p.files.add_file("/d/a", "x").stated_length = 5;
    p.files.add_file("/d/b", "x").stated_length = 5 + (std::int64_t{1} << 32);
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{});
    EXPECT_EQ(p.files.opened.count("/d/b"), 0u);
}

TEST(Suffix, OnlyFilesOfOneSuffixAreComparedWhileTheOptionIsOn) {
    test_program p;
    for (const char* name : {"/d/a.txt", "/d/b.TXT", "/d/c.doc"}) p.files.add_file(name, "equal content");
    p.state.same_suffix_only = 1;
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"13 /d/a.txt /d/b.TXT"});
}

TEST(Suffix, TheColumnIsNotMovedByTheGroupSort) {
    // Signature order puts the second name first; the suffixes stay at their indexes, so the two equal files
    // at indexes 1 and 2 after the sort are held against the suffixes of the names that stood there before.
    test_program p;
    p.files.add_file("/d/1.x", "\x09");
    p.files.add_file("/d/2.x", "\x0A");
    p.files.add_file("/d/3.y", "\x0A");
    p.state.same_suffix_only = 1;
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"1 /d/2.x /d/3.y"});
}

TEST(Archive, TwoMembersOfOneNameKeepDifferentChecksumsAfterTheCuts) {
    test_program p;
    p.compare_list({"/d/a.zip*x*00000001*50", "/d/a.zip*x*FFFFFFFF*50"});
    EXPECT_EQ(p.stored_pairs(), texts{});
    EXPECT_EQ(p.stored_lines("不相同文件.txt"), (texts{"/d/a.zip*x", "/d/a.zip*x"}));
    EXPECT_EQ(p.state.file_crc[1], -1);  // ordered as text: "-1" before "1"
    EXPECT_EQ(p.state.file_crc[2], 1);
}

TEST(Archive, AMemberEqualsAFileOfItsLengthAndWholeChecksum) {
    test_program p;
    std::string content(100'000, 'k');
    content.back() = 'e';
    p.files.add_file("/d/z", content);
    p.compare_list({member("/d/a.zip*m", content), "/d/z"});
    EXPECT_EQ(p.stored_pairs(), texts{"100000 /d/a.zip*m /d/z"});
}

TEST(Archive, AFileOfFourBytesDoesNotMatchItsMember) {
    test_program p;
    p.files.add_file("/d/z", "abcd");
    p.compare_list({member("/d/a.zip*m", "abcd"), "/d/z"});
    EXPECT_EQ(p.stored_pairs(), texts{});
}

TEST(Archive, AMemberOfTheNextLengthSetsTheFlagForTheGroupBefore) {
    // Two plain files of 70,000 bytes: without the flag they would be compared by bytes and no signature
    // kept.
    test_program p;
    const std::string content(70'000, 'w');
    p.files.add_file("/d/x", content);
    p.files.add_file("/d/y", content);
    p.compare_list({"/d/a.zip*m*00000001*70001", "/d/x", "/d/y"});
    EXPECT_EQ(p.stored_pairs(), texts{"70000 /d/x /d/y"});
    const auto whole = static_cast<std::int32_t>(checksum(std::as_bytes(std::span(content))));
    EXPECT_EQ(p.state.file_crc[1], whole);
}

TEST(Archive, WithoutAMemberInReachTwoPlainFilesKeepNoSignature) {
    test_program p;
    const std::string content(70'000, 'w');
    p.files.add_file("/d/x", content);
    p.files.add_file("/d/y", content);
    p.files.add_file("/d/z", content + "1");
    p.compare_list({"/d/a.zip*m*00000001*70002", "/d/x", "/d/y", "/d/z"});
    EXPECT_EQ(p.state.file_crc[1], 0);
    EXPECT_EQ(p.stored_pairs(), texts{"70000 /d/x /d/y"});
}

TEST(Archive, LaterFilesOfAGroupAreComparedWithoutTheFlag) {
    // The first of the group pairs with nobody; two members behind it agree in length and checksum, but the
    // byte comparison of members fails.
    test_program p;
    p.compare_list({"/d/a.zip*1*00000001*50", "/d/a.zip*2*00000002*50", "/d/a.zip*3*00000002*50"});
    EXPECT_EQ(p.stored_pairs(), texts{});
}

TEST(Archive, MembersPairWithTheFirstOfTheirGroup) {
    test_program p;
    p.compare_list({"/d/a.zip*1*00000001*50", "/d/a.zip*2*00000001*50", "/d/b.zip*3*00000001*50"});
    EXPECT_EQ(p.stored_pairs(), (texts{"50 /d/a.zip*1 /d/a.zip*2", "50 /d/a.zip*1 /d/b.zip*3"}));
}

TEST(Archive, ALengthBeyond32BitsIsTakenWhole) {
    test_program p;
    p.compare_list({"/d/a.zip*1*00000001*5000000000", "/d/b.zip*1*00000001*5000000000"});
    EXPECT_EQ(p.stored_pairs(), texts{"5000000000 /d/a.zip*1 /d/b.zip*1"});
}

TEST(Pairs, TheLowerNameStandsFirstAlsoWhenTheCentreIsTheHigher) {
    // A list that is not in name order keeps its columns: the centre /d/b comes before /d/a.
    test_program p;
    p.files.add_file("/d/b", "12345");
    p.files.add_file("/d/a", "12345");
    p.files.add_file("/prog/文件清单.txt", "/d/b\r\n/d/a\r\n");
    p.form.run("Command21_Click");
    p.state.file_list_loaded = -1;
    p.state.list_sorted_flag = -1;
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.state.same_pair[1][1], 2);
    EXPECT_EQ(p.state.same_pair[2][1], 1);
    EXPECT_EQ(p.stored_pairs(), texts{"5 /d/a /d/b"});
}

TEST(SecondRun, ReadsTheStoredListAgain) {
    test_program p;
    p.files.add_file("/d/a", "same");
    p.files.add_file("/d/b", "same");
    p.compare({"/d"});
    EXPECT_EQ(p.state.file_list_loaded, 0);
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.stored_pairs(), texts{"4 /d/a /d/b"});
    EXPECT_EQ(p.state.file_count, 2);
}

}  // namespace
}  // namespace corvane
