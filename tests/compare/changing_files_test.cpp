// Files that change while they are compared, files that are one behind two paths, and the proofs that a
// comparison leaves behind.
#include <gtest/gtest.h>

#include <functional>

#include "core/archives/checksum.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

std::string member(const std::string& archive_and_name, const std::string& content) {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%08X", checksum(std::as_bytes(std::span(content))));
    return archive_and_name + "*" + digits + "*" + std::to_string(content.size());
}

// Writes over a file; its stated time stays as it was.
void rewrite(test_program& p, const std::string& path, const std::string& content) {
    memory_file& file = p.files.add_file(path, content);
    file.changed_ns += 1;
}

bool stands_in_a_pair(const run_state& state, std::string_view path) {
    for (const std::int32_t row : {1, 2})
        for (const std::int32_t file : state.same_pair[static_cast<std::size_t>(row)])
            if (state.file_list[file] == path) return true;
    return false;
}

// Compares /d/a, /d/b and so on, all of `content`, and changes `path` at each yield in turn. `check` is told
// whether it stood in a pair by then.
void change_at_each_yield(int files, const std::string& content, const std::string& path,
                          const std::function<void(test_program&, bool)>& check) {
    bool reached = true;
    int changed_before_its_pair = 0;
    for (std::int64_t at = 1; reached; ++at) {
        test_program p;
        for (int n = 0; n < files; ++n)
            p.files.add_file(std::string("/d/") + static_cast<char>('a' + n), content);
        p.search({"/d"});
        reached = false;
        bool paired = false;
        p.screen.acts[p.screen.yields + at] = [&] {
            // What is stored by then is stored.
            reached = p.form.Command28.visible || !p.files.has("/prog/不相同文件.txt");
            if (!reached) return;
            paired = stands_in_a_pair(p.state, path);
            std::string other = content;
            if (other.empty())
                other = "x";
            else
                other.back() = '!';
            rewrite(p, path, other);
        };
        p.form.run("Picture3_Click");
        if (!reached) break;
        changed_before_its_pair += !paired;
        check(p, paired);
        if (testing::Test::HasFailure()) FAIL() << "yield " << at;
    }
    EXPECT_GT(changed_before_its_pair, files) << "and after its reading, too";
}

