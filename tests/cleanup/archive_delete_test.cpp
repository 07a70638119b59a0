// Entries of archives that go through an outside tool: which runs there are, with which names, and what the
// tool is never asked for.
#include "cleanup/archive_delete.h"

#include <gtest/gtest.h>

#include <map>

#include "cleanup/archive_tool.h"
#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

constexpr char list_path[] = "/prog/delrarfile.txt";
constexpr char tool[] = "/usr/bin/7zz";

// A program with a tool that writes down its lists and takes the members out of ZIP archives of stored files.
struct archive_deleting : deleting {
    archive_deleting() {
        state.rar_tool_path = tool;
        desktop.on_start = [this](const texts& arguments) {
            lists.push_back(stored_lines("delrarfile.txt"));
            const std::string archive = arguments[arguments.size() - 2];
            for (const std::string& line : lists.back())
                if (tool_works)
                    std::erase_if(archives[archive],
                                  [&](const zip_member& each) { return each.name == line; });
            if (tool_works) add_zip(archive, archives[archive]);
            return true;
        };
    }
    void put_zip(const std::string& path, const std::vector<zip_member>& members) {
        archives[path] = members;
        add_zip(path, members);
    }
    // A pair of a file on the disk and an entry, for each entry that is given, all marked.
    void show_entries(const texts& entries) {
        std::vector<pair> pairs;
        for (const std::string& entry : entries)
            pairs.push_back({9, "/disk/" + std::to_string(pairs.size() + 1), entry});
        show_files(pairs);
        for (std::size_t row = 1; row <= entries.size(); ++row) mark(static_cast<std::int32_t>(row), 4);
    }
    // Marks the one entry `name` of an archive of these names, and deletes.
    void delete_one(const std::string& name, const std::vector<zip_member>& members) {
        put_zip("/z.zip", members);
        show_entries({"/z.zip*" + name});
        run_recycle();
    }
    texts command(const std::string& archive) {
        return {tool, "d", "-spd", archive, "@/prog/delrarfile.txt"};
    }

    std::map<std::string, std::vector<zip_member>> archives;
    std::vector<texts> lists;  // of each run
    bool tool_works = true;
};

zip_member nine(const std::string& name) {
    return deleting::stored(name, 9);
}

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

TEST(ArchiveDelete, ARarIsNotAskedForNamesThatItReadsAsPatterns) {
    archive_deleting p;
    p.desktop.programs = {{"rar", "/usr/bin/rar"}};
    const auto named = [](const char* name) {
        return rar_block{.name = name, .crc = nine("").crc, .size = 9};
    };
    p.files.add_file("/r.rar", rar_image({named("a?"), named("b*"), named("c")}));
    p.tool_works = false;
    p.show_entries({"/r.rar*a?", "/r.rar*b\xEF\x80\xAA", "/r.rar*c"});
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_EQ(p.lists, (std::vector<texts>{{"c"}}));
    EXPECT_EQ(p.cells(4), (texts{"/r.rar*a?", "/r.rar*b\xEF\x80\xAA", ""}));
}

TEST(ArchiveDelete, A7zTakesPatternLettersAsTheyStand) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a?"), nine("b*"), nine("bc")});
    p.show_entries({"/z.zip*a?", "/z.zip*b\xEF\x80\xAA"});
    p.run_recycle();
    EXPECT_EQ(p.lists, (std::vector<texts>{{"a?", "b*"}}));
}

// Names that a list of 7z means something else by.
class NotLiteral : public testing::TestWithParam<const char*> {};
INSTANTIATE_TEST_SUITE_P(Names, NotLiteral,
                         testing::Values(" a", "a ", "\"a\"", "./a", "d/../a", "..", "/a", "d//a", "d/",
                                         "\\a", "a\x7F",
                                         "\xEF\xBB\xBF"
                                         "a",
                                         "\xEF\x80\x81"
                                         "a",
                                         "\xEF\xBF\xBD"));

TEST_P(NotLiteral, IsLeftAlone) {
    archive_deleting p;
    zip_member member = nine(GetParam());
    member.flags = 0x800;
    p.put_zip("/z.zip", {member, nine("other")});
    archive_contents contents(p.form, "/z.zip");
    ASSERT_EQ(contents.members().size(), 2u);
    const std::string before = p.files.content_of("/z.zip");
    p.show_entries({"/z.zip*" + contents.members()[0].name});
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_TRUE(p.desktop.started.empty());
    EXPECT_EQ(p.files.content_of("/z.zip"), before);
    EXPECT_EQ(p.list().cell(1, 4), "/z.zip*" + contents.members()[0].name);
    EXPECT_EQ(p.list().colour(1, 4), mark_blue);
    EXPECT_NE(p.last_message().find("压缩包内仍有:1个"), std::string::npos);
    EXPECT_NE(p.last_message().find("无法删除:1 个文件"), std::string::npos);
}

