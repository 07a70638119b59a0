#include "browser/type_filter.h"

#include <gtest/gtest.h>

#include "browser/same_store.h"
#include "tests/browser/searched_rows.h"

namespace corvane {
namespace {

using namespace cell_colour;
using texts = std::vector<std::string>;

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

TEST(Filter, EventsRunWhileItFillsAndNoTask) {
    thousand_rows p;
    EXPECT_EQ(p.yields_of("only_disp", "*.jpg", {"Picture4_Click", "only_disp", "Picture5_Click"}, 1), 10);
    EXPECT_EQ(p.list().row_count(), 1000);
    EXPECT_EQ(p.list().cell(1, 3), "/d/1000.jpg");
    EXPECT_EQ(p.form.StatusBar1.panel(3), "相同文件:1000");
}

TEST(Filter, AProgramThatClosesFillsNoFurther) {
    thousand_rows p;
    p.close_at_the_first_yield_of("only_disp", "*.jpg");
    EXPECT_EQ(p.list().row_count(), 99);
}

}  // namespace
}  // namespace corvane
