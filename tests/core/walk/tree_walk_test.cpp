// The walk alone, over a disk in memory: what it opens, in which order, what the visitor is told.
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

TEST(TreeWalk, TellsOfEachDirectoryAndEachEntryInOrder) {
    walk_case c;
    c.files.add_file("/d/a/f");
    c.files.add_file("/d/pipe").kind = entry_kind::other;
    c.files.add_directory("/d/z");
    const walk_result result = c.walk({"/d"});
    EXPECT_EQ(c.visitor.told,
              (texts{"reached /d/", "enter /d/", "directory /d/|a", "other /d/|pipe", "directory /d/|z",
                     "whole /d/|z", "reached /d/a/", "enter /d/a/", "file /d/a/|f", "whole /d/a/|f",
                     "reached /d/z/", "enter /d/z/", "whole /d/z/|"}));
    EXPECT_EQ(result.ending, walk_course::finished);
    EXPECT_FALSE(result.limit_reached);
}

TEST(TreeWalk, GoesLevelByLevelAndRootByRoot) {
    walk_case c;
    for (const char* path : {"/r/a/x", "/r/b", "/q/c/y"}) c.files.add_directory(path);
    c.queue = {"left", "over"};
    c.walk({"/r", "/q"});
    const texts order = {"/r/", "/q/", "/r/a/", "/r/b/", "/q/c/", "/r/a/x/", "/q/c/y/"};
    EXPECT_EQ(c.files.tried, order);
    EXPECT_EQ(texts(c.queue.begin(), c.queue.end()), order);
}

TEST(TreeWalk, OpensEachDirectoryOnceAndAsksNothingOfAnEntry) {
    walk_case c;
    for (const char* path : {"/d/a/f", "/d/a/g", "/d/h"}) c.files.add_file(path);
    c.walk({"/d"});
    EXPECT_EQ(c.files.tried, (texts{"/d/", "/d/a/"}));
    EXPECT_EQ(c.files.attributes_asked, 0);
    EXPECT_EQ(c.files.total_opened(), 0);
}

TEST(TreeWalk, BlankRootsAreNoneAndTheOthersNeedNoSeparator) {
    walk_case c;
    for (const char* path : {"/a", "/b"}) c.files.add_directory(path);
    c.walk({"", "  ", "/a", "/b/"});
    EXPECT_EQ(c.queue, (queue_column{"/a/", "/b/"}));
}

TEST(TreeWalk, WithoutARootItFinishes) {
    walk_case c;
    const walk_result result = c.walk({});
    EXPECT_EQ(result.ending, walk_course::finished);
    EXPECT_TRUE(c.visitor.told.empty());
}

TEST(TreeWalk, ARootInsideAnotherIsWalkedTwice) {
    walk_case c;
    c.files.add_directory("/d/s");
    c.walk({"/d", "/d/s"});
    EXPECT_EQ(c.files.tried, (texts{"/d/", "/d/s/", "/d/s/"}));
}

TEST(TreeWalk, AnUnreadableDirectoryIsEnteredAndLeft) {
    walk_case c;
    c.files.add_file("/d/locked/f");
    c.files.add_directory("/d/locked").unreadable = true;
    c.walk({"/gone", "/d"});
    EXPECT_EQ(c.visitor.told, (texts{"reached /gone/", "enter /gone/", "unreadable /gone/|", "reached /d/",
                                     "enter /d/", "directory /d/|locked", "whole /d/|locked",
                                     "reached /d/locked/", "enter /d/locked/", "unreadable /d/locked/|"}));
}

TEST(TreeWalk, AReadErrorIsToldWithTheLastName) {
    walk_case c;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) c.files.add_file(path);
    c.files.add_directory("/d").breaks_after = 2;
    c.files.add_directory("/e").breaks_after = 0;
    c.walk({"/d", "/e"});
    EXPECT_EQ(c.visitor.told, (texts{"reached /d/", "enter /d/", "file /d/|a", "file /d/|b",
                                     "cut short /d/|b", "reached /e/", "enter /e/", "cut short /e/|"}));
}

