// Entries of archives that go through an outside tool: which runs there are, with which names, and what the
// tool is never asked for.
#include "cleanup/archive_delete.h"

#include <gtest/gtest.h>

#include "tests/cleanup/archive_deleting.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

constexpr char list_path[] = "/prog/delrarfile.txt";

TEST(ArchiveDelete, TwoEntriesOfOneArchiveGoInOneRun) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("in/a"), nine("b"), nine("c")});
    p.show_entries({"/z.zip*in/a", "/z.zip*b"});
    p.run_recycle();
    EXPECT_EQ(p.desktop.started, (std::vector<texts>{p.command("/z.zip")}));
    EXPECT_EQ(p.lists, (std::vector<texts>{{"in/a", "b"}}));
    EXPECT_EQ(p.archives["/z.zip"].size(), 1u);
    EXPECT_EQ(p.state.archive_del_count, 2);
    EXPECT_EQ(p.cells(4), (texts{"", ""}));
    EXPECT_EQ(p.last_message(), "放入回收站:0 个文件\r\n 释放空间: \r\n删除压缩包内文件:2个");
    EXPECT_EQ(p.state.same_count, 0);
    EXPECT_TRUE(p.files.removed.empty());
}

TEST(ArchiveDelete, AnArchiveWhoseEntriesDoNotStandTogetherTakesSeveralRuns) {
    archive_deleting p;
    p.put_zip("/a.zip", {nine("1"), nine("2"), nine("stays")});
    p.put_zip("/b.zip", {nine("1"), nine("stays")});
    p.show_entries({"/a.zip*1", "/b.zip*1", "/a.zip*2"});
    p.run_recycle();
    EXPECT_EQ(p.desktop.started,
              (std::vector<texts>{p.command("/a.zip"), p.command("/b.zip"), p.command("/a.zip")}));
    EXPECT_EQ(p.lists, (std::vector<texts>{{"1"}, {"1"}, {"2"}}));
    EXPECT_EQ(p.archives["/a.zip"].size() + p.archives["/b.zip"].size(), 2u);
}

TEST(ArchiveDelete, TheListIsEmptyAfterTheLastRunAndTheListOfMarksStays) {
    archive_deleting p;
    p.delete_one("a", {nine("a")});
    EXPECT_EQ(p.files.content_of(list_path), "");
    EXPECT_EQ(p.files.content_of("/prog/winrar_del_file.txt"), "/z.zip*a\r\n");
}

TEST(ArchiveDelete, WithoutAMarkedEntryNeitherListIsTouched) {
    archive_deleting p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.mark(1, 4);
    p.run_recycle();
    EXPECT_FALSE(p.files.has(list_path));
    EXPECT_FALSE(p.files.has("/prog/winrar_del_file.txt"));
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ArchiveDelete, TheCountOfMarksGrowsOverTheRunsAndOldLinesAreNotReadAgain) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a"), nine("b"), nine("c")});
    p.show_entries({"/z.zip*a", "/z.zip*b"});
    p.run_recycle();
    p.show_entries({"/z.zip*c"});
    p.run_recycle();
    EXPECT_EQ(p.state.archive_mark_count, 3);
    EXPECT_EQ(p.lists, (std::vector<texts>{{"a", "b"}, {"c"}}));
    EXPECT_EQ(p.state.archive_del_count, 1);
}

TEST(ArchiveDelete, WithoutAToolNothingRunsAndTheCellsAreBlankAllTheSame) {
    for (const std::string path : {"", "7z"}) {
        archive_deleting p;
        p.state.rar_tool_path = path;
        p.put_zip("/z.zip", {nine("a"), nine("b")});
        p.show_entries({"/z.zip*a", "/z.zip*b"});
        const std::string before = p.files.content_of("/z.zip");
        p.run_recycle();
        EXPECT_TRUE(p.desktop.started.empty());
        EXPECT_EQ(p.state.archive_del_count, 0);
        EXPECT_EQ(p.cells(4), (texts{"", ""}));
        EXPECT_EQ(p.list().colour(2, 4), mark_blue) << "the cell in hand";
        EXPECT_EQ(p.files.content_of("/z.zip"), before);
        EXPECT_EQ(p.last_message(), "放入回收站:0 个文件\r\n 释放空间: \r\n压缩包内仍有:2个 (/z.zip*a 等)");
        EXPECT_EQ(p.state.same_count, 2);
    }
}

TEST(ArchiveDelete, OnTheDirectRoadAMissingToolCountsAsOneThatCouldNotGo) {
    archive_deleting p;
    p.state.rar_tool_path.clear();
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.show_entries({"/z.zip*a", "/z.zip*b"});
    p.run_direct({box_answer::yes, box_answer::no});
    EXPECT_NE(p.last_message().find("无法删除:1 个文件"), std::string::npos);
}

