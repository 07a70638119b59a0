// What a comparison tells of its result in plain words, and what a cancelled one says.
#include "compare/result_summary.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

struct compared {
    compared() {
        add("/a/movie.mkv", 3'000'000, 'm');
        add("/b/movie.mkv", 3'000'000, 'm');
        add("/b/old/movie (1).mkv", 3'000'000, 'm');
        add("/a/x.txt", 1'000, 'x');
        add("/c/x.txt", 1'000, 'x');
        add("/a/alone.txt", 77, 'l');
    }
    void add(const std::string& path, std::size_t length, char content) {
        p.files.add_file(path, std::string(length, content));
    }
    void run() { p.compare({"/a", "/b", "/c"}); }
    test_program p;
};

TEST(result_summary, tells_groups_sizes_folders_and_the_next_step) {
    compared run;
    run.run();
    ASSERT_EQ(run.p.form.ListView1.row_count(), 3);
    // Two spare movies of 3,000,000 bytes and a text of 1,000.
    EXPECT_EQ(run.p.state.summary_words,
              "找到 3 个多余的文件, 分 2 组; 每组留一个, 可以释放 5.7 MB。\r\n"
              "占得最多的组: movie.mkv ×3 5.7 MB; x.txt ×2 1,000 B\r\n"
              "占得最多的目录: /b 2.9 MB; /b/old 2.9 MB; /c 1,000 B\r\n"
              "下一步: 双击路径标记要删除的文件, 或用[标记]菜单按规则标记; 删除之前还会问一次。");
}

TEST(result_summary, goes_when_it_is_closed_and_when_the_next_comparison_begins) {
    compared run;
    run.run();
    run.p.form.run("result_summary_Close");
    EXPECT_EQ(run.p.state.summary_words, "");
    run.run();
    EXPECT_NE(run.p.state.summary_words, "");
    run.p.files.erase("/b/movie.mkv");
    run.p.files.erase("/b/old/movie (1).mkv");
    run.p.files.erase("/c/x.txt");
    run.run();
    EXPECT_EQ(run.p.state.summary_words, "") << "nothing was found";
}

TEST(result_summary, a_deletion_takes_it_away) {
    compared run;
    run.run();
    run.p.form.ListView1.set_colour(1, 4, cell_colour::mark_red);
    run.p.screen.answers.push_back(box_answer::yes);
    run.p.form.run("Picture5_Click");
    EXPECT_EQ(run.p.state.summary_words, "");
}

TEST(result_summary, a_cancelled_comparison_says_how_far_it_came) {
    compared run;
    run.p.search({"/a", "/b", "/c"});
    run.p.screen.on_yield = [&run] {
        if (run.p.state.result_count > 0) run.p.form.run("Command28_Click");
    };
    run.p.form.run("Picture3_Click");
    run.p.screen.on_yield = {};
    // Ordered by length: alone, two texts, then the movies; the look behind the texts' pair meets the button.
    EXPECT_EQ(run.p.state.cancelled_of, 6);
    EXPECT_EQ(cancelled_words(run.p.state), "已取消, 4 / 6");
    EXPECT_EQ(run.p.state.summary_words.substr(0, cancelled_words(run.p.state).size()), "已取消, 4 / 6");
    run.run();
    EXPECT_EQ(cancelled_words(run.p.state), "") << "a whole comparison takes it back";
}

TEST(result_summary, empty_files_and_members_of_archives_are_told_without_harm) {
    result_state result;
    result.result_file2.clear_and_share(result.result_file1);
    EXPECT_EQ(result_totals(result, '/'), "");
    const auto add = [&result](std::int64_t length, const char* first, const char* second) {
        result.result_length.push_back(length);
        result.result_file1.push_back(first);
        result.result_file2.push_back(second);
        ++result.same_count;
    };
    add(0, "/e1", "/e2");
    EXPECT_EQ(result_totals(result, '/'), "找到 1 个多余的文件, 分 1 组; 每组留一个, 可以释放 0 字节。");
    add(2048, "/f", "/z/a.zip*in/side");
    EXPECT_EQ(result_totals(result, '/'),
              "找到 2 个多余的文件, 分 2 组; 每组留一个, 可以释放 2.0 KB。\r\n"
              "占得最多的组: f ×2 2.0 KB\r\n占得最多的目录: /z 2.0 KB");
}

}  // namespace
}  // namespace corvane
