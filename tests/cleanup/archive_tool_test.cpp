// Which tool is taken, and which names it is asked for.
#include "cleanup/archive_tool.h"

#include <gtest/gtest.h>

#include "tests/cleanup/archive_deleting.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

TEST(ToolNames, ARarIsNotAskedForNamesThatItReadsAsPatterns) {
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

TEST(ToolNames, A7zTakesPatternLettersAsTheyStand) {
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
    EXPECT_EQ(p.list().colour(1, 4), mark_red) << "a second run could do no more";
    EXPECT_NE(p.last_message().find("压缩包内仍有:1个"), std::string::npos);
    EXPECT_EQ(p.last_message().find("无法删除"), std::string::npos);
}

TEST(ToolNames, AFileThatIsNamedAsADirectoryOfOthersStays) {
    archive_deleting p;
    p.delete_one("d", {nine("d"), nine("d/a")});
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ToolNames, AFileThatIsNamedAsAnEmptyDirectoryStays) {
    archive_deleting p;
    p.delete_one("d", {nine("d"), {.name = "d/"}});
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ToolNames, TwoMembersOfOneNameStay) {
    archive_deleting p;
    p.delete_one("a", {nine("a"), nine("a"), nine("b")});
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ToolNames, AMemberThatTheToolMeetsUnderTheSameNameKeepsBoth) {
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

TEST(ToolNames, AnArchiveOfWhichTheEndRecordsDisagreeIsNotTouched) {
    // A second directory and end record in the comment: other tools may read the first.
    const std::string inner = zip_image({nine("a"), nine("b")});
    const std::string whole = zip_image({nine("a"), nine("b")}, "comment");
    const auto started = [](const std::string& bytes) {
        archive_deleting p;
        p.show_entries({"/z.zip*a"});
        p.files.add_file("/z.zip", bytes);
        p.tool_works = false;
        p.run_recycle({box_answer::yes, box_answer::no});
        return p.desktop.started.size();
    };
    EXPECT_EQ(started(inner), 1u);
    EXPECT_EQ(started(whole), 1u);
    EXPECT_EQ(started(inner + "trailing bytes, of which no comment speaks"), 0u);
    std::string fewer = inner;
    fewer.replace(fewer.size() - 12, 2, low_bytes(1, 2));
    EXPECT_EQ(started(fewer), 0u) << "the end record counts one";
    // The end record that is met at the directory's end names another directory than the one in the comment.
    std::string other = zip_image({nine("a"), nine("b")}, std::string(22, 'c'));
    const std::string fake = other.substr(other.size() - 44, 20) + low_bytes(0, 2);
    other.replace(other.size() - 22, 22, fake);
    EXPECT_EQ(started(other), 1u) << "both name the same";
    other.replace(other.size() - 44 + 16, 4, low_bytes(7, 4));
    EXPECT_EQ(started(other), 0u);
}

TEST(ToolNames, AUnicodeFormOfAnUnknownVersionIsNotTaken) {
    archive_deleting p;
    const std::string gbk = "\xD6\xD0\xCE\xC4";
    zip_member member = nine(gbk);
    member.extra = zip_unicode_name(gbk, "中文");
    member.extra[4] = '\x81';
    p.delete_one("中文", {member, nine("other")});
    EXPECT_TRUE(p.desktop.started.empty());
}

TEST(ToolNames, AnArchiveWithAZeroByteInANameIsNotTouched) {
    archive_deleting p;
    p.delete_one("a", {nine("a"), nine(std::string("b\0c", 3))});
    EXPECT_TRUE(p.desktop.started.empty()) << "the other name would be cut";
    archive_deleting q;
    zip_member other = nine(std::string("b\0c", 3));
    other.extra = zip_unicode_name(other.name, "d");
    q.delete_one("a", {nine("a"), other});
    EXPECT_TRUE(q.desktop.started.empty());
}

TEST(ToolNames, AChineseNameGoesInTheFormThatTheArchiveHas) {
    archive_deleting p;
    zip_member member = nine("目录/文件.txt");
    member.flags = 0x800;
    p.put_zip("/z.zip", {member, nine("other")});
    archive_contents contents(p.form, "/z.zip");
    const std::string read = contents.members()[0].name;
    ASSERT_EQ(read, member.name);
    p.show_entries({"/z.zip*" + read});
    p.run_recycle();
    EXPECT_EQ(p.lists, (std::vector<texts>{{"目录/文件.txt"}}));
    EXPECT_EQ(p.state.archive_del_count, 1);
}

TEST(ToolNames, ANameOfTheCodePageGoesOnlyWithItsUnicodeForm) {
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

TEST(ToolNames, AnArchiveOfMoreMembersThanTheListMayHoldIsNotTouched) {
    archive_deleting p;
    p.state.limits.files = 2;
    p.delete_one("a", {nine("a"), nine("b"), nine("c")});
    EXPECT_TRUE(p.desktop.started.empty());
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
