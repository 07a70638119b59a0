#include "console/directory_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

#include "console/plain_shell.h"
#include "console/script.h"
#include "platform/machine.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/scripted_interface.h"
#include "tests/support/settings_file.h"

namespace corvane {
namespace {

std::string content_of(std::FILE* stream) {
    std::fflush(stream);
    std::rewind(stream);
    std::string text(1 << 16, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), stream));
    return text;
}

struct directory_case {
    directory_case() {
        files.add_file("/prog/Tavrel环境.txt", with_line_ends(fresh_settings_lines()));
        for (const char* list : {"比较文件_目录清单.txt", "不参加搜索的目录.txt", "不参加比较的文件类型.txt",
                                 "仅搜索的文件类型.txt"})
            files.add_file(std::string("/prog/") + list);
        asked.directories = {"/d"};
    }
    ~directory_case() {
        std::fclose(out);
        std::fclose(err);
    }
    // `act` runs at the n-th yield of the run; 0: never.
    int run(std::int64_t number = 0, std::function<void(program&)> act = {}) {
        program corvane({files, shell, shell, screen, encodings}, "/prog/");
        if (!corvane.start()) return -1;
        // Counted from the yields of the run itself, before it looks around.
        if (number > 0) screen.at_yield(number, [&corvane, act] { act(corvane); });
        return directory_run(corvane, screen, words, asked, out).run();
    }
    std::string printed() { return content_of(out); }
    std::string said() { return content_of(err); }

    memory_file_system files;
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    command_line asked;
    plain_words words{err, false};
    record_output records{err};
    plain_interface screen{records, words};
    recording_shell desktop;
    plain_shell shell{words, desktop};
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
};

void interrupt(program&) {
    std::raise(SIGINT);
}

void add_pairs(directory_case& c, int pairs) {
    for (int i = 0; i < pairs; ++i)
        for (const char* side : {"a", "b"})
            c.files.add_file("/d/" + std::string(side) + std::to_string(i), std::string(10 + i, 'x'));
}

TEST(DirectoryRun, PrintsPairsAndOneSentence) {
    directory_case c;
    add_pairs(c, 2);
    EXPECT_EQ(c.run(), status_done);
    EXPECT_EQ(c.printed(), "10\t/d/a0\t/d/b0\n11\t/d/a1\t/d/b1\n");
    EXPECT_EQ(c.said().substr(0, 30), "4 files, 2 equal ones, 21 B, 0");
}

TEST(DirectoryRun, AnInterruptAtAnyYieldEndsItWithWhatIsStored) {
    // Whatever stands at that moment: what is printed is what this run has stored, never an older result.
    const std::string old = "内容相同文件清单            \r\n 1 \r\n 3 \r\n/old/a\r\n/old/b\r\n";
    int empty = 0;
    int partial = 0;
    int whole = 0;
    for (std::int64_t at = 1; at <= 120; ++at) {
        directory_case c;
        add_pairs(c, 6);
        c.files.add_file("/prog/相同文件.txt", old);
        bool reached = false;
        const int status = c.run(at, [&reached](program& corvane) {
            reached = true;
            interrupt(corvane);
        });
        if (!reached) {
            EXPECT_EQ(status, status_done);
            break;
        }
        EXPECT_EQ(status, status_interrupted) << at;
        const std::string printed = c.printed();
        const auto pairs = std::count(printed.begin(), printed.end(), '\n');
        EXPECT_EQ(printed.find("/old/"), std::string::npos) << at;
        (pairs == 0 ? empty : pairs < 6 ? partial : whole) += 1;
        // What was printed is what is stored.
        const std::string store = c.files.content_of("/prog/相同文件.txt");
        if (pairs > 0) {
            EXPECT_EQ(std::count(store.begin(), store.end(), '\n'), 2 + 3 * pairs) << at;
        }
    }
    EXPECT_GT(empty, 0);
    EXPECT_GT(partial, 0);
    EXPECT_GT(whole, 0);
}