TEST(ChangingFile, IsInNoPairUnlessItWasRegisteredBefore) {
    for (const int files : {2, 3})
        for (const std::size_t length : {std::size_t{3}, std::size_t{9}, std::size_t{70'000}})
            change_at_each_yield(files, std::string(length, 'c'), "/d/b", [&](test_program& p, bool paired) {
                texts expected;
                const std::string stars = std::to_string(length) + " /d/a /d/";
                if (paired) expected.push_back(stars + "b");
                if (files == 3) expected.push_back(stars + "c");
                EXPECT_EQ(p.stored_pairs(), expected) << files << " of " << length;
            });
}

TEST(ChangingFile, ThatStoodFirstLeavesThePairsOfTheOthers) {
    change_at_each_yield(3, std::string(70'000, 'c'), "/d/a", [](test_program& p, bool paired) {
        if (paired)
            EXPECT_EQ(p.stored_pairs(), (texts{"70000 /d/a /d/b", "70000 /d/a /d/c"}));
        else
            EXPECT_EQ(p.stored_pairs(), (texts{"70000 /d/b /d/c"}));
    });
}

TEST(ChangingFile, AnEmptyFileThatFillsUpIsInNoPair) {
    for (const char* path : {"/d/a", "/d/b"})
        change_at_each_yield(3, "", path, [&](test_program& p, bool paired) {
            EXPECT_TRUE(paired || p.stored_pairs().size() == 1) << path;
        });
}

TEST(ChangingFile, OneThatOnlyItsChangeTimeTellsDropsOut) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "equal content");
    p.search({"/d"});
    // Between the facts and the reading: another file has taken the place, with length and time of the first.
    p.screen.acts[p.screen.yields + 4] = [&] { ++p.files.add_file("/d/b", "equal content").changed_ns; };
    p.form.run("Picture3_Click");
    EXPECT_EQ(p.stored_pairs(), texts{});
    EXPECT_EQ(p.stored_lines("不相同文件.txt"), (texts{"/d/a", "/d/b"}));
}

TEST(OneFile, SeenThroughAStackOfMountsIsNoPair) {
    test_program p;
    for (const char* path : {"/merged/f", "/upper/f", "/upper/g"}) {
        memory_file& file = p.files.add_file(path, "one content");
        file.index = path[std::string_view(path).size() - 1] == 'f' ? 70 : 71;
        file.stacked = path[1] == 'm';
        file.device = file.stacked ? 9 : 1;
    }
    p.compare({"/merged", "/upper"});
    EXPECT_EQ(p.stored_pairs(), texts{"11 /merged/f /upper/g"});
}

TEST(OneFile, IsToldByItsFactsNotByTheStateThatItWasListedWith) {
    for (const std::uint64_t links : {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{2}}) {
        test_program p;
        const std::uint64_t index = p.files.add_file("/d/a", "equal content").index;
        p.files.add_file("/d/b", "equal content").index = index;
        p.files.blur_state = [&](std::string_view, file_facts& state) { state.link_count = links; };
        p.compare({"/d"});
        EXPECT_EQ(p.stored_pairs(), texts{}) << links;
        for (const char* path : {"/d/c", "/d/e"}) {
            memory_file& file = p.files.add_file(path, "another content");
            file.index = 4711;
            file.link_count = 2;
        }
        p.compare({"/d"});
        EXPECT_EQ(p.stored_pairs(), texts{"15 /d/c /d/e"}) << links;
    }
}

// The state was told with the number of the file that stood there before.
TEST(ChangingFile, ThatTookThePlaceOfAnotherIsInNoPairAndLeavesThoseOfTheOthers) {
    for (const char* replaced : {"/d/a", "/d/b", "/d/c"}) {
        test_program p;
        for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path, "equal content");
        p.files.blur_state = [&](std::string_view path, file_facts& state) {
            if (path == replaced) state.identity.index = 4711;
        };
        p.compare({"/d"});
        const std::string kept = replaced[3] == 'a' ? "/d/b" : "/d/a";
        EXPECT_EQ(p.stored_pairs(), texts{"13 " + kept + (replaced[3] == 'c' ? " /d/b" : " /d/c")})
            << replaced;
        EXPECT_EQ(p.state.proven.find(replaced), nullptr);
        EXPECT_NE(p.state.proven.find(kept), nullptr);
        // The next comparison sees the file that stands there now.
        p.files.blur_state = {};
        p.compare({"/d"});
        EXPECT_EQ(p.stored_pairs(), (texts{"13 /d/a /d/b", "13 /d/a /d/c"}));
    }
}

TEST(OneFile, TheEntriesOfAnArchiveWithTwoPathsAreNoPair) {
    test_program p;
    const std::uint64_t index = p.files.add_file("/a/x.zip", "archive").index;
    p.files.add_file("/b/x.zip", "archive").index = index;
    p.files.add_file("/c/x.zip", "another");
    const std::string content = "of the member";
    p.compare_list(
        {member("/a/x.zip*m", content), member("/b/x.zip*m", content), member("/c/x.zip*m", content)});
    EXPECT_EQ(p.stored_pairs(), texts{"13 /a/x.zip*m /c/x.zip*m"});
}

texts proven(const test_program& p) {
    texts found;
    for (std::int32_t i = 0; i < 26; ++i) {
        const std::string path = std::string("/d/") + static_cast<char>('a' + i);
        const proven_files::proof* proof = p.state.proven.find(path);
        if (proof == nullptr) continue;
        found.push_back(path);
        EXPECT_TRUE(same_state(proof->facts, const_cast<test_program&>(p).files.facts(path))) << path;
    }
    return found;
}

