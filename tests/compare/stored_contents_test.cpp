// What a comparison keeps of contents, so that a later one reads nothing that has not changed.
#include "compare/stored_contents.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

// Enough files for a history, and among them: three equal ones, a pair of a length of its own, and three of
// which the starts are equal and one of them ends otherwise.
struct compared_program : deleting {
    compared_program() {
        files.clock_ns = 1'000'000'000'007;
        for (int i = 0; i < 500; ++i)
            add("/d/f/" + std::to_string(i), std::string(100 + static_cast<std::size_t>(i), 'f'));
        for (const char* path : {"/d/a1", "/d/a2", "/d/a3"}) add(path, "equal");
        for (const char* path : {"/d/b1", "/d/b2"}) add(path, "a pair");
        const std::string start(70'000, 's');
        for (const char* path : {"/d/c1", "/d/c3"}) add(path, start + "end");
        add("/d/c2", start + "END");
    }
    void again() {
        files.opened.clear();
        compare({"/d"});
    }
    texts pairs() {
        texts found = stored_pairs();
        std::sort(found.begin(), found.end());
        return found;
    }
    int read(const std::string& name) { return files.opened["/d/" + name]; }
    int read_files() {
        int count = 0;
        for (const auto& [path, times] : files.opened) count += path.starts_with("/d/") ? times : 0;
        return count;
    }
    std::string stored() const { return files.content_of("/prog/run_contents.txt"); }
    // Puts a file there, or other bytes into it; its date stays, and its change is of this moment.
    memory_file& add(const std::string& path, const std::string& content,
                     std::int64_t moment = 1'234'567'891) {
        memory_file& file = files.add_file(path, content);
        file.changed_ns = moment;
        return file;
    }
    // While the comparison itself runs, once.
    void at_a_yield(const std::function<bool()>& is_time, const std::function<void()>& act) {
        screen.on_yield = [=, this, done = false]() mutable {
            if (done || !form.Command28.visible || !is_time()) return;
            done = true;
            act();
        };
    }
    const texts all{"5 /d/a1 /d/a2", "5 /d/a1 /d/a3", "6 /d/b1 /d/b2", "70003 /d/c1 /d/c3"};
};

TEST(StoredContents, ASecondComparisonReadsNoFile) {
    compared_program p;
    p.again();
    ASSERT_EQ(p.pairs(), p.all);
    ASSERT_GT(p.read_files(), 8);
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_EQ(p.read_files(), 0);
}

TEST(StoredContents, OneThatHasChangedIsReadWithThoseOfItsSignature) {
    compared_program p;
    p.again();
    // The start is the same, and so are length and date.
    p.add("/d/c1", std::string(70'000, 's') + "END", 5'000'000'001);
    p.again();
    EXPECT_EQ(p.pairs(), (texts{"5 /d/a1 /d/a2", "5 /d/a1 /d/a3", "6 /d/b1 /d/b2", "70003 /d/c1 /d/c2"}));
    for (const char* name : {"c1", "c2", "c3"}) EXPECT_GT(p.read(name), 0) << name;
    for (const char* name : {"a1", "a2", "a3", "b1", "b2"}) EXPECT_EQ(p.read(name), 0) << name;
    p.again();
    EXPECT_EQ(p.read_files(), 0) << "and that is kept in its turn";
    EXPECT_EQ(p.pairs()[3], "70003 /d/c1 /d/c2");
}

TEST(StoredContents, AFileThatIsNewIsComparedWithAllOfThem) {
    compared_program p;
    p.again();
    p.add("/d/a0", "equal");
    p.add("/d/b3", "a pair");
    p.again();
    EXPECT_EQ(p.pairs(), (texts{"5 /d/a0 /d/a1", "5 /d/a0 /d/a2", "5 /d/a0 /d/a3", "6 /d/b1 /d/b2",
                                "6 /d/b1 /d/b3", "70003 /d/c1 /d/c3"}));
    p.again();
    EXPECT_EQ(p.read_files(), 0);
    EXPECT_EQ(p.pairs().size(), 6u);
}

TEST(StoredContents, AFileThatHasGoneLeavesTheOthersKnown) {
    compared_program p;
    p.again();
    p.files.erase("/d/a1");
    p.again();
    EXPECT_EQ(p.pairs(), (texts{"5 /d/a2 /d/a3", "6 /d/b1 /d/b2", "70003 /d/c1 /d/c3"}));
    EXPECT_EQ(p.read_files(), 0);
}

TEST(StoredContents, ADeletionComparesAnewOnBothRoads) {
    for (const bool direct : {false, true}) {
        compared_program p;
        p.again();
        // As no disk does it: other bytes, and nothing tells.
        const file_facts before = p.files.facts("/d/b2");
        p.add("/d/b2", "A PAIR");
        ASSERT_TRUE(same_state(p.files.facts("/d/b2"), before));
        p.again();
        ASSERT_EQ(p.pairs(), p.all) << "it cannot be known";
        p.state.same_fresh_flag = 0;
        p.form.run("Picture4_Click");
        for (std::int32_t row = 1; row <= p.list().row_count(); ++row)
            if (p.list().cell(row, 4) == "/d/b2" || p.list().cell(row, 4) == "/d/a2") p.mark(row, 4);
        ASSERT_EQ(p.list().marked_cells(), 2);
        if (direct)
            p.run_direct({box_answer::yes, box_answer::yes});
        else
            p.run_recycle();
        EXPECT_EQ(direct ? p.files.removed : p.recycled, texts{"/d/a2"});
        EXPECT_EQ(p.files.content_of("/d/b2"), "A PAIR");
    }
}

TEST(StoredContents, WhatHasChangedAMomentBeforeTheLookIsNotKept) {
    compared_program p;
    p.add("/d/b2", "a pair", p.files.clock_ns - least_age_ns + 1'000);
    p.add("/d/a2", "equal", p.files.clock_ns - least_age_ns - 1'000);
    p.again();
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_GT(p.read("b1"), 0);
    EXPECT_GT(p.read("b2"), 0);
    EXPECT_EQ(p.read("a2"), 0);
}

TEST(StoredContents, WhereTheSystemTellsNoFineChangeNothingIsKept) {
    // None; whole seconds; the steps of ten milliseconds of some sticks.
    for (const std::int64_t moment :
         {std::int64_t{0}, std::int64_t{7'000'000'000}, std::int64_t{7'120'000'000}}) {
        compared_program p;
        for (const char* path : {"/d/b1", "/d/b2"}) p.add(path, "a pair", moment);
        p.again();
        p.again();
        EXPECT_EQ(p.pairs(), p.all);
        EXPECT_GT(p.read("b1"), 0) << moment;
        EXPECT_EQ(p.read("a1"), 0);
    }
}

TEST(StoredContents, AnotherFileInThePlaceIsAnother) {
    compared_program p;
    p.again();
    p.files.erase("/d/b2");
    p.add("/d/b2", "A PAIR");  // of the same dates
    p.again();
    EXPECT_EQ(p.pairs(), (texts{"5 /d/a1 /d/a2", "5 /d/a1 /d/a3", "70003 /d/c1 /d/c3"}));
}

TEST(StoredContents, OneStateUnderAnotherPathIsAnotherFile) {
    // A disk that makes its numbers up as it is asked: after it was taken out they are dealt anew.
    compared_program p;
    p.again();
    const std::uint64_t one = p.files.facts("/d/c1").identity.index,
                        other = p.files.facts("/d/c2").identity.index;
    const std::string start(70'000, 's');
    p.add("/d/c1", start + "end").index = other;
    p.add("/d/c2", start + "END").index = one;
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_GT(p.read("c1"), 0);
}

TEST(StoredContents, HardLinksAreKept) {
    compared_program p;
    memory_file& link = p.add("/d/b3", "a pair");
    link.index = p.files.facts("/d/b1").identity.index;
    link.link_count = 2;
    p.files.add_file("/d/b1", "a pair").link_count = 2;
    p.again();
    const texts found = p.pairs();
    for (const char* pair : {"6 /d/b1 /d/b2", "6 /d/b1 /d/b3"})
        EXPECT_EQ(std::count(found.begin(), found.end(), pair), 1) << pair;
    p.again();
    EXPECT_EQ(p.pairs(), found);
    EXPECT_EQ(p.read_files(), 0);
}

TEST(StoredContents, AFileThatIsNotWholeTellsNothing) {
    compared_program p;
    p.again();
    const std::string whole = p.stored();
    // A title, eight files, the sum; each line 17 signs and its end.
    ASSERT_EQ(std::count(whole.begin(), whole.end(), '\n'), 10);
    const std::size_t second = whole.find('\n') + 1;
    std::vector<std::string> broken{"",
                                    whole.substr(0, second),
                                    whole.substr(0, whole.size() - 19),
                                    whole.substr(0, second) + whole.substr(second + 19),
                                    whole + "s0123456789abcdef\r\n",
                                    "corvane contents 2" + whole.substr(18)};
    for (std::size_t at = second; at < whole.size(); at += 19) {
        for (const char sign : {'r', 'c', 's', 'x'}) {
            broken.push_back(whole);
            if (broken.back()[at] == sign)
                broken.pop_back();
            else
                broken.back()[at] = sign;
        }
        broken.push_back(whole);
        char& digit = broken.back()[at + 9];
        digit = digit == '7' ? '8' : '7';
        broken.push_back(whole);
        broken.back()[at + 4] = 'z';
    }
    for (const std::string& text : broken) {
        p.files.add_file("/prog/run_contents.txt", text);
        p.again();
        EXPECT_EQ(p.pairs(), p.all);
        EXPECT_GT(p.read_files(), 0) << text;
        EXPECT_EQ(p.stored(), whole);
    }
}

TEST(StoredContents, AFileThatBreaksOffWhenReadTellsNothing) {
    compared_program p;
    p.again();
    p.files.add_file("/prog/run_contents.txt", p.stored()).read_failure = 60;
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_GT(p.read_files(), 0);
}

TEST(StoredContents, WhatIsStoredAlreadyIsNotWrittenAgain) {
    compared_program p;
    int written = 0;
    p.files.on_commit = [&](const std::string& path) { written += path == "/prog/run_contents.txt" ? 1 : 0; };
    p.again();
    EXPECT_EQ(written, 1);
    p.again();
    EXPECT_EQ(written, 1);
    p.files.erase("/d/a3");
    p.again();
    EXPECT_EQ(written, 2) << "what is gone is not kept";
}

TEST(StoredContents, WhereItCannotBeWrittenTheResultStands) {
    compared_program p;
    p.files.write_failure_path = "/prog/run_contents.txt";
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_FALSE(p.files.has("/prog/run_contents.txt"));
    for (const message& box : p.screen.messages) EXPECT_FALSE(box.failure) << box.text;
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
}

TEST(StoredContents, WithoutAHistoryThereIsNone) {
    compared_program p;
    p.state.history_off = true;
    p.again();
    EXPECT_FALSE(p.files.has("/prog/run_contents.txt"));
    p.state.history_off = false;
    p.again();
    const std::string kept = p.stored();
    ASSERT_FALSE(kept.empty());
    p.state.history_off = true;
    p.again();
    EXPECT_GT(p.read_files(), 0);
    EXPECT_EQ(p.stored(), kept);
    p.state.history_off = false;
    p.compare({"/d/f"});
    EXPECT_EQ(p.stored(), kept) << "500 files leave it alone";
}

TEST(StoredContents, ACancelledComparisonKeepsWhatItHasNotComeTo) {
    compared_program p;
    p.again();
    p.at_a_yield([] { return true; }, [&] { p.form.run("Command28_Click"); });
    p.again();
    ASSERT_LT(p.pairs().size(), p.all.size());
    p.screen.on_yield = {};
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_EQ(p.read_files(), 0);
}

TEST(StoredContents, WhatWasReadInAnotherStateThanTheListedOneIsNotKept) {
    for (const bool is_cancelled : {false, true}) {
        compared_program p;
        const std::string start(70'000, 's');
        // Listed equal; while it is read another stands in its place, and later it is back as it was.
        p.add("/d/c2", start + "end");
        p.at_a_yield([] { return true; }, [&] { p.add("/d/c2", start + "END", 999'000'000'001); });
        p.again();
        EXPECT_EQ(p.pairs(), p.all);
        ASSERT_GT(p.read("c2"), 0);
        p.add("/d/c2", start + "end");
        if (is_cancelled)
            p.at_a_yield([&] { return p.read("c2") > 0; }, [&] { p.form.run("Command28_Click"); });
        else
            p.screen.on_yield = {};
        p.again();
        p.screen.on_yield = {};
        p.again();
        EXPECT_EQ(p.pairs(), (texts{"5 /d/a1 /d/a2", "5 /d/a1 /d/a3", "6 /d/b1 /d/b2", "70003 /d/c1 /d/c2",
                                    "70003 /d/c1 /d/c3"}));
    }
}

TEST(StoredContents, AProgramThatClosesWhileItAsksOnceMoreKeepsNothingNew) {
    compared_program p;
    // The walk yields twice behind the last pair.
    p.at_a_yield([&, turns = 0]() mutable { return p.state.result_count == 4 && ++turns == 3; },
                 [&] { p.form.run("exit_sub"); });
    p.again();
    EXPECT_TRUE(p.state.quit_requested);
    EXPECT_FALSE(p.files.has("/prog/run_contents.txt"));
}

TEST(StoredContents, OneSuffixAloneAndAllOfThemDoNotMixTheirReadings) {
    compared_program p;
    for (const char* path : {"/d/s1.txt", "/d/s2.txt", "/d/s1.jpg", "/d/s2.jpg"}) p.add(path, "suffixed");
    const auto of_suffixes = [&] {
        texts found;
        for (const std::string& pair : p.pairs())
            if (pair.starts_with("8 ")) found.push_back(pair);
        return found;
    };
    p.state.same_suffix_only = true;
    p.again();
    EXPECT_EQ(of_suffixes(), (texts{"8 /d/s1.jpg /d/s2.jpg", "8 /d/s1.txt /d/s2.txt"}));
    p.state.same_suffix_only = false;
    p.again();
    const texts all_equal{"8 /d/s1.jpg /d/s1.txt", "8 /d/s1.jpg /d/s2.jpg", "8 /d/s1.jpg /d/s2.txt"};
    EXPECT_EQ(of_suffixes(), all_equal);
    p.again();
    EXPECT_EQ(of_suffixes(), all_equal);
    EXPECT_EQ(p.read_files(), 0);
}

TEST(StoredContents, AFileThatChangesWhileItIsComparedTakesNoPart) {
    compared_program p;
    p.again();
    // The list's question is answered, and then it is written to.
    p.at_a_yield([] { return true; }, [&] { p.add("/d/b2", "A PAIR", 999'000'000'001); });
    p.again();
    EXPECT_EQ(p.files.content_of("/d/b2"), "A PAIR");
    EXPECT_EQ(p.pairs(), (texts{"5 /d/a1 /d/a2", "5 /d/a1 /d/a3", "70003 /d/c1 /d/c3"}));
}

TEST(StoredContents, AnAnswerIsTakenForASecondAndNoLonger) {
    for (const double seconds : {0.5, 1.5}) {
        compared_program p;
        p.again();
        // Asked together with the first pair, gone before its own stands.
        p.at_a_yield([&] { return p.state.result_count > 0; },
                     [&] {
                         p.files.erase("/d/c3");
                         p.screen.clock += seconds;
                     });
        p.again();
        const texts found = p.pairs();
        EXPECT_EQ(std::count(found.begin(), found.end(), "70003 /d/c1 /d/c3"), seconds < 1 ? 1 : 0);
        EXPECT_EQ(found.size(), seconds < 1 ? 4u : 3u);
    }
}

TEST(StoredContents, FewQuestionsAreAskedWhereKnownAndOtherPairsAlternate) {
    compared_program p;
    // By turns a length of two files, and one of three of one name and date, which nobody reads.
    for (int i = 0; i < 300; ++i) {
        const std::string number = std::to_string(1000 + i);
        for (const char* folder : {"/d/x/", "/d/y/"})
            p.add(folder + number, std::string(1000 + 2 * static_cast<std::size_t>(i), 'x'));
        for (const char* folder : {"/d/x/", "/d/y/", "/d/z/"})
            p.add(folder + ("n" + number), std::string(1001 + 2 * static_cast<std::size_t>(i), 'x'));
    }
    p.again();
    const texts found = p.pairs();
    ASSERT_EQ(found.size(), 4u + 900u);
    p.files.fact_questions = 0;
    p.again();
    EXPECT_EQ(p.pairs(), found);
    EXPECT_EQ(p.read_files(), 0);
    // 2,008 files: once for the list, once for their pairs, and what was asked in vain.
    EXPECT_LT(p.files.fact_questions, 4 * 2'008);
}

}  // namespace
}  // namespace corvane
