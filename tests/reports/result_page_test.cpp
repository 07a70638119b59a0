#include "reports/result_page.h"

#include <gtest/gtest.h>

#include <regex>

#include "core/settings/data_files.h"
#include "reports/result_shares.h"
#include "tests/reports/result_case.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using lines = std::vector<std::string>;

lines shown(const std::vector<byte_share>& shares) {
    lines texts;
    for (const byte_share& share : shares)
        texts.push_back(share.label + " " + std::to_string(share.bytes) + " " + std::to_string(share.files));
    return texts;
}

int count_of(const std::string& text, const std::string& part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

std::string page_of(result_case& c, const page_facts& facts = {}) {
    return c.written([&](line_writer& out) { write_result_page(out, c.read(), facts); });
}

TEST(ResultShares, SuffixesAreThoseOfNamesInEitherCase) {
    result_case c;
    c.keep({{10, "/a.d/x.JPG", "/a.d/y.jpg"},
            {3, "/a.d/none", "/a.d/.hidden"},
            {7, "/a.d/b.tar.gz", "/z.zip*in.d/name"},
            {2, "/z.zip*in\\q.txt", "/a.d/q.txt"}});
    // The dot of a directory and the one that begins a name are no suffix.
    EXPECT_EQ(shown(shares_by_suffix(c.read(), '/')), (lines{".jpg 20 2", " 13 3", ".gz 7 1", ".txt 4 2"}));
}

TEST(ResultShares, DirectoriesAreThoseBelowTheCommonOne) {
    result_case c;
    c.keep({{10, "/home/me/a/x/1", "/home/me/b/1"},
            {10, "/home/me/b/2", "/home/me/b/c/2"},
            {5, "/home/me/here", "/home/me/z.zip*b/5"}});
    EXPECT_EQ(shown(shares_by_directory(c.read(), '/')),
              (lines{"/home/me/b/ 30 3", "/home/me/ 10 2", "/home/me/a/ 10 1"}));
}

TEST(ResultShares, ANameThatBeginsAlikeIsAnotherDirectory) {
    result_case c;
    c.keep({{10, "/data/one/1", "/data/onetwo/1"}});
    EXPECT_EQ(shown(shares_by_directory(c.read(), '/')), (lines{"/data/one/ 10 1", "/data/onetwo/ 10 1"}));
    c.keep({{10, "/p/1", "/q/1"}});
    EXPECT_EQ(shown(shares_by_directory(c.read(), '/')), (lines{"/p/ 10 1", "/q/ 10 1"}));
    c.keep({{10, "/one/dir/1", "/one/dir/2"}});
    EXPECT_EQ(shown(shares_by_directory(c.read(), '/')), lines{"/one/dir/ 20 2"});
}

TEST(ResultPage, ShowsTheHundredGroupsThatFreeTheMost) {
    result_case c;
    std::vector<result_case::pair> pairs;
    for (int i = 1; i <= 150; ++i) pairs.push_back({i, "/a/" + std::to_string(i), "/b/" + std::to_string(i)});
    c.keep(pairs);
    const std::string page = page_of(c);
    EXPECT_EQ(count_of(page, "<article>"), 100);
    EXPECT_NE(page.find("最大的 100 组（共 150 组）"), std::string::npos);
    EXPECT_NE(page.find(">/a/51<"), std::string::npos);
    EXPECT_EQ(page.find(">/a/50<"), std::string::npos);
    EXPECT_LT(page.find(">/a/150<"), page.find(">/a/149<"));
}

TEST(ResultPage, AnEnormousGroupIsCutAndSaysSo) {
    result_case c;
    std::vector<result_case::pair> pairs;
    for (int i = 1; i <= 1234; ++i) pairs.push_back({1, "/a", "/b/" + std::to_string(i)});
    c.keep(pairs);
    const std::string page = page_of(c);
    EXPECT_EQ(count_of(page, "<li>"), 1000);
    EXPECT_NE(page.find("还有 235 个文件"), std::string::npos);
}

TEST(ResultPage, NeedsNothingFromElsewhere) {
    result_case c;
    c.keep({{5, "/a/<script>alert(1)</script>", "/b/\" onload=\"x"}});
    const std::string page = page_of(c);
    for (const char* part : {"<script", "http:", "https:", "url(", "@import", "src=", "href=", "<link"})
        EXPECT_EQ(page.find(part), std::string::npos) << part;
    EXPECT_NE(page.find("&lt;script&gt;alert(1)"), std::string::npos);
    EXPECT_NE(page.find("prefers-color-scheme: dark"), std::string::npos);
    EXPECT_NE(page.find("@media print"), std::string::npos);
}

TEST(ResultPage, ElementsAreClosedInTheirOrder) {
    result_case c;
    c.keep({{5, "/a/<b>", "/b/&"}, {0, "/e", "/f"}});
    page_facts facts;
    facts.directories = {"/a<", "/b"};
    facts.files = 7;
    const std::string page = page_of(c, facts);
    const std::regex tag("<(/?)([a-z][a-z0-9]*)[^>]*?(/?)>");
    lines open;
    for (std::sregex_iterator each(page.begin(), page.end(), tag), end; each != end; ++each) {
        const std::string name = (*each)[2];
        if (name == "meta" || (*each)[3] == "/") continue;
        if ((*each)[1] != "/") {
            open.push_back(name);
            continue;
        }
        ASSERT_FALSE(open.empty()) << name;
        EXPECT_EQ(open.back(), name);
        open.pop_back();
    }
    EXPECT_TRUE(open.empty());
    EXPECT_NE(page.find("<dd>7</dd>"), std::string::npos);
}

TEST(ResultPage, BarsOfNothingHaveNoWidth) {
    result_case c;
    c.keep({{0, "/a/e", "/b/f"}});
    const std::string page = page_of(c);
    EXPECT_EQ(count_of(page, "class=\"bar\" width=\"0.00\""), 3);
    EXPECT_EQ(page.find("nan"), std::string::npos);
}

struct page_program : test_program {
    page_program() {
        add_used_folder();
        corvane.start();
        screen.messages.clear();
    }
    std::string page() { return files.content_of(path); }
    const std::string path = program_dir + data_file::result_page;
};

TEST(PageTask, WritesBesideTheProgramAndOpensByAssociation) {
    page_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/other"})
        p.files.add_file(path, path[3] == 'o' ? "x" : "same");
    p.compare({"/d"});
    p.screen.messages.clear();
    p.form.run("报告网页_M");
    EXPECT_EQ(p.desktop.calls, std::vector<std::string>{"open " + p.path});
    EXPECT_TRUE(p.screen.messages.empty());
    EXPECT_NE(p.page().find("<bdi>/d/a</bdi>"), std::string::npos);
    EXPECT_NE(p.page().find("<dd>3</dd>"), std::string::npos);
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_TRUE(p.form.find("报告网页_M")->enabled);
}

TEST(PageTask, LeavesOutWhatHasGone) {
    page_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path, "same");
    p.compare({"/d"});
    p.files.erase("/d/a");
    p.form.run("报告网页_M");
    EXPECT_EQ(p.page().find("/d/a"), std::string::npos);
    EXPECT_NE(p.page().find("/d/b"), std::string::npos);
}

