#include <gtest/gtest.h>

#include <random>

#include "core/tasks/task_scope.h"
#include "tests/names/name_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(NameView, WhereTheCentreIsGoneItsPartnerBecomesTheCentre) {
    name_program p({"/d/1", "/d/2", "/d/3"});
    p.hold({{"/d/c", "/d/1"}, {"/d/c", "/d/2"}, {"/d/c", "/d/3"}});
    show_same_names(p.form);
    EXPECT_EQ(p.rows(), (name_pairs{{"/d/1", "/d/2"}, {"/d/1", "/d/3"}}));
    EXPECT_EQ(p.cells(1), (texts{"1", "2"})) << "the running number of the rows kept";
    EXPECT_EQ(p.cells(2), (texts{"1", "1"}));
    EXPECT_EQ(p.colours(3), (std::vector<std::uint32_t>{0, gray}));
    EXPECT_EQ(p.state.result_file1[2], "/d/1");
}

TEST(NameView, TheNextPartnerFollowsWhereThePartnerIsGoneToo) {
    name_program p({"/d/2", "/d/3", "/d/4"});
    p.hold({{"/d/c", "/d/1"}, {"/d/c", "/d/2"}, {"/d/c", "/d/3"}, {"/d/c", "/d/4"}});
    show_same_names(p.form);
    EXPECT_EQ(p.rows(), (name_pairs{{"/d/2", "/d/3"}, {"/d/2", "/d/4"}}));
}

TEST(NameView, ARowWhoseSecondFileIsGoneIsDropped) {
    name_program p({"/d/c", "/d/2"});
    p.hold({{"/d/c", "/d/1"}, {"/d/c", "/d/2"}});
    show_same_names(p.form);
    EXPECT_EQ(p.rows(), (name_pairs{{"/d/c", "/d/2"}}));
    EXPECT_EQ(p.colours(3), (std::vector<std::uint32_t>{gray}))
        << "it repeats the file of the row that was dropped";
}

TEST(NameView, AFreshResultIsShownWhole) {
    name_program p;
    p.hold({{"/d/c", "/d/x.zip*a*00000000*1"}, {"/d/c", "/d/1"}});
    p.state.same_fresh_flag = -1;
    show_same_names(p.form);
    EXPECT_EQ(p.list().row_count(), 2);
    EXPECT_EQ(p.state.same_fresh_flag, 0);
}

TEST(NameView, AnArchiveMemberIsNoFileUnlessFresh) {
    name_program p({"/d/c", "/d/x.zip"});
    p.hold({{"/d/c", "/d/x.zip*a*00000000*1"}});
    show_same_names(p.form);
    EXPECT_EQ(p.list().row_count(), 0);
}

TEST(NameView, DirectoriesAreTestedInTheSameWay) {
    name_program p;
    p.files.add_directory("/d/1");
    p.files.add_directory("/d/2");
    p.hold({{"/d/c/", "/d/1/"}, {"/d/c/", "/d/2/"}});
    show_same_directory_names(p.form);
    EXPECT_EQ(p.rows(), (name_pairs{{"/d/1/", "/d/2/"}}));
}