TEST(DirectoryRun, OptionsHoldForTheRunAndAreNotStored) {
    directory_case c;
    c.files.add_file("/d/a.x", "one");
    c.files.add_file("/d/a.y", "one");
    c.asked.search_archives = c.asked.same_suffix = true;
    c.asked.types = {".x"};
    c.asked.excluded = {"/elsewhere"};
    EXPECT_EQ(c.run(1,
                    [](program& corvane) {
                        const run_state& state = corvane.main_form().state;
                        EXPECT_EQ(state.scan_archives, 1);
                        EXPECT_EQ(state.same_suffix_only, 1);
                        EXPECT_EQ(state.only_type_text, ".X ");
                        EXPECT_EQ(state.exclude_dir_text, "/ELSEWHERE/ ");
                    }),
              status_done);
    EXPECT_EQ(c.printed(), "");
    std::vector<std::string> lines;
    const std::string text = c.files.content_of("/prog/Tavrel环境.txt");
    for (std::size_t at = 0; at < text.size(); at = text.find("\r\n", at) + 2)
        lines.push_back(text.substr(at, text.find("\r\n", at) - at));
    ASSERT_EQ(lines.size(), 122u);
    EXPECT_EQ(lines[10], " 0 ");
    EXPECT_EQ(lines[54], " 0 ");
    EXPECT_EQ(c.files.content_of("/prog/仅搜索的文件类型.txt"), "");
    EXPECT_EQ(c.files.content_of("/prog/不参加搜索的目录.txt"), "");
}

TEST(DirectoryRun, AQuestionThatNobodyAnswersEndsIt) {
    directory_case c;
    add_pairs(c, 1);
    std::vector<std::string> lines = fresh_settings_lines();
    lines[44] = " 1 ";  // a shutdown after the task
    c.files.add_file("/prog/Tavrel环境.txt", with_line_ends(lines));
    EXPECT_EQ(c.run(), status_unanswered);
    EXPECT_EQ(c.printed(), "");
    EXPECT_NE(c.said().find("nobody is there to answer"), std::string::npos);
    EXPECT_TRUE(c.desktop.calls.empty());
}

TEST(DirectoryRun, TheDesktopIsNotAskedForAnything) {
    directory_case c;
    c.files.add_file("/d/broken.zip", std::string(100, 'x'));
    c.asked.search_archives = true;
    EXPECT_EQ(c.run(), status_done);
    EXPECT_TRUE(c.desktop.calls.empty());
    EXPECT_NE(c.said().find("see /prog/err.txt\n"), std::string::npos);
}

TEST(DirectoryRun, AFailedRecordAfterTheComparisonPrintsWhatWasFound) {
    directory_case c;
    add_pairs(c, 1);
    c.files.add_file("/prog/run_time_rem.txt", "4,2\r\n");
    c.files.write_failure_path = "/prog/run_time_rem.txt";
    EXPECT_EQ(c.run(), status_failed);
    EXPECT_EQ(c.printed(), "10\t/d/a0\t/d/b0\n");
    EXPECT_NE(c.said().find("corvane-console: /prog/run_time_rem.txt disk full\n"), std::string::npos);
}

TEST(PlainWords, ASentenceIsOneLine) {
    std::FILE* stream = std::tmpfile();
    plain_words(stream, false).say("a\r\nb\tc\x7F");
    plain_words(stream, true).say("not said");
    plain_words(stream, true).say_failure("failed\n");
    EXPECT_EQ(content_of(stream), "a b c \ncorvane-console: failed \n");
    std::fclose(stream);
}

TEST(DirectoryRun, LiftsNoProtectionThatIsNotKnown) {
    directory_case c;
    add_pairs(c, 1);
    c.files.add_file("/prog/受保护的目录.txt", "cut");
    bool unknown = false;
    c.run(1, [&](program& corvane) { unknown = corvane.main_form().state.protection_unknown; });
    EXPECT_TRUE(unknown);
    EXPECT_EQ(c.files.content_of("/prog/受保护的目录.txt"), "cut");
}

}  // namespace
}  // namespace corvane