TEST(ArchiveDelete, AToolThatCannotBeStartedEndsTheRuns) {
    archive_deleting p;
    p.desktop.on_start = [](const texts&) { return false; };
    p.put_zip("/a.zip", {nine("1")});
    p.put_zip("/b.zip", {nine("1")});
    p.show_entries({"/a.zip*1", "/b.zip*1"});
    p.run_recycle();
    EXPECT_EQ(p.desktop.started.size(), 1u);
    EXPECT_EQ(p.state.archive_del_count, 0);
    EXPECT_NE(p.last_message().find("压缩包内仍有:2个"), std::string::npos);
}

TEST(ArchiveDelete, ARarGoesToRarWhereItIsInstalled) {
    archive_deleting p;
    p.desktop.programs = {{"rar", "/usr/bin/rar"}};
    const rar_block member{.name = "dir\\a", .crc = nine("").crc, .size = 9};
    p.files.add_file("/r.RAR", rar_image({member}));
    p.tool_works = false;
    p.show_entries({"/r.RAR*dir\\a"});
    p.run_recycle();
    EXPECT_EQ(p.desktop.started,
              (std::vector<texts>{{"/usr/bin/rar", "d", "/r.RAR", "@/prog/delrarfile.txt"}}));
    EXPECT_EQ(p.lists, (std::vector<texts>{{"dir\\a"}})) << "as it was read";
}

TEST(ArchiveDelete, WithoutRarTheRarStaysAndTheZipGoes) {
    archive_deleting p;
    p.files.add_file("/r.rar", rar_image({{.name = "a", .crc = nine("").crc, .size = 9}}));
    p.put_zip("/z.zip", {nine("a")});
    p.show_entries({"/r.rar*a", "/z.zip*a"});
    p.run_recycle();
    EXPECT_EQ(p.desktop.started, (std::vector<texts>{p.command("/z.zip")}));
    EXPECT_EQ(p.state.archive_del_count, 1);
    EXPECT_NE(p.last_message().find("压缩包内仍有:1个 (/r.rar*a)"), std::string::npos);
}

TEST(ArchiveDelete, AnArchiveWhoseDirectoryIsNotReadToItsEndStaysAsItIs) {
    archive_deleting p;
    p.delete_one("a", {nine("a"), nine(std::string(513, 'n')), nine("b")});
    EXPECT_TRUE(p.desktop.started.empty()) << "what stands behind a name too long is not known";
}

TEST(ArchiveDelete, AToolIsNeverStartedForAnArchiveThatIsNotThere) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a")});
    p.show_entries({"/z.zip*a"});
    // Gone between the scan, which takes the first yield, and the run.
    p.screen.acts[2] = [&] { p.files.erase("/z.zip"); };
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_TRUE(p.desktop.started.empty());
    EXPECT_FALSE(p.files.has("/z.zip"));
    EXPECT_EQ(p.last_message().find("压缩包内仍有"), std::string::npos);
}

TEST(ArchiveDelete, AnArchiveThatChangesBeforeTheRunIsLeftAlone) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.show_entries({"/z.zip*a"});
    p.screen.acts[2] = [&] { p.put_zip("/z.zip", {nine("a"), nine("b"), nine("a")}); };
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_TRUE(p.desktop.started.empty());
    EXPECT_EQ(p.list().cell(1, 4), "/z.zip*a");
}

TEST(ArchiveDelete, AnEntryStaysWhenItsTwinHasAnotherContentByNow) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.show_entries({"/z.zip*a", "/z.zip*b"});
    p.files.add_file("/disk/1", "123456789");
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_EQ(p.lists, (std::vector<texts>{{"b"}}));
    EXPECT_EQ(p.cells(4), (texts{"/z.zip*a", ""}));
    EXPECT_EQ(p.list().colour(1, 4), mark_red);
    EXPECT_NE(p.last_message().find("保留 1 个文件: 比对后已变化 1 个\r\n  /z.zip*a"), std::string::npos);
}

TEST(ArchiveDelete, OfTwinsThatAreBothMarkedTheFileOnTheDiskStays) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a")});
    p.show_entries({"/z.zip*a"});
    p.mark(1, 3);
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_EQ(p.recycled, texts{});
    EXPECT_EQ(p.archives["/z.zip"].size(), 0u);
    EXPECT_TRUE(p.files.has("/disk/1"));
}

TEST(ArchiveDelete, ATwinInAnArchiveThatIsChangedKeepsNoEntry) {
    archive_deleting p;
    p.put_zip("/y.zip", {nine("a"), nine("b")});
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.show_files({{9, "/y.zip*a", "/y.zip*b"}, {9, "/z.zip*a", "/disk/1"}});
    p.mark(1, 4);
    p.mark(2, 3);
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_EQ(p.desktop.started, (std::vector<texts>{p.command("/z.zip")}));
    EXPECT_EQ(p.cells(4), (texts{"/y.zip*b", "/disk/1"}));
}

