// Names and notes of a recycle bin.
#include "platform/linux/trash_info.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(TrashInfo, PercentSignsStandForBytes) {
    EXPECT_EQ(percent_decoded("/a%20b"), "/a b");
    EXPECT_EQ(percent_decoded("%e4%B8%ad"), "中");
    EXPECT_EQ(percent_decoded("%FF%0a%25"), "\xff\n%");
    EXPECT_EQ(percent_decoded(""), "");
}

TEST(TrashInfo, APercentSignWithoutTwoDigitsOrForNulIsNoPath) {
    for (const char* wrong : {"%", "%2", "a%2", "%zz", "%4g", "%00", "a%00b"})
        EXPECT_FALSE(percent_decoded(wrong)) << wrong;
}

TEST(TrashInfo, ThePathIsThatOfTheGroup) {
    EXPECT_EQ(path_in_info("[Trash Info]\nPath=/a/b\nDeletionDate=2026-01-01T00:00:00\n", ""), "/a/b");
    EXPECT_EQ(path_in_info("[Trash Info]\r\nDeletionDate=x\r\nPath=/a%20b\r\n", ""), "/a b");
    EXPECT_EQ(path_in_info("[Trash Info]\nPath=/a/b", ""), "/a/b") << "the last line may have no end";
    EXPECT_EQ(path_in_info("[Other]\nPath=/wrong\n[Trash Info]\nPath=/right\n", ""), "/right");
    for (const char* none :
         {"", "Path=/a\n", "[Trash Info]\nPath=\n", "[Trash Info]\nPath=%zz\n", "[Trash Info]\n",
          "[Other]\nPath=/a\n", "[Trash Info]\nPath=/a/../b\n", "[Trash Info]\nPath=..\n"})
        EXPECT_FALSE(path_in_info(none, "/top")) << none;
}

TEST(TrashInfo, ARelativePathStartsAtTheTopAndOnlyThere) {
    EXPECT_EQ(path_in_info("[Trash Info]\nPath=a/b\n", "/mnt/x"), "/mnt/x/a/b");
    EXPECT_FALSE(path_in_info("[Trash Info]\nPath=a/b\n", ""));
    EXPECT_EQ(path_in_info("[Trash Info]\nPath=..a/b..\n", "/m"), "/m/..a/b..")
        << "dots of a name do not climb";
}

TEST(TrashInfo, NumbersStandBeforeTheFirstDot) {
    EXPECT_EQ(trash_name("a.tar.gz", 1), "a.tar.gz");
    EXPECT_EQ(trash_name("a.tar.gz", 2), "a.2.tar.gz");
    EXPECT_EQ(trash_name("plain", 3), "plain.3");
    EXPECT_EQ(trash_name(".hidden", 2), ".2.hidden");
}

TEST(TrashInfo, ANameBesideSaysThatItWasRestored) {
    EXPECT_EQ(name_beside("a.txt", 1), "a (恢复).txt");
    EXPECT_EQ(name_beside("a.txt", 2), "a (恢复 2).txt");
    EXPECT_EQ(name_beside(".hidden", 1), ".hidden (恢复)") << "a dot at the start begins no suffix";
    EXPECT_EQ(name_beside("plain", 10), "plain (恢复 10)");
}

TEST(TrashInfo, ANameBesideFitsIntoTheFileSystem) {
    std::string long_name;
    for (int i = 0; i < 83; ++i) long_name += "字";  // 249 bytes
    const std::string beside = name_beside(long_name + ".txt", 12);
    EXPECT_LE(beside.size(), 255u);
    EXPECT_TRUE(beside.ends_with(" (恢复 12).txt"));
    const std::string stem = beside.substr(0, beside.find(' '));
    EXPECT_EQ(stem.size() % 3, 0u) << "cut between letters";
    EXPECT_EQ(stem, long_name.substr(0, stem.size()));
    EXPECT_LE(name_beside("a." + std::string(253, 'x'), 1).size(), 255u) << "a suffix without room is none";
}

TEST(TrashInfo, DoubledSeparatorsDoNotCount) {
    EXPECT_EQ(plain_path("//a///b//"), "/a/b");
    EXPECT_EQ(plain_path("/"), "/");
    EXPECT_EQ(plain_path(""), "");
}

}  // namespace
}  // namespace corvane
