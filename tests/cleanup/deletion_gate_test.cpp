// Stories that hurt users of other programs: after each, at least one copy of every content is alive.
#include "cleanup/deletion_gate.h"

#include <gtest/gtest.h>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

constexpr auto yes = box_answer::yes;
constexpr auto no = box_answer::no;

// Both roads, in the same way.
class LastCopy : public testing::TestWithParam<bool> {
  protected:
    void run(deleting& p) {
        if (GetParam())
            p.run_direct({no, no});
        else
            p.run_recycle({yes, no});
    }
    texts gone(const deleting& p) const { return GetParam() ? p.files.removed : p.recycled; }
};

INSTANTIATE_TEST_SUITE_P(Roads, LastCopy, testing::Bool(),
                         [](const auto& each) { return each.param ? "Direct" : "Recycle"; });

TEST_P(LastCopy, ThePartnerHasVanishedSinceTheSearch) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.double_click(1, 4);
    p.files.erase("/d/a");
    run(p);
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
    EXPECT_NE(p.last_message().find("保留 1 个文件: 最后一份 1 个\r\n  /e/a"), std::string::npos);
    EXPECT_EQ(p.last_message().find("无法删除"), std::string::npos) << "a second run could not take it";
}

TEST_P(LastCopy, EveryPathOfAStarIsMarkedOverTwoRuns) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/1"}, {3, "/d/a", "/e/2"}, {3, "/d/a", "/e/3"}});
    p.press(1, 4);
    p.press(3, 4, true);
    run(p);
    EXPECT_EQ(gone(p), (texts{"/e/1", "/e/2", "/e/3"}));
    p.right_press(1, 3);
    p.form.run("all_select");
    run(p);
    EXPECT_TRUE(p.files.has("/d/a"));
    EXPECT_EQ(gone(p).size(), 3u);
}

TEST_P(LastCopy, EveryPathOfAStarIsMarkedAtOnce) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/1"}, {3, "/d/a", "/e/2"}});
    for (const int row : {1, 2})
        for (const int column : {3, 4}) p.mark(row, column);
    run(p);
    int alive = 0;
    for (const char* path : {"/d/a", "/e/1", "/e/2"}) alive += p.files.has(path);
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(gone(p).size(), 2u);
}

TEST_P(LastCopy, RowsThatShareAPathBelongTogetherWhereverTheyStand) {
    deleting p;
    // a - b, c - b: the keeper of a is c, two rows away.
    p.show_files({{3, "/d/a", "/d/b"}, {9, "/q/1", "/q/2"}, {3, "/d/c", "/d/b"}});
    p.mark(1, 3);
    p.mark(1, 4);
    run(p);
    EXPECT_EQ(gone(p), (texts{"/d/a", "/d/b"}));
    EXPECT_TRUE(p.files.has("/d/c"));
}

TEST_P(LastCopy, AFileReplacedByOneOfAnotherLengthStays) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.double_click(1, 4);
    p.files.add_file("/e/a", "a new and longer text");
    run(p);
    EXPECT_EQ(p.files.content_of("/e/a"), "a new and longer text");
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
}

TEST_P(LastCopy, AKeeperOfAnotherLengthKeepsNobody) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.double_click(1, 4);
    p.files.add_file("/d/a", "changed since");
    run(p);
    EXPECT_TRUE(p.files.has("/e/a"));
}

TEST_P(LastCopy, APathThatBecameALinkStays) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.double_click(1, 4);
    p.files.erase("/e/a");
    p.files.add_link("/e/a", "/d");
    run(p);
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
}

TEST_P(LastCopy, TwoPathsOfOnePhysicalFileAreNoCopies) {
    deleting p;
    p.show_files({{3, "/d/a", "/mnt/d/a"}});
    p.files.add_file("/mnt/d/a", "xxx").index = 4711;
    p.files.add_file("/d/a", "xxx").index = 4711;
    p.double_click(1, 4);
    run(p);
    EXPECT_TRUE(p.files.has("/mnt/d/a"));
}

