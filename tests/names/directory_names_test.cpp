#include <gtest/gtest.h>

#include "tests/names/name_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct directory_program : name_program {
    explicit directory_program(const texts& directories) {
        for (const std::string& path : directories) files.add_directory(path);
    }
    void check_directories(const texts& selected) { check("search_repeat_dir_name", selected); }
    texts queue() const { return {state.dir_queue.begin(), state.dir_queue.end()}; }
};

TEST(SameDirectoryName, PairsDirectoriesOfOneNameInEitherCase) {
    directory_program p({"/r/1/src", "/r/2/SRC", "/r/z"});
    p.files.add_file("/r/1/z");  // a file bears no directory's name
    p.check_directories({"/r"});
    EXPECT_EQ(p.rows(), (name_pairs{{"/r/1/src/", "/r/2/SRC/"}}));
    EXPECT_EQ(p.headers(), (texts{"", "序号", "同名目录1", "同名目录2"}));
    EXPECT_EQ(p.cells(1), (texts{"1"}));
    EXPECT_EQ(p.state.list_mode, 4);
    EXPECT_EQ(p.said(), (texts{"检查目录相同完毕|已　检　查:6 个文件 \r\n同名目录有:1个  用时: 0:0:0"}));
    EXPECT_EQ(p.screen.messages.back().help_context, 1000);
    EXPECT_EQ(p.form.StatusBar1.panel(1), "搜索目录:6");
    EXPECT_EQ(p.form.StatusBar1.panel(3), "同名目录:");
    EXPECT_EQ(p.form.StatusBar1.panel(4), "1个目录");
    EXPECT_EQ(p.form.StatusBar1.panel(7), "同名文件");
    EXPECT_EQ(p.form.Command28.caption, "取消[查同名目录]");
    EXPECT_FALSE(p.form.Command28.visible);
    EXPECT_TRUE(p.list().visible);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(SameDirectoryName, WalksLevelByLevelAndTurnsThePairsIntoOrder) {
    directory_program p({"/r/a/k", "/r/k", "/r/z/k"});
    p.check_directories({"/r"});
    EXPECT_EQ(p.queue(), (texts{"/r/", "/r/a/", "/r/k/", "/r/z/", "/r/a/k/", "/r/z/k/"}));
    // The star stands around /r/k/, the first that the walk met; the lesser path of a pair comes first.
    EXPECT_EQ(p.rows(), (name_pairs{{"/r/a/k/", "/r/k/"}, {"/r/k/", "/r/z/k/"}}));
    EXPECT_EQ(p.colours(2), (std::vector<std::uint32_t>{0, 0}));
}

TEST(SameDirectoryName, ARepeatedFirstDirectoryIsGray) {
    directory_program p({"/r/a/k", "/r/b/k", "/r/c/k", "/r/z"});
    p.check_directories({"/r"});
    EXPECT_EQ(p.rows(), (name_pairs{{"/r/a/k/", "/r/b/k/"}, {"/r/a/k/", "/r/c/k/"}}));
    EXPECT_EQ(p.colours(2), (std::vector<std::uint32_t>{0, gray}));
    EXPECT_EQ(p.colours(3), (std::vector<std::uint32_t>{0, 0}));
}

TEST(SameDirectoryName, ADirectorySelectedInsideAnotherPairsWithItself) {
    directory_program p({"/r/b"});
    p.check_directories({"/r", "/r/b"});
    EXPECT_EQ(p.queue(), (texts{"/r/", "/r/b/", "/r/b/"}));
    EXPECT_EQ(p.rows(), (name_pairs{{"/r/b/", "/r/b/"}}));
}

TEST(SameDirectoryName, TheLastKeyInOrderTakesNoPart) {
    directory_program p({"/r/a/zz", "/r/b/zz"});
    p.check_directories({"/r"});
    EXPECT_EQ(p.said(), (texts{"提示|没有相同_目录名",
                               "检查目录相同完毕|已　检　查:5 个文件 \r\n同名目录有:0个  用时: 0:0:0"}));
}

TEST(SameDirectoryName, ARootHasTheKeyOfTheWholePath) {
    directory_program p({"/r"});
    p.check_directories({"/"});
    EXPECT_EQ(p.state.name_key[1], "/");
    EXPECT_EQ(p.state.name_index[1], 1);
}

TEST(SameDirectoryName, WithoutASelectionItSaysSo) {
    directory_program p({"/r"});
    p.check_directories({});
    EXPECT_EQ(p.said(), (texts{"提示|没有选定的目录，请在[目录选择]中选定目录"}));
    EXPECT_EQ(p.screen.messages.front().help_context, 1000);
    EXPECT_EQ(p.form.StatusBar1.panel(7), "查找同名目录");
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_FALSE(p.form.Command28.visible);
}

TEST(SameDirectoryName, WithoutADirectoryItSaysSo) {
    directory_program p({"/r"});
    p.state.exclude_dir_text = "/R/ ";
    p.check_directories({"/r", " ", ""});
    EXPECT_EQ(p.said(), (texts{"提示|没有找到任何目录，请重新在[目录选择]中选定目录"}));
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_FALSE(p.form.Command28.visible);
}

TEST(SameDirectoryName, AnExcludedDirectoryIsNeitherFoundNorOpened) {
    directory_program p({"/r/a/k/k2", "/r/b/k", "/r/z/k2"});
    p.state.exclude_dir_text = "/R/A/K/ ";
    p.check_directories({"/r"});
    EXPECT_EQ(p.queue(), (texts{"/r/", "/r/a/", "/r/b/", "/r/z/", "/r/b/k/", "/r/z/k2/"}));
    EXPECT_EQ(p.state.result_count, 0);
}

TEST(SameDirectoryName, CancellingRunsToTheEndOfTheWalkAndDropsTheLastDirectory) {
    directory_program p({"/r/a/b", "/r/b", "/r/c"});
    p.select({"/r"});
    p.screen.acts[1] = [&] {  // after the first entry of /r/
        EXPECT_EQ(p.form.Command28.caption, "取消[查找同名目录]");
        EXPECT_TRUE(p.form.Command28.visible);
        p.form.run("Command28_Click");
    };
    p.form.run("search_repeat_dir_name");
    EXPECT_EQ(p.queue().size(), 5u);
    EXPECT_EQ(p.said().front(), "提示|没有相同_目录名") << "/r/a/b/ was the last, and with it went the pair";
    EXPECT_TRUE(p.last_message().starts_with("已　检　查:4 个文件 \r\n"));
}

TEST(SameDirectoryName, ACancelledWalkOfOneDirectoryEndsWithoutAWord) {
    directory_program p({"/r"});
    p.files.add_file("/r/f");
    p.select({"/r"});
    p.screen.acts[1] = [&] { p.form.run("Command28_Click"); };
    p.form.run("search_repeat_dir_name");
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_FALSE(p.form.Command28.visible);
}

TEST(SameDirectoryName, ShowsTheDirectoryInWorkIfTheOptionIsOn) {
    directory_program p({"/r/a", "/r/b"});
    p.state.show_run_filename = 1;
    p.form.pic_gressbar1.place.width = 777;
    p.select({"/r"});
    p.screen.acts[2] = [&] {  // after the entry /r/b, of which Label4 knows next
        EXPECT_TRUE(p.form.Label4.visible);
        EXPECT_EQ(p.form.Label4.place.width, 777);
        EXPECT_EQ(p.form.Label4.caption, "目录数:2  /r/");
    };
    p.form.run("search_repeat_dir_name");
    EXPECT_EQ(p.form.Label4.caption, "目录数:3  /r/");
    EXPECT_FALSE(p.form.Label4.visible);
}

TEST(SameDirectoryName, AMissingDirectoryGivesNoEntriesAndNoWord) {
    directory_program p({"/r/a/k", "/r/b/k", "/r/z"});
    p.check_directories({"/gone", "/r"});
    EXPECT_EQ(p.state.result_count, 1);
    EXPECT_EQ(p.screen.messages.size(), 1u);
}

TEST(SameDirectoryName, LinksToDirectoriesComeLastAndOnce) {
    directory_program p({"/r/a/k", "/other/sub", "/r/z"});
    p.files.add_link("/r/k", "/other");
    p.files.add_link("/r/again", "/other");
    p.files.add_link("/r/loop", "/r");
    p.check_directories({"/r"});
    // Of the two links to one place the walk takes the one that it meets first, by name here.
    EXPECT_EQ(p.queue(), (texts{"/r/", "/r/a/", "/r/z/", "/r/a/k/", "/r/again/", "/r/again/sub/"}));
}

TEST(SameDirectoryName, TheListOfASearchIsUsedUpByThePairsAndOnlyByThem) {
    directory_program p({"/r/a/k", "/r/b/k", "/r/z"});
    p.files.add_file("/r/f", "text");
    p.files.add_file("/r/g", "text");
    p.search({"/r/z"});
    p.search({"/r"});
    p.state.limits.result_rows = 0;
    p.form.run("search_repeat_dir_name");
    EXPECT_EQ(p.listed(), (texts{"/r/f", "/r/g"})) << "without a pair the list stays";
    EXPECT_EQ(p.state.file_list_loaded, -1);
    p.state.limits.result_rows = 10;
    p.form.run("search_repeat_dir_name");
    EXPECT_EQ(p.state.file_list_loaded, 0);
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.stored_pairs(), (texts{"4 /r/f /r/g"}));
}