TEST(TreeWalk, LinksComeLastAndEachPlaceOnce) {
    walk_case c;
    c.files.add_directory("/other/sub");
    c.files.add_directory("/d/z/deep");
    c.files.add_link("/d/again", "/other");
    c.files.add_link("/d/once", "/other");
    c.files.add_link("/d/seen", "/d/z");
    c.files.add_link("/d/z/loop", "/d");
    c.walk({"/d"});
    EXPECT_EQ(c.files.tried, (texts{"/d/", "/d/z/", "/d/z/deep/", "/d/again/", "/d/again/sub/"}));
    EXPECT_EQ(c.visitor.told[2], "link /d/|again");
    EXPECT_EQ(std::count(c.visitor.told.begin(), c.visitor.told.end(), "links"), 1);
}

TEST(TreeWalk, TellsOnceThatLinksBeginBehindEverythingElse) {
    walk_case c;
    for (const char* path : {"/d/z", "/one", "/two"}) c.files.add_directory(path);
    c.files.add_link("/d/a", "/one");
    c.files.add_link("/d/b", "/two");
    c.walk({"/d"});
    const texts behind_z(c.visitor.told.end() - 7, c.visitor.told.end());
    EXPECT_EQ(behind_z, (texts{"links", "reached /d/a/", "enter /d/a/", "whole /d/a/|", "reached /d/b/",
                               "enter /d/b/", "whole /d/b/|"}));
}

TEST(TreeWalk, ALinkToADirectoryAboveARootOrAboveALinkIsNotFollowed) {
    walk_case c;
    c.files.add_file("/top/d/f");
    c.files.add_link("/top/d/up", "/top");
    c.files.add_directory("/far/place/in");
    c.files.add_link("/top/d/away", "/far/place");
    c.files.add_link("/far/place/in/up", "/far");
    c.walk({"/top/d"});
    EXPECT_EQ(c.files.tried, (texts{"/top/d/", "/top/d/away/", "/top/d/away/in/"}));
}

TEST(TreeWalk, ASelectedLinkWaitsAsLinksDo) {
    walk_case c;
    c.files.add_directory("/real/sub");
    c.files.add_directory("/elsewhere");
    c.files.add_link("/link", "/real");
    c.files.add_link("/other_link", "/elsewhere");
    c.walk({"/link", "/other_link", "/real"});
    EXPECT_EQ(c.files.tried, (texts{"/real/", "/real/sub/", "/other_link/"}));
}

TEST(TreeWalk, AnyAnswerButGoOnEndsTheWalkWhereItIsGiven) {
    for (const char* line :
         {"enter /d/", "directory /d/|a", "directory /d/|b", "whole /d/|b", "enter /d/a/", "whole /d/a/|"})
        for (const walk_course answer : {walk_course::finished, walk_course::cancelled, walk_course::quit}) {
            walk_case c;
            for (const char* path : {"/d/a", "/d/b"}) c.files.add_directory(path);
            EXPECT_EQ(c.walk_to({"/d"}, line, answer).ending, answer) << line;
            EXPECT_EQ(c.visitor.told.back(), line);
        }
}

TEST(TreeWalk, AWalkThatEndsEarlyFollowsNoLink) {
    walk_case c;
    c.files.add_directory("/other");
    c.files.add_link("/d/link", "/other");
    c.files.add_directory("/d");
    EXPECT_EQ(c.walk_to({"/d"}, "whole /d/|link", walk_course::cancelled).ending, walk_course::cancelled);
    EXPECT_EQ(c.files.tried, texts{"/d/"});
}

TEST(TreeWalk, ADirectoryStandsInTheQueueWhenItsEntryIsTold) {
    walk_case c;
    for (const char* path : {"/d/a", "/d/b"}) c.files.add_directory(path);
    std::vector<std::int32_t> sizes;
    c.visitor.on_line = [&](const std::string& line) {
        if (line.starts_with("directory")) sizes.push_back(c.queue.size());
    };
    c.walk({"/d"});
    EXPECT_EQ(sizes, (std::vector<std::int32_t>{2, 3}));
}

}  // namespace
}  // namespace corvane
