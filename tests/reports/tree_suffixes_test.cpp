// The suffixes of the tree's window: counting, picking, sorting.
#include "tests/reports/opened_tree.h"

namespace corvane {
namespace {

TEST(TreeSuffixes, SuffixesAreCountedAsTheyStand) {
    opened_tree p;
    p.list({"/d.x/none", "/a.jpg", "/b.JPG", "/c.jpg", "/e.", "/z.zip*in.txt*1A2B3C4D*7"});
    p.open();
    p.run("Command4_Click");
    EXPECT_EQ(p.suffixes(), (texts{" 2", "jpg 2", "JPG 1"}));
    EXPECT_EQ(p.window.suffixes.suffix_total, 3);
    EXPECT_EQ(p.window.suffixes.largest_count, 2);
    EXPECT_TRUE(p.window.ListView1.visible);
    EXPECT_FALSE(p.window.List1.visible);
    p.run("Command4_Click");
    EXPECT_EQ(p.suffixes(), (texts{" 2", "jpg 2", "JPG 1"}));
}

TEST(TreeSuffixes, ADoubleClickOnABoxOpensTheSuffixesForIt) {
    opened_tree p;
    p.list({"/a.jpg", "/b.gif"});
    p.open();
    p.run("Text8_DblClick");
    EXPECT_EQ(p.window.suffix_target, 2);
    EXPECT_EQ(p.suffixes(), (texts{"jpg 1", "gif 1"}));
    p.pick(2);
    p.pick(1);
    p.pick(2);
    EXPECT_EQ(p.text(8), "gif,jpg");
    EXPECT_EQ(p.text(7), "");
    EXPECT_EQ(p.suffixes(), (texts{"jpg 1 red", "gif 1 red"}));
    // What stands in the box is a suffix only as a whole.
    p.run("Text7_DblClick");
    EXPECT_EQ(p.suffixes(), (texts{"jpg 1", "gif 1"}));
    p.window.texts[7]->text = "xjpgx";
    p.pick(1);
    EXPECT_EQ(p.text(7), "xjpgx,jpg");
    p.window.ListView1.selected_row = 0;
    p.run("ListView1_DblClick");
    EXPECT_EQ(p.text(7), "xjpgx,jpg");
}

TEST(TreeSuffixes, HeadingsSortByTextAndByNumberAndTheSecondClickTurnsRound) {
    opened_tree p;
    texts paths;
    for (const auto& [suffix, count] : {std::pair("b", 9), std::pair("c", 10), std::pair("a", 100)})
        for (int i = 0; i < count; ++i) paths.push_back("/" + std::to_string(i) + "." + suffix);
    p.list(paths);
    p.open();
    p.run("Command4_Click");
    p.heading(1);
    EXPECT_EQ(p.suffixes(), (texts{"a 100", "b 9", "c 10"}));
    p.heading(1);
    EXPECT_EQ(p.suffixes(), (texts{"c 10", "b 9", "a 100"}));
    p.heading(2);
    EXPECT_EQ(p.suffixes(), (texts{"b 9", "c 10", "a 100"}));
    p.heading(2);
    EXPECT_EQ(p.suffixes(), (texts{"a 100", "c 10", "b 9"}));
    p.heading(0);
    EXPECT_EQ(p.suffixes(), (texts{"a 100", "c 10", "b 9"}));
    p.pick(3);
    EXPECT_EQ(p.text(7), "b");
}

}  // namespace
}  // namespace corvane