TEST_P(LastCopy, ASecondLinkKeepsTheFile) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/b"}});
    for (const char* path : {"/d/a", "/e/b"}) {
        memory_file& file = p.files.add_file(path, "xxx");
        file.index = 4711;
        file.link_count = 2;
    }
    p.double_click(1, 4);
    run(p);
    EXPECT_EQ(gone(p), texts{"/e/b"});
}

TEST_P(LastCopy, TheSameLinkByTwoRoadsIsNoSecondLink) {
    deleting p;
    p.show_files({{3, "/d/a", "/mnt/a"}});
    for (const char* path : {"/d/a", "/mnt/a"}) {
        memory_file& file = p.files.add_file(path, "xxx");
        file.index = 4711;
        file.link_count = 2;  // the other one is somewhere else
    }
    p.files.add_directory("/d").index = 88;
    p.files.add_directory("/mnt").index = 88;
    p.double_click(1, 4);
    run(p);
    EXPECT_TRUE(p.files.has("/mnt/a"));
}

TEST_P(LastCopy, AKeeperInTheTrashKeepsNobody) {
    deleting p;
    p.show_files({{3, "/home/u/.local/share/Trash/files/a", "/e/a"}});
    p.files.recycle_directories = {"/home/u/.local/share/Trash/"};
    p.double_click(1, 4);
    run(p);
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
}

TEST_P(LastCopy, AnArchiveEntryKeepsAFileWhileItsArchiveStands) {
    deleting p;
    p.show_files({{5, "/d/a", "/z.zip*a"}, {5, "/d/b", "/y.zip*b"}});
    p.add_zip("/z.zip", {p.stored("a", 5)});
    p.double_click(1, 3);
    p.double_click(2, 3);
    run(p);
    EXPECT_EQ(gone(p), texts{"/d/a"});
    EXPECT_TRUE(p.files.has("/d/b")) << "its archive is gone";
}

TEST_P(LastCopy, AnEntryThatHasLeftItsArchiveKeepsNobody) {
    deleting p;
    p.show_files({{5, "/d/a", "/z.zip*a"}, {5, "/d/b", "/z.zip*b"}, {6, "/d/c", "/z.zip*c"}});
    p.add_zip("/z.zip", {p.stored("other", 5), p.stored("b", 4)});
    for (const int row : {1, 2, 3}) p.double_click(row, 3);
    run(p);
    EXPECT_EQ(gone(p), texts{}) << "no entry of that name, another length, no entry";
}

TEST_P(LastCopy, AnEntryOfAnotherContentKeepsNoFile) {
    deleting p;
    p.show_files({{5, "/d/a", "/z.zip*a"}});
    p.add_zip("/z.zip", {p.stored("a", 5)});
    p.files.add_file("/d/a", "other");
    p.double_click(1, 3);
    run(p);
    EXPECT_EQ(gone(p), texts{});
}

TEST_P(LastCopy, AnArchiveEntryIsNoProofForATinyFile) {
    deleting p;
    p.show_files({{4, "/d/a", "/z.zip*a"}});
    p.add_zip("/z.zip", {p.stored("a", 4)});
    p.double_click(1, 3);
    run(p);
    EXPECT_TRUE(p.files.has("/d/a"));
}

TEST_P(LastCopy, AnArchiveOfWhichAnEntryIsToGoKeepsNobody) {
    deleting p;
    p.show_files({{5, "/d/a", "/z.zip*a"}, {6, "/d/b", "/z.zip*b"}});
    p.add_zip("/z.zip", {p.stored("a", 5), p.stored("b", 6)});
    p.double_click(1, 3);
    p.double_click(2, 4);
    run(p);
    EXPECT_TRUE(p.files.has("/d/a"));
    EXPECT_EQ(p.files.content_of("/prog/winrar_del_file.txt"), "/z.zip*b\r\n");
}

