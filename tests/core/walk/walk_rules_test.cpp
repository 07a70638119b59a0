// The rules of a walk one by one: how roots are read, what is passed over, the limit, repeats, what the queue
// keeps.
#include "core/walk/tree_walk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/core/walk/walk_case.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;
using queue_column = column<std::string>;

TEST(WalkRules, RootsAreFoldedByTheirRuleWhereTheDiskIgnoresCase) {
    const struct {
        root_text rule;
        const char* root;
    } cases[] = {{root_text::as_selected, " d:\\top \\"},
                 {root_text::folded, " D:\\TOP \\"},
                 {root_text::trimmed_and_folded, "D:\\TOP\\"}};
    for (const auto& [rule, root] : cases) {
        walk_case c('\\');
        c.roots_as = rule;
        c.walk({" d:\\top "});
        EXPECT_EQ(c.queue, queue_column{root});
    }
}

TEST(WalkRules, RootsKeepTheirCaseAndBlanksWhereTheDiskTellsCase) {
    for (const root_text rule : {root_text::as_selected, root_text::folded, root_text::trimmed_and_folded}) {
        walk_case c;
        c.roots_as = rule;
        c.walk({" /Top "});
        EXPECT_EQ(c.queue, queue_column{" /Top /"});
    }
}

TEST(WalkRules, AnExcludedRootIsNotQueued) {
    walk_case c;
    for (const char* path : {"/a/x", "/b"}) c.files.add_directory(path);
    c.excluded = "/A/ ";
    c.walk({"/a", "/b"});
    EXPECT_EQ(c.queue, queue_column{"/b/"});
}

TEST(WalkRules, WhatIsPassedOverIsReachedButNotEntered) {
    walk_case c;
    for (const char* path : {"/d/no/deep", "/d/.Trash/deep", "/d/yes"}) c.files.add_directory(path);
    c.excluded = "/D/NO/ ";
    c.files.recycle_directories = {"/d/.Trash/"};
    c.walk({"/d"});
    EXPECT_EQ(c.files.tried, (texts{"/d/", "/d/yes/"}));
    EXPECT_EQ(c.queue, (queue_column{"/d/", "/d/.Trash/", "/d/no/", "/d/yes/"}));
    const texts behind_root(c.visitor.told.begin() + 6, c.visitor.told.end());
    EXPECT_EQ(behind_root, (texts{"reached /d/.Trash/", "reached /d/no/", "reached /d/yes/", "enter /d/yes/",
                                  "whole /d/yes/|"}));
}

TEST(WalkRules, AnExclusionAddedOnTheWayHoldsFromThereOn) {
    walk_case c;
    for (const char* path : {"/d/a", "/d/b"}) c.files.add_directory(path);
    c.visitor.on_line = [&](const std::string& line) {
        if (line == "enter /d/a/") c.excluded = "/D/B/ ";
    };
    c.walk({"/d"});
    EXPECT_EQ(c.files.tried, (texts{"/d/", "/d/a/"}));
}

TEST(WalkRules, AnExcludedLinkIsNotOpened) {
    walk_case c;
    c.files.add_directory("/other");
    c.files.add_link("/d/link", "/other");
    c.files.add_directory("/d");
    c.excluded = "/D/LINK/ ";
    c.walk({"/d"});
    EXPECT_EQ(c.files.tried, texts{"/d/"});
}

TEST(WalkRules, AtTheLimitWhatDoesNotFitIsAnEntryAndIsLeftOut) {
    walk_case c;
    for (const char* path : {"/d/a/x", "/d/b", "/d/c"}) c.files.add_directory(path);
    c.limit = 3;
    const walk_result result = c.walk({"/d"});
    EXPECT_EQ(c.files.tried, (texts{"/d/", "/d/a/", "/d/b/"}));
    EXPECT_EQ(c.queue.size(), 3);
    EXPECT_TRUE(result.limit_reached);
    EXPECT_EQ(result.ending, walk_course::finished);
    EXPECT_EQ(std::count(c.visitor.told.begin(), c.visitor.told.end(), "directory /d/|c"), 1);
    EXPECT_EQ(std::count(c.visitor.told.begin(), c.visitor.told.end(), "directory /d/a/|x"), 1);
}