TEST(PageTask, WithoutAResultItSaysSoAndWritesNothing) {
    page_program p;
    p.form.run("报告网页_M");
    EXPECT_EQ(p.last_message(), "没有相同文件");
    EXPECT_FALSE(p.files.has(p.path));
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(PageTask, AFailedWriteLeavesTheOldPageAndOpensNothing) {
    page_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "same");
    p.compare({"/d"});
    p.files.add_file(p.path, "old");
    p.files.write_failure_path = p.path;
    p.form.run("报告网页_M");
    EXPECT_EQ(p.last_message(), p.path + "\r\ndisk full");
    EXPECT_TRUE(p.screen.messages.back().failure);
    EXPECT_EQ(p.page(), "old");
    EXPECT_TRUE(p.desktop.calls.empty());
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(PageTask, APageThatCannotBeOpenedIsTold) {
    page_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "same");
    p.compare({"/d"});
    p.desktop.answer = outcome::failure("no browser");
    p.form.run("报告网页_M");
    EXPECT_EQ(p.last_message(), "no browser");
}

TEST(PageTask, AFolderThatCannotBeWrittenHoldsNoPageToOpen) {
    test_program p;
    p.add_used_folder();
    p.files.folder_locked = true;
    p.corvane.start();
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "same");
    p.compare({"/d"});
    p.form.run("报告网页_M");
    EXPECT_EQ(p.last_message(), "/prog/\r\n程序目录不能写入。");
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(PageTask, ClosingAtAYieldWritesNoPage) {
    page_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "same");
    p.compare({"/d"});
    p.screen.on_yield = [&p] { p.state.quit_requested = -1; };
    const std::int64_t before = p.files.attribute_questions;
    p.form.run("报告网页_M");
    EXPECT_FALSE(p.files.has(p.path));
    EXPECT_EQ(p.files.attribute_questions, before) << "a closing program asks no further";
}