TEST(ArchiveDelete, AFileThatIsNamedAsADirectoryOfOthersStays) {
    archive_deleting p;
    p.delete_one("d", {nine("d"), nine("d/a")});
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ArchiveDelete, AFileThatIsNamedAsAnEmptyDirectoryStays) {
    archive_deleting p;
    p.delete_one("d", {nine("d"), {.name = "d/"}});
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ArchiveDelete, TwoMembersOfOneNameStay) {
    archive_deleting p;
    p.delete_one("a", {nine("a"), nine("a"), nine("b")});
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ArchiveDelete, AMemberThatTheToolMeetsUnderTheSameNameKeepsBoth) {
    for (const char* other : {"./a", "a ", "/a", "a/"}) {
        archive_deleting p;
        p.delete_one("a", {nine("a"), nine(other)});
        EXPECT_TRUE(p.desktop.started.empty()) << other;
    }
    archive_deleting p;
    zip_member other = nine("q");
    other.extra = zip_unicode_name("q", "a");
    p.delete_one("a", {nine("a"), other});
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ArchiveDelete, AChineseNameGoesInTheFormThatTheArchiveHas) {
    archive_deleting p;
    zip_member member = nine("目录/文件.txt");
    member.flags = 0x800;
    p.put_zip("/z.zip", {member, nine("other")});
    archive_contents contents(p.form, "/z.zip");
    // Names are read in code page 936, whatever the flag says.
    const std::string read = contents.members()[0].name;
    ASSERT_NE(read, member.name);
    p.show_entries({"/z.zip*" + read});
    p.run_recycle();
    EXPECT_EQ(p.lists, (std::vector<texts>{{"目录/文件.txt"}}));
    EXPECT_EQ(p.state.archive_del_count, 1);
}

TEST(ArchiveDelete, ANameOfTheCodePageGoesOnlyWithItsUnicodeForm) {
    const std::string gbk = "\xD6\xD0\xCE\xC4";
    {
        archive_deleting p;
        zip_member member = nine(gbk);
        member.extra = zip_unicode_name(gbk, "中文");
        p.delete_one("中文", {member, nine("other")});
        EXPECT_EQ(p.lists, (std::vector<texts>{{"中文"}}));
    }
    archive_deleting p;
    p.delete_one("中文", {nine(gbk), nine("other")});
    EXPECT_TRUE(p.desktop.started.empty()) << "7z cannot be told";
    p.state.force_protected = 0;
    archive_deleting q;
    zip_member stale = nine(gbk);
    stale.extra = zip_unicode_name("another name", "中文");
    q.delete_one("中文", {stale, nine("other")});
    EXPECT_TRUE(q.desktop.started.empty()) << "a form of another name is not taken";
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
    EXPECT_EQ(p.list().colour(1, 4), mark_blue);
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

TEST(ArchiveDelete, AnEntryGoesForItsTwinInTheSameArchive) {
    archive_deleting p;
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.show_files({{9, "/z.zip*a", "/z.zip*b"}});
    p.mark(1, 4);
    p.run_recycle();
    EXPECT_EQ(p.lists, (std::vector<texts>{{"b"}}));
    // But not both of them.
    p.show_files({{9, "/z.zip*a", "/z.zip*b"}});
    p.put_zip("/z.zip", {nine("a"), nine("b")});
    p.mark(1, 3);
    p.mark(1, 4);
    p.run_recycle({box_answer::yes, box_answer::no});
    EXPECT_EQ(p.archives["/z.zip"].size(), 1u);
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
    p.screen.acts[6] = [&] { p.state.quit_requested = -1; };
    p.run_recycle();
    EXPECT_EQ(p.desktop.started.size(), 1u);
    EXPECT_EQ(p.screen.yields, 6);
    EXPECT_EQ(p.files.content_of(list_path), "1\r\n") << "the tool may still read it";
    EXPECT_EQ(p.screen.messages.size(), 1u) << "no report";
}

TEST(FindRarTool, TakesTheFirstThatIsInstalled) {
    test_program p;
    std::string found = "old";
    p.desktop.programs = {{"rar", "/opt/rar"}, {"7za", "/usr/bin/7za"}, {"7z", "/usr/bin/7z"}};
    find_rar_tool(p.form, "d:\\x.exe", "winrar.exe", found);
    EXPECT_EQ(found, "/usr/bin/7z");
    p.desktop.programs["7zz"] = "/bin/7zz";
    find_rar_tool(p.form, "d:\\x.exe", "winrar.exe", found);
    EXPECT_EQ(found, "/bin/7zz");
    p.desktop.programs = {{"rar", "/opt/rar"}};
    find_rar_tool(p.form, "d:\\x.exe", "winrar.exe", found);
    EXPECT_EQ(found, "/opt/rar");
    p.desktop.programs.clear();
    find_rar_tool(p.form, "d:\\x.exe", "winrar.exe", found);
    EXPECT_EQ(found, "");
}

TEST(FindRarTool, OnWindowsIsTheRegisteredProgramOrTheDefaultPath) {
    test_program p('\\');
    std::string found;
    find_rar_tool(p.form, "d:\\x\\x.exe", "winrar.exe", found);
    EXPECT_EQ(found, "");
    p.files.add_file("d:\\x\\x.exe");
    find_rar_tool(p.form, "d:\\x\\x.exe", "winrar.exe", found);
    EXPECT_EQ(found, "d:\\x\\x.exe");
    p.desktop.programs = {{"winrar.exe", "c:\\w\\winrar.exe"}, {"7z", "c:\\7z.exe"}};
    find_rar_tool(p.form, "d:\\x\\x.exe", "winrar.exe", found);
    EXPECT_EQ(found, "c:\\w\\winrar.exe");
}

TEST(FindRarTool, TheStartOverridesWhatTheSettingsSay) {
    test_program p;
    texts lines = fresh_settings_lines();
    lines[55] = "/somewhere/else";
    p.add_used_folder(lines);
    p.desktop.programs = {{"7za", "/usr/bin/7za"}};
    p.corvane.start();
    EXPECT_EQ(p.state.rar_tool_path, "/usr/bin/7za");
    p.form.run("写Tavrel环境文件");
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[55], "/usr/bin/7za");
}

}  // namespace
}  // namespace corvane