TEST(NameView, WithoutAPairTheListStaysAndTheTasksAreFree) {
    name_program p;
    p.show({{1, "/a", "/b"}});
    p.hold({});
    {
        const task_scope task(p.form);
        show_same_names(p.form);
        show_same_directory_names(p.form);
    }
    EXPECT_EQ(p.said(), (texts{"提示|没有相同_文件名", "提示|没有相同_目录名"}));
    EXPECT_EQ(p.list().row_count(), 1);
    EXPECT_EQ(p.state.list_mode, 0);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(NameView, RepaintsOnceAtTheHundredthRowAndTellsItsStateEveryThousand) {
    name_program p;
    name_pairs pairs;
    for (int number = 1; number <= 4000; ++number) pairs.emplace_back("/d/c", std::to_string(number));
    p.hold(pairs);
    p.state.same_fresh_flag = -1;
    p.screen.acts[100] = [&] { EXPECT_EQ(p.screen.repaints, 0); };
    p.screen.acts[101] = [&] { EXPECT_EQ(p.screen.repaints, 1); };
    p.screen.acts[1001] = [&] {
        EXPECT_EQ(p.form.StatusBar1.panel(3), "1000个文件");
        EXPECT_EQ(p.form.StatusBar1.panel(5), "25%");
        EXPECT_DOUBLE_EQ(p.form.pic_gressbar1.filled(), 0.25);
    };
    p.screen.acts[4000] = [&] { EXPECT_EQ(p.screen.repaints, 1); };
    show_same_names(p.form);
    EXPECT_EQ(p.screen.repaints, 2) << "once more when the list is shown, for its widths";
    EXPECT_EQ(p.screen.yields, 4000) << "one for each pair";
}

// The rule word by word: every row that follows is rewritten.
name_pairs rows_by_the_rule(name_pairs pairs, const memory_file_system& files) {
    name_pairs kept;
    std::string previous;
    bool exists = false;
    for (std::size_t k = 0; k < pairs.size(); ++k) {
        const std::string first = pairs[k].first;
        if (first != previous) exists = files.has(first);
        if (!exists)
            for (std::size_t m = k + 1; m < pairs.size(); ++m)
                if (pairs[m].first == first) pairs[m].first = pairs[k].second;
        if (exists && files.has(pairs[k].second)) kept.push_back(pairs[k]);
        previous = first;
    }
    return kept;
}

TEST(NameView, GivesTheRowsOfTheRuleForAnyPairsAndAnyFilesGone) {
    std::mt19937 chance(7);
    const auto below = [&](int limit) { return static_cast<int>(chance() % 1'000'000) % limit; };
    for (int round = 0; round < 400; ++round) {
        name_program p;
        const int names = 2 + below(8);
        for (int number = 0; number < names; ++number)
            if (below(3) == 0) p.files.add_file("/d/" + std::to_string(number));
        name_pairs pairs;
        for (int count = 1 + below(20); count > 0; --count)
            pairs.emplace_back("/d/" + std::to_string(below(names)), "/d/" + std::to_string(below(names)));
        p.hold(pairs);
        show_same_names(p.form);
        ASSERT_EQ(p.rows(), rows_by_the_rule(pairs, p.files)) << "round " << round;
    }
}

TEST(NameView, ALongStarOfFilesThatAreGoneTakesNoSquareOfItsLength) {
    name_program p({"/d/last", "/d/one more"});
    name_pairs pairs;
    for (int number = 1; number <= 300'000; ++number)
        pairs.emplace_back("/d/c", "/d/" + std::to_string(number));
    pairs.emplace_back("/d/c", "/d/last");
    pairs.emplace_back("/d/c", "/d/one more");
    p.hold(pairs);
    show_same_names(p.form);
    EXPECT_EQ(p.rows(), (name_pairs{{"/d/last", "/d/one more"}}));
}

TEST(NameView, TheListSortsByNameAndTurnsGrayAnew) {
    name_program p({"/b/y", "/a/x"});
    p.hold({{"/b/y", "/c/Y"}, {"/b/y", "/d/Y"}, {"/a/x", "/b/x"}});
    p.state.same_fresh_flag = -1;
    show_same_names(p.form);
    p.header(2);  // 同名文件名
    EXPECT_EQ(p.rows(), (name_pairs{{"/a/x", "/b/x"}, {"/b/y", "/c/Y"}, {"/b/y", "/d/Y"}}));
    EXPECT_EQ(p.colours(3), (std::vector<std::uint32_t>{0, 0, gray}));
    p.header(2);
    EXPECT_EQ(p.cells(2), (texts{"y", "y", "x"}));
    p.header(4);
    EXPECT_EQ(p.cells(4), (texts{"/b/x", "/c/Y", "/d/Y"}));
}

TEST(NameView, FileNamesOpenTheRowPanelAndAreNeverMarked) {
    name_program p({"/a/x"});
    p.hold({{"/a/x", "/b/x"}});
    p.state.same_fresh_flag = -1;
    show_same_names(p.form);
    p.double_click(1, 3);
    EXPECT_FALSE(p.form.Frame4.visible);
    EXPECT_EQ(p.colours(3), (std::vector<std::uint32_t>{0}));
    p.double_click(1, 2);
    EXPECT_TRUE(p.form.Frame4.visible);
    EXPECT_EQ(p.form.samefile_disp2.text.substr(0, 8), "/b/x    ");
    p.right_press(1, 2);
    EXPECT_EQ(p.form.popup_menu, "");
    p.right_press(1, 4);
    EXPECT_EQ(p.form.popup_menu, "reprod");
    EXPECT_EQ(p.form.StatusBar1.panel(7), "显示相同_文件名");
    p.key(46);
    EXPECT_EQ(p.last_message(), "因文件内容不一定相同,请在资源管理器中选择删除");
    p.form.run("all_select");
    EXPECT_EQ(p.colours(4), (std::vector<std::uint32_t>{0}));
}

TEST(NameView, DirectoryNamesShowPathsOnlyInTheRowPanel) {
    name_program p;
    p.hold({{"/a/k/", "/b/k/"}});
    p.state.same_fresh_flag = -1;
    show_same_directory_names(p.form);
    p.double_click(1, 2);
    EXPECT_FALSE(p.form.Frame4.visible);
    p.double_click(1, 1);
    EXPECT_TRUE(p.form.Frame4.visible);
    EXPECT_EQ(p.form.samefile_disp1.text, "/a/k/    ");
    p.header(2);
    EXPECT_EQ(p.list().row_count(), 1) << "a heading sorts nothing here";
    p.right_press(1, 3);
    EXPECT_EQ(p.form.popup_menu, "reprod");
    EXPECT_FALSE(p.form.find("only_disp")->enabled);
    p.form.run("double_disp");
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(NameView, TheTypeFiltersOfSameFilesLeaveItAlone) {
    name_program p;
    p.show({{1, "/a/1.jpg", "/a/2.jpg"}, {1, "/a/3.txt", "/a/4.txt"}});
    p.hold({{"/a/x.jpg", "/b/x.jpg"}});
    p.state.same_fresh_flag = -1;
    show_same_names(p.form);
    for (const char* filter : {"only_disp", "not_list"}) {
        p.screen.texts.push_back("*.jpg");
        p.form.run(filter);
        EXPECT_EQ(p.rows(), (name_pairs{{"/a/x.jpg", "/b/x.jpg"}}));
    }
}

TEST(NameView, TakesTheRoomOfTheListOfFilesAndClosesTheRowPanel) {
    name_program p({"/a/x", "/b/x", "/z/zz"});
    p.form.Frame4.visible = true;
    p.check("mnu_same_filename", {"/a", "/b", "/z"});
    EXPECT_FALSE(p.form.RichTextBox2.visible);
    EXPECT_FALSE(p.form.Frame4.visible);
}

}  // namespace
}  // namespace corvane