TEST(Proof, FilesOfAStarThatWereComparedByBytesShareItsNumber) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path, "equal content");
    for (const char* path : {"/d/e", "/d/f"}) p.files.add_file(path, "another pair");
    for (const char* path : {"/d/g", "/d/h"}) p.files.add_file(path);
    p.files.add_file("/d/u", "without a twin");
    p.compare({"/d"});
    EXPECT_EQ(proven(p), (texts{"/d/a", "/d/b", "/d/c", "/d/e", "/d/f", "/d/g", "/d/h"}));
    const auto star = [&](const char* path) { return p.state.proven.find(path)->star; };
    EXPECT_EQ(star("/d/a"), star("/d/b"));
    EXPECT_EQ(star("/d/a"), star("/d/c"));
    EXPECT_EQ(star("/d/e"), star("/d/f"));
    EXPECT_EQ(star("/d/g"), star("/d/h"));
    EXPECT_NE(star("/d/a"), star("/d/e"));
    EXPECT_NE(star("/d/a"), star("/d/g"));
    EXPECT_NE(star("/d/e"), star("/d/g"));
}

TEST(Proof, EndsWithTheNextComparison) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "equal content");
    p.compare({"/d"});
    EXPECT_EQ(proven(p), (texts{"/d/a", "/d/b"}));
    p.files.add_file("/d/b", "other content");
    p.compare({"/d"});
    EXPECT_EQ(p.state.proven.size(), 0u);
}

TEST(Proof, NoneForWhatNameTimeAndChecksumOrAnArchiveHaveDecided) {
    test_program by_name;
    for (const char* path : {"/d/x/n", "/d/y/N", "/d/z/other"}) by_name.files.add_file(path, "equal content");
    by_name.compare({"/d"});
    EXPECT_EQ(by_name.stored_pairs().size(), 2u);
    EXPECT_EQ(by_name.state.proven.find("/d/y/N"), nullptr);
    EXPECT_NE(by_name.state.proven.find("/d/x/n"), nullptr) << "compared with the third";
    EXPECT_NE(by_name.state.proven.find("/d/z/other"), nullptr);

    test_program by_archive;
    for (const char* path : {"/d/a", "/d/b"}) by_archive.files.add_file(path, "equal content");
    by_archive.compare_list({member("/c.zip*m", "equal content"), "/d/a", "/d/b"});
    EXPECT_EQ(by_archive.stored_pairs().size(), 2u);
    EXPECT_EQ(by_archive.state.proven.size(), 0u);
}

// A list of more than 500 files, so that there is a history.
struct long_list {
    test_program p;
    texts entries;

    long_list() {
        for (std::size_t i = 0; i < 500; ++i) {
            const std::string path = "/f/" + std::to_string(1000 + i);
            p.files.add_file(path, std::string(100'000 + i, 'f'));
            entries.push_back(path);
        }
    }
    void compare(const texts& more) {
        texts all = more;
        all.insert(all.end(), entries.begin(), entries.end());
        p.compare_list(all);
    }
};

TEST(Proof, UpToFourBytesTheSignatureProvesUnlessItComesFromTheHistory) {
    long_list list;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) list.p.files.add_file(path, "abcd");
    list.compare({"/d/a", "/d/b", "/d/c"});
    EXPECT_EQ(proven(list.p), (texts{"/d/a", "/d/b", "/d/c"}));
    list.compare({"/d/a", "/d/b", "/d/c"});
    EXPECT_EQ(list.p.stored_pairs().size(), 2u);
    EXPECT_EQ(proven(list.p), texts{});
}

TEST(History, OfFilesWithOneStartDoesNotPairThemWhenAnArchiveIsInReach) {
    long_list list;
    const std::string start(65'536, 's');
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) list.p.files.add_file(path, start + path);
    list.compare({"/d/a", "/d/b", "/d/c"});
    EXPECT_EQ(list.p.stored_pairs(), texts{});
    list.compare({member("/c.zip*m", start + "/d/c"), "/d/a", "/d/b", "/d/c"});
    EXPECT_EQ(list.p.stored_pairs(), texts{}) << "the member is not the first by signature";
}

TEST(History, OfFilesComparedWithAnArchiveServesARunWithoutOne) {
    long_list list;
    const std::string content(70'000, 'w');
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) list.p.files.add_file(path, content);
    list.compare({"/c.zip*m*00000001*70000", "/d/a", "/d/b"});
    list.p.files.opened.clear();
    list.compare({"/d/a", "/d/b", "/d/c"});
    EXPECT_EQ(list.p.stored_pairs(), (texts{"70000 /d/a /d/b", "70000 /d/a /d/c"}));
}

}  // namespace
}  // namespace corvane