TEST(ArchiveDelete, ATwinInAnotherArchiveKeepsAnEntryAndItsArchiveFromChange) {
    archive_deleting p;
    p.put_zip("/y.zip", {nine("a"), nine("b")});
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.show_files({{9, "/y.zip*a", "/z.zip*a"}});
    p.mark(1, 4);
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_EQ(p.lists, (std::vector<texts>{{"a"}}));
    EXPECT_EQ(p.archives["/y.zip"].size(), 2u);
    // Of another checksum by now.
    zip_member other = nine("a");
    other.crc ^= 1;
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.put_zip("/y.zip", {other, nine("b")});
    p.show_files({{9, "/y.zip*a", "/z.zip*a"}});
    p.mark(1, 4);
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_EQ(p.archives["/z.zip"].size(), 2u);
}

TEST(ArchiveDelete, ALineThatNoMarkWroteIsNotDeleted) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.state.archive_mark_count = 7;  // of earlier runs
    p.show_entries({"/z.zip*a"});
    p.files.on_commit = [&](const std::string& path) {
        if (path == "/prog/winrar_del_file.txt") p.files.add_file(path, "/z.zip*a\r\n/z.zip*b\r\n");
    };
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_EQ(p.lists, (std::vector<texts>{{"a"}}));
}

TEST(ArchiveDelete, AToolThatFailsLeavesTheArchiveAndTheReportSaysWhatIsInIt) {
    archive_deleting p;
    p.tool_works = false;
    p.delete_one("a", {nine("a"), nine("b")});
    EXPECT_EQ(p.desktop.started.size(), 1u);
    EXPECT_EQ(p.cells(4), texts{""});
    EXPECT_EQ(p.last_message(),
              "放入回收站:0 个文件\r\n 释放空间: \r\n删除压缩包内文件:1个\r\n压缩包内仍有:1个 (/z.zip*a)");
}

TEST(ArchiveDelete, AnArchiveThatIsEmptyAfterwardsHasNothingLeft) {
    archive_deleting p;
    p.delete_one("a", {nine("a")});
    EXPECT_EQ(p.files.content_of("/z.zip").size(), 22u);
    EXPECT_EQ(p.last_message().find("压缩包内仍有"), std::string::npos);
}

TEST(ArchiveDelete, AnArchiveThatTheToolWroteAnewIsOpenToNobodyElse) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.files.modes["/z.zip"] = 0600;
    const auto work = p.desktop.on_start;
    p.desktop.on_start = [&](const texts& arguments) {
        p.files.modes["/z.zip"] = 0644;
        return work(arguments);
    };
    p.show_entries({"/z.zip*a"});
    p.run_recycle();
    EXPECT_EQ(p.archives["/z.zip"].size(), 1u);
    EXPECT_EQ(p.files.modes["/z.zip"], 0600u);
}

TEST(ArchiveDelete, TheToolIsWaitedForAndThePanelTellsOfIt) {
    archive_deleting p;
    p.desktop.waits_for_process = 3;
    std::string panel;
    bool list_stands = false;
    p.put_zip("/z.zip", {nine("a")});
    p.show_entries({"/z.zip*a"});
    // Yields 1 and 2 are the scan's and the comparison's.
    p.screen.acts[5] = [&] {
        panel = p.form.StatusBar1.panel(5);
        list_stands = p.files.content_of(list_path) == "a\r\n";
    };
    p.run_recycle();
    EXPECT_EQ(panel, "删除压缩包内文件:1");
    EXPECT_TRUE(list_stands) << "until the tool has ended";
    EXPECT_EQ(p.files.content_of(list_path), "");
}

TEST(ArchiveDelete, AProgramThatClosesWaitsNoLongerAndStartsNoOtherRun) {
    archive_deleting p;
    p.desktop.waits_for_process = 1000;
    p.put_zip("/a.zip", {nine("1")});
    p.put_zip("/b.zip", {nine("1")});
    p.show_entries({"/a.zip*1", "/b.zip*1"});
    // The yields of showing the rows are over; one for each row, then the tool's.
    const std::int64_t before = p.screen.yields;
    p.screen.acts[before + 4] = [&] { p.state.quit_requested = -1; };
    p.run_recycle();
    EXPECT_EQ(p.desktop.started.size(), 1u);
    EXPECT_EQ(p.screen.yields, before + 4);
    EXPECT_EQ(p.files.content_of(list_path), "1\r\n") << "the tool may still read it";
    EXPECT_EQ(p.screen.messages.size(), 1u) << "no report";
}

}  // namespace
}  // namespace corvane