TEST(PageTask, AnotherTaskIsRefusedMeanwhile) {
    page_program p;
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "same");
    p.compare({"/d"});
    const std::int32_t compared = p.files.opened["/d/a"];
    p.screen.on_yield = [&p] {
        p.screen.on_yield = {};
        p.form.run("Picture3_Click");
    };
    p.form.run("报告网页_M");
    EXPECT_EQ(p.files.opened["/d/a"], compared);
    EXPECT_TRUE(p.files.has(p.path));
}

TEST(PageTask, AProgramThatClosesAtAnyYieldLeavesTheOldPageOrAWholeOne) {
    for (std::int64_t at = 1; at <= 6; ++at) {
        page_program p;
        for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "same");
        p.compare({"/d"});
        p.files.add_file(p.path, "old");
        p.screen.messages.clear();
        p.screen.acts[p.screen.yields + at] = [&] {
            EXPECT_EQ(p.files.content_of(p.path), "old");
            p.form.run("exit_sub");
        };
        p.form.run("报告网页_M");
        // While it reads the store, twice for the paths, while it orders them and while it makes the page;
        // then the disk takes the page in.
        const std::string page = p.files.content_of(p.path);
        if (at <= 5)
            EXPECT_EQ(page, "old") << at;
        else
            EXPECT_TRUE(page.ends_with("</html>\n")) << at;
        EXPECT_TRUE(p.screen.ended);
        EXPECT_TRUE(p.screen.messages.empty());
    }
}

TEST(ResultPage, SpeaksEnglishWhereItIsAskedTo) {
    result_case c;
    c.keep({{10, "/家/照片/1.jpg", "/家/照片/2.jpg"}});
    const translation table = english();
    page_facts facts;
    facts.words = &table;
    facts.files = 5;
    facts.directories = {"/家/照片"};
    std::string page = page_of(c, facts);
    for (const char* expected :
         {"<html lang=\"en\">", "<h1>Duplicate files</h1>", "Directory searched: <bdi>/家/照片</bdi>",
          "<dt>Files checked</dt>", "Bytes of duplicates by type", "2 files", "2 files of 10 B",
          "All groups of duplicates"})
        EXPECT_NE(page.find(expected), std::string::npos) << expected;
    // Beside the paths no Chinese word is left.
    for (const char* path : {"/家/照片", "家", "照片"})
        for (std::size_t at = page.find(path); at != std::string::npos; at = page.find(path))
            page.erase(at, std::string_view(path).size());
    for (std::size_t at = 0; at < page.size();
         at = page.find('\n', at) == std::string::npos ? page.size() : page.find('\n', at) + 1) {
        const std::string line = page.substr(at, page.find('\n', at) - at);
        EXPECT_FALSE(holds_chinese(line)) << line;
    }
}

}  // namespace
}  // namespace corvane