TEST_P(LastCopy, AnArchiveThatIsToGoItselfKeepsNobody) {
    deleting p;
    p.show_files({{5, "/d/a", "/z.zip*a"}, {7, "/e/copy.zip", "/z.zip"}});
    p.double_click(1, 3);
    p.double_click(2, 4);
    run(p);
    EXPECT_TRUE(p.files.has("/d/a"));
    EXPECT_EQ(gone(p), texts{"/z.zip"});
}

TEST_P(LastCopy, AnEntryWithoutALivingCopyIsNotListed) {
    deleting p;
    p.show_files({{3, "/d/a", "/z.zip*a"}});
    p.files.add_file("/z.zip", "archive");
    p.files.erase("/d/a");
    p.mark(1, 4);
    run(p);
    EXPECT_FALSE(p.files.has("/prog/winrar_del_file.txt"));
    EXPECT_EQ(p.list().cell(1, 4), "/z.zip*a");
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
}

TEST_P(LastCopy, AProtectedFileThatIsTheLastKeepsItsAttributes) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.files.add_file("/e/a", "xxx").read_only = true;
    p.files.erase("/d/a");
    p.list().set_colour(1, 4, mark_blue);
    p.state.force_protected = -1;
    run(p);
    EXPECT_TRUE(p.files.attributes("/e/a").read_only);
}

TEST_P(LastCopy, MarksThatLeaveACopyGoAsTheyStand) {
    deleting p;
    std::vector<list_program::pair> pairs;
    for (int i = 0; i < 300; ++i) pairs.push_back({2, "/d/centre", "/e/" + std::to_string(1000 + i)});
    p.show_files(pairs);
    for (int row = 1; row <= 300; ++row) p.mark(row, 4);
    run(p);
    EXPECT_EQ(gone(p).size(), 300u);
    EXPECT_TRUE(p.files.has("/d/centre"));
}

TEST_P(LastCopy, ContentThatChangedAtTheSameLengthStays) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.double_click(1, 4);
    p.files.add_file("/d/a", "xyx");
    run(p);
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
    EXPECT_NE(p.last_message().find("比对后已变化 1 个"), std::string::npos);
}

TEST_P(LastCopy, AnotherEqualMemberIsFoundBehindOneThatChanged) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/1"}, {3, "/d/a", "/e/2"}});
    p.double_click(1, 4);
    p.files.add_file("/d/a", "xyx");
    run(p);
    EXPECT_EQ(gone(p), texts{"/e/1"});
    EXPECT_TRUE(p.files.has("/e/2"));
}

TEST_P(LastCopy, AFileThatIsWrittenWhileItIsComparedStays) {
    deleting p;
    p.show_files({{2'000'000, "/d/a", "/e/a"}});
    p.double_click(1, 4);
    // Yields: the row, on the way to the bin the batch, then the first MiB of both.
    p.screen.acts[p.screen.yields + (GetParam() ? 2 : 3)] = [&] {
        p.files.add_file("/e/a", std::string(2'000'000, 'x')).date_low += 1;
    };
    run(p);
    EXPECT_TRUE(p.files.has("/e/a"));
}

TEST_P(LastCopy, APathThatIsMarkedInTwoRowsGoesOnceWithBothItsCells) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/1"}, {3, "/d/a", "/e/2"}, {9, "/q/1", "/q/2"}});
    p.mark(1, 3);
    p.mark(2, 3);
    run(p);
    EXPECT_EQ(gone(p), texts{"/d/a"});
    EXPECT_EQ(p.cells(3), (texts{"", "", "/q/1"}));
    EXPECT_TRUE(p.last_message().ends_with("1 个文件\r\n 释放空间: 3")) << p.last_message();
    EXPECT_EQ(p.stored_lines("相同文件.txt"),
              (texts{"内容相同文件清单            ", " 1 ", "9", "/q/1", "/q/2"}))
        << "no dead row is stored";
}

