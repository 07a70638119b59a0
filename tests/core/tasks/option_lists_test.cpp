#include "core/tasks/option_lists.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(OptionLists, DirectoriesInForceMakeTheActiveText) {
    test_program p;
    p.files.add_file("/prog/不参加搜索的目录.txt", "1/c/Windows\r\n0/c/temp\r\n1/d/temp/\r\n");
    读不参加搜索的目录(p.form);
    EXPECT_EQ(p.state.no_dirs, (column<std::string>{"1/C/WINDOWS/", "0/C/TEMP/", "1/D/TEMP/"}));
    EXPECT_EQ(p.state.no_dir_count, 3);
    EXPECT_EQ(p.state.exclude_dir_text, "/C/WINDOWS/ /D/TEMP/ ");
    EXPECT_EQ(p.state.exclude_dir_length, 21);
}

TEST(OptionLists, OnWindowsTheSeparatorIsTheBackslash) {
    test_program p('\\');
    p.files.add_file("P:\\prog\\不参加搜索的目录.txt", "1C:\\WINDOWS\r\n1D:\\TEMP\\\r\n0C:\\TEMP\r\n");
    读不参加搜索的目录(p.form);
    EXPECT_EQ(p.state.exclude_dir_text, "C:\\WINDOWS\\ D:\\TEMP\\ ");
    EXPECT_EQ(p.state.no_dirs[3], "0C:\\TEMP\\");
}

TEST(OptionLists, AnEmptyDirectoryLineIsTheSeparatorAlone) {
    test_program p;
    p.files.add_file("/prog/不参加搜索的目录.txt", "\r\n1/a\r\n");
    读不参加搜索的目录(p.form);
    EXPECT_EQ(p.state.no_dirs, (column<std::string>{"/", "1/A/"}));
    EXPECT_EQ(p.state.exclude_dir_text, "/A/ ");
}

TEST(OptionLists, AnEntryWithoutAFlagLosesItsFirstCharacter) {
    test_program p;
    p.files.add_file("/prog/不参加搜索的目录.txt", "c:\r\n1\r\n");
    读不参加搜索的目录(p.form);
    EXPECT_EQ(p.state.exclude_dir_text, "/ ") << "the second entry is 1/, in force, and names the root";
}

TEST(OptionLists, TypesKeepTheirCaseInTheArrayAndBlankLinesAreLeftOut) {
    test_program p;
    p.files.add_file("/prog/不参加比较的文件类型.txt", "1.tmp\r\n \r\n\r\n0.Bak\r\n1.日志\r\n");
    读不参加比较的文件类型(p.form);
    EXPECT_EQ(p.state.no_types, (column<std::string>{"1.tmp", "0.Bak", "1.日志"}));
    EXPECT_EQ(p.state.no_type_count, 3);
    EXPECT_EQ(p.state.exclude_type_text, ".TMP .日志 ");
    EXPECT_EQ(p.state.exclude_type_length, 13);
}

TEST(OptionLists, TheThirdListIsItsOwn) {
    test_program p;
    p.files.add_file("/prog/仅搜索的文件类型.txt", "1.jpg\n1.png");
    读仅搜索的文件类型(p.form);
    EXPECT_EQ(p.state.only_type_text, ".JPG .PNG ");
    EXPECT_EQ(p.state.only_type_length, 10);
    EXPECT_EQ(p.state.only_type_count, 2);
    EXPECT_EQ(p.state.exclude_type_length, 0);
}

TEST(OptionLists, AMissingFileIsToldAndChangesNothing) {
    test_program p;
    p.state.exclude_dir_text = "/KEPT/ ";
    p.state.no_dir_count = 1;
    p.form.run("读不参加搜索的目录");
    p.form.run("读不参加比较的文件类型");
    p.form.run("读仅搜索的文件类型");
    ASSERT_EQ(p.screen.messages.size(), 3u);
    EXPECT_EQ(p.screen.messages[0].text, "/prog/不参加搜索的目录.txt  不存在");
    EXPECT_EQ(p.screen.messages[0].title, "提示");
    EXPECT_EQ(p.screen.messages[0].help_context, 1000);
    EXPECT_EQ(p.screen.messages[1].text, "/prog/不参加比较的文件类型.txt  不存在");
    EXPECT_EQ(p.screen.messages[2].text, "/prog/仅搜索的文件类型.txt  不存在");
    EXPECT_EQ(p.state.exclude_dir_text, "/KEPT/ ");
    EXPECT_EQ(p.state.no_dir_count, 1);
}

TEST(OptionLists, ADirectoryInTheFilesPlaceIsToldWithTheSystemsWords) {
    test_program p;
    p.files.add_directory("/prog/仅搜索的文件类型.txt");
    读仅搜索的文件类型(p.form);
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_TRUE(p.last_message().starts_with("/prog/仅搜索的文件类型.txt\r\n"));
    EXPECT_FALSE(p.last_message().ends_with("\n")) << "the reason is missing";
}

std::string lines_from(int count, const std::string& prefix) {
    std::string text;
    for (int i = 1; i <= count; ++i) text += prefix + std::to_string(i) + "\r\n";
    return text;
}

TEST(OptionLists, CapacitiesAreKeptAndToldOnce) {
    test_program p;
    p.files.add_file("/prog/不参加搜索的目录.txt", lines_from(100, "1/d"));
    p.files.add_file("/prog/不参加比较的文件类型.txt", lines_from(200, "1.t"));
    读不参加搜索的目录(p.form);
    读不参加比较的文件类型(p.form);
    EXPECT_TRUE(p.screen.messages.empty());
    p.files.add_file("/prog/不参加搜索的目录.txt", lines_from(101, "1/d"));
    p.files.add_file("/prog/不参加比较的文件类型.txt", lines_from(1000, "1.t"));
    p.files.add_file("/prog/仅搜索的文件类型.txt", lines_from(201, "1.t"));
    读不参加搜索的目录(p.form);
    读不参加比较的文件类型(p.form);
    读仅搜索的文件类型(p.form);
    EXPECT_EQ(p.screen.messages.size(), 3u);
    EXPECT_EQ(p.state.no_dir_count, 100);
    EXPECT_EQ(p.state.no_dirs[100], "1/D100/");
    EXPECT_EQ(p.state.no_type_count, 200);
    EXPECT_EQ(p.state.only_type_count, 200);
    EXPECT_EQ(p.screen.messages[0].text, "/prog/不参加搜索的目录.txt\r\n只取前 100 行。");
}

TEST(OptionLists, TheWalkObeysTheListsReadAtStart) {
    test_program p;
    for (const char* path : {"/d/a.jpg", "/d/b.tmp", "/d/skip/c.jpg", "/d/keep/e.JPG"})
        p.files.add_file(path, "x");
    p.files.add_file("/prog/不参加搜索的目录.txt", "1/d/SKIP\r\n0/d/keep\r\n");
    p.files.add_file("/prog/不参加比较的文件类型.txt", "1.tmp\r\n");
    p.add_used_folder();
    p.corvane.start();
    p.search({"/d"});
    EXPECT_EQ(p.listed(), (texts{"/d/a.jpg", "/d/keep/e.JPG"}));
}

}  // namespace
}  // namespace corvane
