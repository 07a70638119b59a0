#include "browser/list_find.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/tasks/task_scope.h"
#include "tests/browser/searched_rows.h"

namespace corvane {
namespace {
using namespace cell_colour;
using texts = std::vector<std::string>;

constexpr std::uint32_t found = colour_found;

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

TEST(Find, EventsRunWhileItSearchesAndNoTask) {
    thousand_rows p;
    EXPECT_EQ(p.yields_of("search_in_result", "1999", {"Picture4_Click", "not_list"}, 3), 5);
    EXPECT_EQ(p.state.find_row, 1000);
    EXPECT_EQ(p.list().colour(1000, 3), found);
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
    p.close_at_the_first_yield_of("search_in_result", "no such");
    EXPECT_TRUE(p.screen.messages.empty());
}

}  // namespace
}  // namespace corvane