TEST_P(LastCopy, OneArchiveByTwoPathsKeepsNoEntryOfItsOwn) {
    deleting p;
    p.show_files({{9, "/z.zip*a", "/mnt/z.zip*a"}});
    for (const char* path : {"/z.zip", "/mnt/z.zip"}) {
        p.add_zip(path, {p.stored("a", 9), p.stored("b", 5)});
        p.files.add_file(path, p.files.content_of(path)).index = 4711;
    }
    p.state.rar_tool_path = "/usr/bin/7z";
    p.mark(1, 4);
    run(p);
    EXPECT_TRUE(p.desktop.started.empty());
    EXPECT_EQ(p.list().cell(1, 4), "/mnt/z.zip*a");
    EXPECT_NE(p.last_message().find("保留 1 个文件: 最后一份 1 个"), std::string::npos);
}

TEST_P(LastCopy, TheTwoSidesOfAStackedMountAreOneFile) {
    deleting p;
    p.show_files({{3, "/upper/a", "/merged/a"}});
    for (const char* path : {"/upper/a", "/merged/a"}) {
        memory_file& file = p.files.add_file(path, "xxx");
        file.index = 4711;
        file.device = path[1] == 'u' ? 1 : 2;
        file.stacked = path[1] == 'm';
        file.modified_ns = 5;
        file.changed_ns = 6;
    }
    p.mark(1, 4);
    run(p);
    EXPECT_EQ(gone(p), texts{});
    EXPECT_NE(p.last_message().find("最后一份 1 个"), std::string::npos);
}

TEST_P(LastCopy, AnArchiveThatWasRewrittenSinceKeepsNothingItNoLongerHolds) {
    deleting p;
    p.show_files({{9, "/d/a", "/z.zip*a"}});
    p.add_zip("/z.zip", {p.stored("a", 9)});
    zip_member other = p.stored("a", 9);
    other.crc ^= 1;
    p.add_zip("/z.zip", {other});
    p.mark(1, 3);
    run(p);
    EXPECT_TRUE(p.files.has("/d/a"));
    EXPECT_NE(p.last_message().find("比对后已变化 1 个"), std::string::npos);
}

TEST(LastCopyRecycle, AKeeperThatVanishesBetweenScanAndBatchBringsTheMarkedFileBack) {
    deleting p;
    p.show_files({{3, "/d/a", "/e/a"}, {4, "/d/b", "/e/b"}});
    p.mark(1, 4);
    p.mark(2, 4);
    // Two rows, one yield each; the next yield is the batch's.
    p.screen.acts[p.screen.yields + 3] = [&] { p.files.erase("/d/a"); };
    p.run_recycle({yes, no});
    EXPECT_TRUE(p.files.has("/e/a"));
    EXPECT_EQ(p.recycled, texts{"/e/b"});
    EXPECT_EQ(p.list().cell(1, 4), "/e/a");
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
    EXPECT_EQ(p.last_message(),
              "放入回收站:1 个文件\r\n 释放空间: 4\r\n保留 1 个文件: 最后一份 1 个\r\n  /e/a");
    EXPECT_EQ(p.state.same_count, 1);
    EXPECT_EQ(p.stored_lines("相同文件.txt"),
              (texts{"内容相同文件清单            ", " 1 ", "3", "/d/a", "/e/a"}));
}

TEST(LastCopySpeed, AStarOfManyMarkedFilesIsGoneThroughOnce) {
    deleting p;
    std::vector<list_program::pair> pairs;
    for (int i = 0; i < 20'000; ++i) pairs.push_back({1, "/d/a", "/e/" + std::to_string(100'000 + i)});
    p.show_files(pairs);
    for (int row = 1; row <= 20'000; ++row) p.mark(row, 4);
    p.mark(1, 3);
    p.run_recycle({yes, no});
    EXPECT_EQ(p.recycled.size(), 20'000u);
}

}  // namespace
}  // namespace corvane