TEST(WalkRules, ExactlyAtTheLimitNothingIsLeftOut) {
    walk_case c;
    for (const char* path : {"/d/a", "/d/b"}) c.files.add_directory(path);
    c.limit = 3;
    EXPECT_FALSE(c.walk({"/d"}).limit_reached);
    EXPECT_EQ(c.files.tried.size(), 3u);
}

TEST(WalkRules, TheLimitHoldsForRootsAndLinksToo) {
    walk_case roots;
    for (const char* path : {"/a", "/b"}) roots.files.add_directory(path);
    roots.limit = 1;
    EXPECT_TRUE(roots.walk({"/a", "/b"}).limit_reached);
    EXPECT_EQ(roots.files.tried, texts{"/a/"});

    walk_case links;
    links.files.add_directory("/other");
    links.files.add_link("/d/link", "/other");
    links.files.add_directory("/d");
    links.limit = 1;
    EXPECT_TRUE(links.walk({"/d"}).limit_reached);
    EXPECT_EQ(links.files.tried, texts{"/d/"});
}

TEST(WalkRules, ARepeatedNameBreaksTheReaderOffOnlyByItsRule) {
    walk_case breaks;
    breaks.files.times = 2;
    for (const char* path : {"/d/a/x", "/d/b"}) breaks.files.add_file(path);
    breaks.ends_at_repeat = true;
    breaks.walk({"/d"});
    EXPECT_EQ(breaks.visitor.told, (texts{"reached /d/", "enter /d/", "directory /d/|a", "whole /d/|a",
                                          "reached /d/a/", "enter /d/a/", "file /d/a/|x", "whole /d/a/|x"}));

    walk_case goes_on;
    goes_on.files.times = 2;
    goes_on.files.add_file("/d/b");
    goes_on.walk({"/d"});
    EXPECT_EQ(goes_on.visitor.told,
              (texts{"reached /d/", "enter /d/", "file /d/|b", "file /d/|b", "whole /d/|b"}));
}

TEST(WalkRules, OneNameInTwoDirectoriesIsNoRepeat) {
    walk_case c;
    for (const char* path : {"/d/same/same/same"}) c.files.add_file(path);
    c.ends_at_repeat = true;
    c.walk({"/d"});
    EXPECT_EQ(c.visitor.told.back(), "whole /d/same/same/|same");
}

TEST(WalkRules, TheQueueKeepsOnlyTheEnteredByItsRule) {
    walk_case c;
    for (const char* path : {"/d/a/x", "/d/b", "/d/c"}) c.files.add_directory(path);
    c.files.add_directory("/d/c").unreadable = true;
    c.excluded = "/D/B/ ";
    c.queue_keeps_entered = true;
    c.walk({"/d"});
    EXPECT_EQ(c.queue, (queue_column{"/d/", "/d/a/", "/d/c/", "/d/a/x/"}));
}

TEST(WalkRules, AnEarlyEndLeavesOnlyTheEnteredByThatRule) {
    const struct {
        const char* line;
        queue_column kept;
    } cases[] = {{"enter /d/", {}},
                 {"directory /d/|a", {"/d/"}},
                 {"enter /d/b/", {"/d/", "/d/a/"}},
                 {"whole /d/b/|", {"/d/", "/d/a/", "/d/b/"}}};
    for (const auto& [line, kept] : cases) {
        walk_case c;
        for (const char* path : {"/d/a", "/d/b", "/d/c"}) c.files.add_directory(path);
        c.queue_keeps_entered = true;
        c.walk_to({"/d"}, line, walk_course::quit);
        EXPECT_EQ(c.queue, kept) << line;
    }
}

TEST(WalkRules, TheLimitCountsWhatIsPassedOverByThatRuleToo) {
    walk_case c;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) c.files.add_directory(path);
    c.excluded = "/D/A/ ";
    c.limit = 3;
    c.queue_keeps_entered = true;
    EXPECT_TRUE(c.walk({"/d"}).limit_reached);
    EXPECT_EQ(c.queue, (queue_column{"/d/", "/d/b/"}));
}

}  // namespace
}  // namespace corvane
