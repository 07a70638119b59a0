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
        files.clock_ns = 100'000'000'000;
        for (int i = 0; i < 500; ++i)
            files.add_file("/d/f/" + std::to_string(i), std::string(100 + static_cast<std::size_t>(i), 'f'));
        for (const char* path : {"/d/a1", "/d/a2", "/d/a3"}) files.add_file(path, "equal");
        for (const char* path : {"/d/b1", "/d/b2"}) files.add_file(path, "a pair");
        const std::string start(70'000, 's');
        for (const char* path : {"/d/c1", "/d/c3"}) files.add_file(path, start + "end");
        files.add_file("/d/c2", start + "END");
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
    // Other bytes of the same length, written at `moment`; the date is set back, which moves the change.
    void rewrite(const std::string& path, const std::string& content, std::int64_t moment) {
        memory_file& file = files.add_file(path, content);
        file.changed_ns = moment;
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
    p.rewrite("/d/c1", std::string(70'000, 's') + "END", 5'000'000'000);
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
    p.files.add_file("/d/a0", "equal");
    p.files.add_file("/d/b3", "a pair");
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

TEST(StoredContents, ADeletionComparesAnew) {
    compared_program p;
    p.again();
    // As no system does it: other bytes, and nothing tells.
    const file_facts before = p.files.facts("/d/b2");
    memory_file& file = p.files.add_file("/d/b2", "A PAIR");
    ASSERT_EQ(p.files.facts("/d/b2").changed_ns, before.changed_ns);
    ASSERT_EQ(file.index, before.identity.index);
    p.again();
    ASSERT_EQ(p.pairs(), p.all) << "it cannot be known";
    p.state.same_fresh_flag = 0;
    p.form.run("Picture4_Click");
    for (std::int32_t row = 1; row <= p.list().row_count(); ++row)
        if (p.list().cell(row, 4) == "/d/b2" || p.list().cell(row, 4) == "/d/a2") p.mark(row, 4);
    ASSERT_EQ(p.list().marked_cells(), 2);
    p.run_recycle();
    EXPECT_EQ(p.recycled, texts{"/d/a2"});
    EXPECT_EQ(p.files.content_of("/d/b2"), "A PAIR");
}

TEST(StoredContents, WhatHasChangedAMomentBeforeTheLookIsNotKept) {
    compared_program p;
    p.rewrite("/d/b2", "a pair", p.files.clock_ns - least_age_ns + 1'000);
    p.rewrite("/d/a2", "equal", p.files.clock_ns - least_age_ns - 1'000);
    p.again();
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_GT(p.read("b1"), 0);
    EXPECT_GT(p.read("b2"), 0);
    EXPECT_EQ(p.read("a2"), 0);
}

TEST(StoredContents, WhereTheSystemTellsNoChangeNothingIsKept) {
    compared_program p;
    for (const char* path : {"/d/b1", "/d/b2"}) p.rewrite(path, "a pair", 0);
    p.again();
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_GT(p.read("b1"), 0);
}

TEST(StoredContents, AnotherFileInThePlaceIsAnother) {
    compared_program p;
    p.again();
    p.files.erase("/d/b2");
    p.files.add_file("/d/b2", "A PAIR");  // of the same dates
    p.again();
    EXPECT_EQ(p.pairs(), (texts{"5 /d/a1 /d/a2", "5 /d/a1 /d/a3", "70003 /d/c1 /d/c3"}));
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
    p.files.on_commit = {};
    p.screen.on_yield = [&] {
        if (p.form.Command28.visible) p.form.run("Command28_Click");
    };
    p.again();
    ASSERT_LT(p.pairs().size(), p.all.size());
    p.screen.on_yield = {};
    p.again();
    EXPECT_EQ(p.pairs(), p.all);
    EXPECT_EQ(p.read_files(), 0);
}

TEST(StoredContents, OneSuffixAloneAndAllOfThemDoNotMixTheirReadings) {
    compared_program p;
    for (const char* path : {"/d/s1.txt", "/d/s2.txt", "/d/s1.jpg", "/d/s2.jpg"})
        p.files.add_file(path, "suffixed");
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
    bool written = false;
    p.screen.on_yield = [&] {
        if (written || !p.form.Command28.visible) return;
        written = true;
        p.rewrite("/d/b2", "A PAIR", 99'000'000'000);
    };
    p.again();
    ASSERT_TRUE(written);
    EXPECT_EQ(p.pairs(), (texts{"5 /d/a1 /d/a2", "5 /d/a1 /d/a3", "70003 /d/c1 /d/c3"}));
}

}  // namespace
}  // namespace corvane
