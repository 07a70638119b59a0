// Paths out of texts that were typed, pasted or dropped.
#include "search/given_paths.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {
using texts = std::vector<std::string>;

struct reading {
    reading() { files.mounted = {{"/home/li/", "", volume_kind::home}, {"/", "", volume_kind::root}}; }
    texts paths(std::string_view text) { return read_given_paths(files, text).paths; }
    texts others(std::string_view text) { return read_given_paths(files, text).others; }
    memory_file_system files;
};

TEST(GivenPaths, EachLineIsAPathWithoutItsBlanksQuotesAndClosingSeparator) {
    reading r;
    EXPECT_EQ(r.paths("/a b\r\n  /c/ \n\t/d\t\n\n'/e f'\n\"/g\"\n/"),
              (texts{"/a b", "/c", "/d", "/e f", "/g", "/"}));
    EXPECT_TRUE(r.others("/a b\n\n").empty());
}

TEST(GivenPaths, OneLineMayHoldSeveralQuotedPaths) {
    reading r;
    EXPECT_EQ(r.paths("'/a b' \"/c'd\"  '/e'"), (texts{"/a b", "/c'd", "/e"}));
    // No list of quoted texts: then the line is one text, and no path.
    EXPECT_EQ(r.paths("'/a' /b"), texts{});
    EXPECT_EQ(r.others("'/a"), texts{"'/a"});
}

TEST(GivenPaths, UrlsOfThisMachineLoseTheirEscapes) {
    reading r;
    EXPECT_EQ(r.paths("file:///a%20b/%E7%85%A7\nFILE://localhost/c\nfile:/d%2fe"),
              (texts{"/a b/照", "/c", "/d/e"}));
    EXPECT_EQ(r.paths("file:///50%/100%zz"), texts{"/50%/100%zz"}) << "an escape that is none stays";
    EXPECT_EQ(r.others("file://server/share\nhttp://x/y\nfile:relative"),
              (texts{"file://server/share", "http://x/y", "file:relative"}));
    EXPECT_EQ(r.paths("# a note of a list\nfile:///x"), texts{"/x"});
}

TEST(GivenPaths, AZeroByteIsNoPartOfAPath) {
    reading r;
    EXPECT_EQ(r.paths("file:///a%00b"), texts{});
    EXPECT_EQ(r.paths(std::string_view("/a\0b", 4)), texts{});
}

TEST(GivenPaths, ATildeIsHome) {
    reading r;
    EXPECT_EQ(r.paths("~\n~/照片/"), (texts{"/home/li", "/home/li/照片"}));
    EXPECT_EQ(r.others("~root/x"), texts{"~root/x"});
    r.files.mounted = {{"/", "", volume_kind::root}};
    EXPECT_EQ(r.others("~"), texts{"~"}) << "without a home";
}

TEST(GivenPaths, PartsThatGoBackAndForthAreTakenOut) {
    reading r;
    EXPECT_EQ(r.paths("/a//b/./c/../d\n/../..\n/a/b/.."), (texts{"/a/b/d", "/", "/a"}));
}

TEST(GivenPaths, APathThatStandsTwiceComesOnce) {
    reading r;
    EXPECT_EQ(r.paths("/a\n/b\n/a/\nfile:///b"), (texts{"/a", "/b"}));
}

TEST(GivenPaths, AHostileTextIsBounded) {
    reading r;
    std::string many;
    for (int i = 0; i < 30'000; ++i) many += "/d" + std::to_string(i) + "\n";
    const given_paths given = read_given_paths(r.files, many);
    EXPECT_TRUE(given.cut);
    EXPECT_EQ(given.paths.size(), 20'000u);
    EXPECT_TRUE(r.paths("/" + std::string(100'000, 'x')).empty()) << "longer than any path";
    const texts others = r.others(std::string(500, 'x'));
    ASSERT_EQ(others.size(), 1u);
    EXPECT_EQ(others[0], std::string(200, 'x') + "…");
    // Cut between letters: 照 is three bytes, 200 is no multiple of three.
    std::string letters;
    for (int i = 0; i < 100; ++i) letters += "照";
    EXPECT_EQ(r.others(letters)[0], letters.substr(0, 198) + "…");
}

TEST(GivenPaths, OnlyDirectoriesOfTheDiskAreFound) {
    reading r;
    r.files.add_directory("/a");
    r.files.add_file("/f", "x");
    const given_directories found = find_given_directories(r.files, "/a\n/f\n/gone\nword", 10);
    EXPECT_EQ(found.directories, texts{"/a"});
    EXPECT_EQ(found.others, (texts{"word", "/f", "/gone"}));
    r.files.add_directory("/b");
    EXPECT_EQ(find_given_directories(r.files, "/a\n/b", 1).directories, texts{"/a"});
}

TEST(GivenPaths, OnlyAFewOfTheOthersAreSpokenOf) {
    EXPECT_EQ(others_words({"a", "b"}), "a\r\nb");
    EXPECT_EQ(others_words({"1", "2", "3", "4", "5", "6"}), "1\r\n2\r\n3\r\n4\r\n5\r\n…");
}

TEST(GivenPaths, PathsOfDrivesWhereTheDiskHasThem) {
    memory_file_system files('\\');
    EXPECT_EQ(read_given_paths(files, "C:\\a\\..\\b\\\nfile:///D:/x%20y\nC:\\\nrel\\x").paths,
              (texts{"C:\\b", "D:\\x y", "C:\\"}));
}

}  // namespace
}  // namespace corvane
