#include "browser/list_find.h"
#include "browser/same_store.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/tasks/task_scope.h"
#include "tests/browser/list_program.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

constexpr std::uint32_t found = colour_found;

struct four_rows : list_program {
    four_rows() {
        show({{1'000'000, "/d/One.JPG", "/e/x.png"},
              {2'000'000, "/d/One.JPG", "/e/ONE.gif"},
              {30, "/d/z.tar.gz", "/e/none"},
              {4, "/d/zip.zip*in/p.JPG", "/e/q.dat"}});
    }
    void find(const std::string& term) {
        screen.texts = {term};
        form.run("search_in_result");
    }
};

TEST(Find, AsksWithTheLastTermAndColoursTheFirstHit) {
    four_rows p;
    p.state.find_text = "old";
    p.find("ONE");
    ASSERT_EQ(p.screen.questions.size(), 1u);
    EXPECT_EQ(p.screen.questions[0].title, "输入框");
    EXPECT_EQ(p.screen.questions[0].prompt, "要搜索的文件名\r\n");
    EXPECT_EQ(p.screen.questions[0].initial, "old");
    EXPECT_EQ(p.state.find_text, "one");
    EXPECT_EQ(p.state.find_row, 1);
    EXPECT_EQ(p.list().colour(1, 3), found);
    EXPECT_EQ(p.list().reveal_row, 1);
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(Find, TheFolderPartCountsAndCaseDoesNot) {
    four_rows p;
    p.find("/E/NO");
    EXPECT_EQ(p.state.find_row, 3);
    EXPECT_EQ(p.list().colour(3, 4), found);
}

TEST(Find, AGrayCellIsNoHit) {
    four_rows p;
    p.find("one");
    p.form.run("again_search");
    EXPECT_EQ(p.state.find_row, 2);
    EXPECT_EQ(p.list().colour(2, 3), colour_gray);
    EXPECT_EQ(p.list().colour(2, 4), found);
}

TEST(Find, AfterTheLastHitReportsTheEndAndTheRowGrows) {
    four_rows p;
    p.find("zip");
    EXPECT_EQ(p.state.find_row, 4);
    p.form.run("again_search");
    EXPECT_EQ(p.last_message(), "已查到尾部");
    EXPECT_EQ(p.state.find_row, 5);
    p.form.run("again_search");
    EXPECT_EQ(p.state.find_row, 6);
    EXPECT_EQ(p.screen.messages.size(), 2u);
}

TEST(Find, HitsGatherUntilTheNextFindAndLoseTheirColourForGood) {
    four_rows p;
    p.double_click(1, 3);
    p.find("one");
    p.form.run("again_search");
    EXPECT_EQ(p.list().colour(1, 3), found);
    EXPECT_EQ(p.list().colour(2, 4), found);
    p.find("z.tar");
    EXPECT_EQ(p.colours(3), (colour_row{colour_text, colour_gray, found, colour_archive}));
    EXPECT_EQ(p.list().colour(2, 4), colour_text);
}

TEST(Find, NothingFoundIsToldWithItsLeadingBlank) {
    four_rows p;
    p.find("missing");
    EXPECT_EQ(p.last_message(), " 没查到");
    EXPECT_EQ(p.state.find_row, 0);
}

TEST(Find, ADismissedPromptIsAnEmptyTerm) {
    four_rows p;
    p.find("one");
    p.form.run("search_in_result");
    EXPECT_EQ(p.state.find_text, "");
    EXPECT_EQ(p.list().colour(1, 3), colour_text);
    EXPECT_EQ(p.state.find_row, 0);
    p.form.run("again_search");
    EXPECT_EQ(p.state.find_row, 0) << "without a term F3 does nothing";
}

TEST(Find, AFoundCellTurnsRedByADoubleClick) {
    four_rows p;
    p.find("none");
    p.double_click(3, 4);
    EXPECT_EQ(p.list().colour(3, 4), mark_red);
}

TEST(Find, InAListWithoutThoseColumnsFindsNothing) {
    four_rows p;
    p.state.list_mode = 1;
    p.list().clear_columns();
    p.list().add_column({"", 100, text_alignment::left, cell_content::text});
    p.list().add_column({"序号", 700, text_alignment::right, cell_content::number});
    p.list().add_column({"空目录", 700, text_alignment::left, cell_content::text});
    p.list().add_row();
    p.list().set_text(1, 2, "/one");
    p.find("one");
    EXPECT_EQ(p.last_message(), " 没查到");
}

TEST(Find, MatchesWhatTheScreenShowsOfAMappedName) {
    list_program p;
    // U+F02A stands for "*", U+F009 for a tab.
    p.show({{1, "/d/a\uF02Ab.txt", "/e/x"}, {1, "/d/c\uF009d", "/e/y"}, {1, "/d/x.zip*in", "/e/z"}});
    const auto row_of = [&](const std::string& term) {
        p.screen.texts = {term};
        p.form.run("search_in_result");
        return p.state.find_row;
    };
    EXPECT_EQ(row_of("A*B.TXT"), 1);
    EXPECT_EQ(row_of("c\td"), 2) << "pasted";
    EXPECT_EQ(row_of("c\u2409d"), 2) << "as the screen shows it";
    EXPECT_EQ(row_of("zip*in"), 3);
    EXPECT_EQ(row_of("ab.txt"), 0);
}

TEST(Find, OnAHiddenListIsRefused) {
    four_rows p;
    p.state.find_text = "one";
    p.list().visible = false;
    p.form.run("search_in_result");
    p.form.run("again_search");
    EXPECT_TRUE(p.screen.questions.empty());
    ASSERT_EQ(p.screen.messages.size(), 2u);
    EXPECT_EQ(p.last_message(), "列表没有显示,请先显示结果");
    EXPECT_EQ(p.list().colour(1, 3), colour_text);
}

TEST(Filter, OnlyShowsRowsOfWhichOneTypeIsListed) {
    four_rows p;
    p.screen.texts = {"*.jpg gif"};
    p.form.run("only_disp");
    EXPECT_EQ(p.screen.questions[0].prompt, "仅显示指定的文件类型, 如 *.jpg *.gif\r\n\r\n");
    EXPECT_EQ(p.screen.questions[0].title, "输入框");
    EXPECT_EQ(p.cells(1), (texts{"1", "2", "4"}));
    EXPECT_EQ(p.cells(4), (texts{"/e/x.png", "/e/ONE.gif", "/e/q.dat"}));
    EXPECT_EQ(p.colours(3), (colour_row{colour_text, colour_gray, colour_text}))
        << "no purple in a filtered list";
    EXPECT_EQ(p.form.StatusBar1.panel(3), "相同文件:3");
    EXPECT_EQ(p.form.StatusBar1.panel(5), "仅显示*.jpg gif");
    EXPECT_EQ(p.state.only_disp_types, "*.jpg gif");
    EXPECT_EQ(p.state.list_mode, 0);
}

TEST(Filter, NotShowsRowsOfWhichNoTypeIsListed) {
    four_rows p;
    p.screen.texts = {"*.jpg"};
    p.form.run("not_list");
    EXPECT_EQ(p.screen.questions[0].prompt, "指定不显示的文件类型 如 *.htm *.txt\r\n\r\n");
    EXPECT_EQ(p.cells(1), texts{"3"});
    EXPECT_EQ(p.form.StatusBar1.panel(5), "不显示*.jpg");
    EXPECT_EQ(p.state.not_list_types, "*.jpg");
}

TEST(Filter, AHiddenRowDoesNotChangeThePreviousPath) {
    list_program p;
    p.show({{1, "/d/a.x", "/e/1.jpg"}, {1, "/d/a.x", "/e/2.png"}, {1, "/d/a.x", "/e/3.jpg"}});
    p.screen.texts = {"jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(p.cells(1), (texts{"1", "3"}));
    EXPECT_EQ(p.colours(3), (colour_row{colour_text, colour_gray}));
}

TEST(Filter, ALeadingDotMatchesNothingAndAPathWithoutADotIsItsOwnType) {
    four_rows p;
    p.screen.texts = {".jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(p.list().row_count(), 0);
    EXPECT_EQ(p.form.StatusBar1.panel(3), "相同文件:0");
    p.screen.texts = {"/e/none"};
    p.form.run("only_disp");
    EXPECT_EQ(p.cells(1), texts{"3"});
}

TEST(Filter, ADoubledBlankIsAnEmptyType) {
    list_program p;
    p.show({{1, "/d/ends.", "/e/a"}, {1, "/d/b.b", "/e/c.c"}});
    p.screen.texts = {"q  r"};
    p.form.run("only_disp");
    EXPECT_EQ(p.cells(3), texts{"/d/ends."});
}

TEST(Filter, AnEmptyAnswerChangesNothingABlankOneIsKept) {
    four_rows p;
    p.state.only_disp_types = "old";
    p.form.run("only_disp");
    EXPECT_EQ(p.state.only_disp_types, "old");
    p.screen.texts = {" "};
    p.form.run("only_disp");
    EXPECT_EQ(p.state.only_disp_types, " ");
    EXPECT_EQ(p.list().row_count(), 4);
}

TEST(Filter, TheSumGoesOnFromTheScaledFigure) {
    four_rows p;
    // The load left 3,000,034 bytes as 2929 K. The filter adds 1,000,000 + 2,000,000 + 4 and scales once
    // more.
    EXPECT_EQ(p.form.StatusBar1.panel(4), "相同文件长度:2,929 K");
    p.screen.texts = {"jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(p.form.StatusBar1.panel(4), "相同文件长度:2,932 K");  // (2929 + 3,000,004) / 1024
}

TEST(Filter, DiscardsMarksAndTheRefreshBringsTheWholeResultBack) {
    four_rows p;
    for (const char* path : {"/d/One.JPG", "/e/x.png", "/e/ONE.gif", "/d/z.tar.gz", "/e/none", "/e/q.dat"})
        p.files.add_file(path, "x");
    p.double_click(1, 3);
    p.screen.texts = {"jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(p.list().colour(1, 3), colour_text);
    p.form.run("result_refresh");
    EXPECT_EQ(p.list().row_count(), 4);
    EXPECT_EQ(p.list().colour(4, 3), colour_archive);
}

TEST(Filter, PairsAreThoseOfTheViewWhateverBecomesOfTheFileList) {
    for (const bool searched : {true, false}) {
        four_rows p;
        for (const char* path : {"/s/1.jpg", "/s/2.jpg", "/s/3.jpg", "/s/4.jpg"}) p.files.add_file(path);
        if (searched) {
            p.search({"/s"});
        } else {
            p.files.add_file("/prog/文件清单.txt", "/s/1.jpg\r\n");
            p.form.run("Command21_Click");
        }
        EXPECT_FALSE(p.list().visible);
        p.list().visible = true;
        p.screen.texts = {"jpg"};
        p.form.run("only_disp");
        EXPECT_EQ(p.cells(3), (texts{"/d/One.JPG", "/d/One.JPG", "/d/zip.zip*in/p.JPG"}));
        texts partners = p.cells(4);
        std::sort(partners.begin(), partners.end());
        EXPECT_EQ(partners, (texts{"/e/ONE.gif", "/e/q.dat", "/e/x.png"}));
    }
}

TEST(Filter, ANameCheckLeavesNoPairsOfContents) {
    four_rows p;
    for (const char* path : {"/s/a/1.jpg", "/s/b/1.jpg", "/s/c/2.jpg"}) p.files.add_file(path);
    p.select({"/s"});
    p.form.run("mnu_same_filename");
    ASSERT_EQ(p.state.list_mode, 3);
    EXPECT_EQ(p.state.same_count, 0);
    p.screen.texts = {"jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(p.cells(3), (texts{"/s/a/1.jpg"}));
    EXPECT_EQ(p.cells(4), (texts{"/s/b/1.jpg"}));
}

TEST(Filter, OnAHiddenListIsRefused) {
    four_rows p;
    p.list().visible = false;
    for (const char* filter : {"only_disp", "not_list"}) {
        p.screen.messages.clear();
        p.screen.texts = {"jpg"};
        p.form.run(filter);
        EXPECT_TRUE(p.screen.questions.empty());
        EXPECT_EQ(p.last_message(), "列表没有显示,请先显示结果");
        EXPECT_EQ(p.list().row_count(), 4);
        EXPECT_FALSE(p.list().visible);
    }
}

TEST(Filter, AfterADeletionShowsTheBlankCellOfTheRow) {
    four_rows p;
    p.list().set_text(3, 4, "");
    rewrite_store(p.form);
    p.screen.texts = {"gz"};
    p.form.run("only_disp");
    EXPECT_EQ(p.cells(3), texts{"/d/z.tar.gz"});
    EXPECT_EQ(p.cells(4), texts{""});
}

TEST(Find, CaseIsFoldedInPlainTextsAndInOthersAlike) {
    // The neighbours of the letters in their table are no letters, and a text may be plain in one row only.
    list_program p;
    p.show({{1, "/d/@AZ[`az{", "/e/1"},
            {2, "/d/plain KEY", "/e/2"},
            {3, "/d/ÄÖ KEY", "/e/3"},
            {4, "/d/文件 key", "/e/4"},
            {5, "/d/last Key", "/e/5"}});
    const auto hits = [&](const std::string& term) {
        p.screen.texts = {term};
        p.form.run("search_in_result");
        for (int more = 0; more < 6; ++more) p.form.run("again_search");
        texts names;
        for (std::int32_t row = 1; row <= p.list().row_count(); ++row)
            if (p.list().colour(row, 3) == found) names.push_back(p.list().cell(row, 3).substr(3));
        std::sort(names.begin(), names.end());
        return names;
    };
    EXPECT_EQ(hits("@az["), texts{"@AZ[`az{"});
    EXPECT_EQ(hits("`AZ{"), texts{"@AZ[`az{"});
    EXPECT_EQ(hits("[@"), texts{});
    EXPECT_EQ(hits("kEy"), (texts{"last Key", "plain KEY", "ÄÖ KEY", "文件 key"}));
    EXPECT_EQ(hits("äö"), texts{"ÄÖ KEY"});
}

// 1,000 rows of which the last one alone is sought.
struct thousand_rows : list_program {
    thousand_rows() {
        std::vector<pair> pairs;
        for (int i = 1000; i < 2000; ++i) {
            pairs.push_back({1, "/d/" + std::to_string(i) + ".jpg", "/e/" + std::to_string(i) + ".jpg"});
            files.add_file(pairs.back().path1);
            files.add_file(pairs.back().path2);
        }
        show(pairs);
    }
};

TEST(Find, EventsRunWhileItSearchesAndNoTask) {
    thousand_rows p;
    int yields = 0;
    p.screen.on_yield = [&] {
        ++yields;
        EXPECT_TRUE(p.state.tasks_locked);
        p.form.run("Picture4_Click");
        p.form.run("not_list");
        p.header(3);
        p.header(3);
    };
    p.screen.texts = {"1999"};
    p.form.run("search_in_result");
    EXPECT_EQ(yields, 5);
    EXPECT_EQ(p.state.find_row, 1000);
    EXPECT_EQ(p.list().colour(1000, 3), found);
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(Find, OneWithinAnotherDoesNotYield) {
    thousand_rows p;
    int yields = 0;
    p.screen.on_yield = [&] {
        ++yields;
        p.form.run("again_search");
    };
    p.screen.texts = {"1999"};
    p.form.run("search_in_result");
    EXPECT_EQ(yields, 5);
    EXPECT_EQ(p.list().colour(1000, 3), found);
}

TEST(Find, WithinATaskItLeavesLockAndCancelButtonToIt) {
    thousand_rows p;
    const task_scope task(p.form);
    p.form.Command28.visible = true;
    const std::int64_t yields = p.screen.yields;
    p.screen.texts = {"1999"};
    p.form.run("search_in_result");
    EXPECT_EQ(p.screen.yields, yields);
    EXPECT_EQ(p.state.find_row, 1000);
    EXPECT_TRUE(p.form.Command28.visible);
    EXPECT_TRUE(p.state.tasks_locked);
}

TEST(Find, AProgramThatClosesSearchesNoFurther) {
    thousand_rows p;
    p.screen.on_yield = [&] { p.form.run("exit_sub"); };
    p.screen.texts = {"no such"};
    p.form.run("search_in_result");
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_TRUE(p.screen.ended);
}

TEST(Filter, EventsRunWhileItFillsAndNoTask) {
    thousand_rows p;
    int yields = 0;
    p.screen.on_yield = [&] {
        ++yields;
        EXPECT_TRUE(p.state.tasks_locked);
        p.form.run("Picture4_Click");
        p.form.run("only_disp");
        p.form.run("Picture5_Click");
        p.header(1);
        p.header(1);
    };
    p.screen.texts = {"*.jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(yields, 10);
    EXPECT_EQ(p.list().row_count(), 1000);
    EXPECT_EQ(p.list().cell(1, 3), "/d/1000.jpg");
    EXPECT_EQ(p.form.StatusBar1.panel(3), "相同文件:1000");
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(Filter, AProgramThatClosesFillsNoFurther) {
    thousand_rows p;
    p.screen.on_yield = [&] { p.form.run("exit_sub"); };
    p.screen.texts = {"*.jpg"};
    p.form.run("only_disp");
    EXPECT_EQ(p.list().row_count(), 99);
    EXPECT_TRUE(p.screen.ended);
}

}  // namespace
}  // namespace corvane