TEST(SameDirectoryName, RecordsTheRunWithTheFileCountAsItStands) {
    directory_program p({"/r/a/k", "/r/b/k", "/r/z"});
    p.state.file_count = 41;
    p.screen.seconds_per_yield = 1;  // five entries, the scan, a row
    p.check_directories({"/r"});
    EXPECT_EQ(p.stored_lines("run_time_rem.txt"), (texts{"41,7"}));
}

TEST(SameDirectoryName, StopsAtTheLimitOfDirectoriesAndSaysSo) {
    directory_program p({"/r/a", "/r/b", "/r/c"});
    p.state.limits.directories = 3;
    p.check_directories({"/r"});
    EXPECT_EQ(p.queue(), (texts{"/r/", "/r/a/", "/r/b/"}));
    EXPECT_EQ(p.said().front(), "提示|目录太多，只查前 3 个目录。");
    EXPECT_FALSE(p.screen.messages.front().failure);
}

TEST(SameDirectoryName, PathsToBeOpenedAreUpperCasedWhereTheDiskIgnoresCaseAlone) {
    test_program p('\\');
    p.files.add_directory("D:\\TOP\\one\\k");
    p.files.add_directory("D:\\TOP\\two\\K");
    p.files.add_directory("D:\\TOP\\z");
    p.select({" d:\\top "});
    p.form.run("search_repeat_dir_name");
    EXPECT_EQ(p.form.ListView1.cell(1, 2), "D:\\TOP\\one\\k\\");
    EXPECT_EQ(p.form.ListView1.cell(1, 3), "D:\\TOP\\two\\K\\");

    directory_program q({"/Top/k", "/Top/K", "/Top/z"});
    q.check_directories({"/Top"});
    EXPECT_EQ(q.rows(), (name_pairs{{"/Top/K/", "/Top/k/"}}));
}

TEST(SameDirectoryName, ClosingTheProgramEndsTheWalk) {
    directory_program p({"/r/a/b", "/r/b"});
    p.select({"/r"});
    p.screen.acts[1] = [&] { p.corvane.close(); };
    p.form.run("search_repeat_dir_name");
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_EQ(p.queue(), (texts{"/r/"}));
}

}  // namespace
}  // namespace corvane
