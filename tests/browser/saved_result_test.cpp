// A result saved under a name and opened again: all of it, or a word and nothing lost.
#include "browser/saved_result.h"

#include <gtest/gtest.h>

#include "tests/browser/list_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

struct saved_result_test : testing::Test, list_program {
    saved_result_test() {
        for (const char* path : {"/d/a", "/e/a", "/d/b", "/e/b"}) files.add_file(path, "xxx");
        files.add_directory("/d");
        files.add_file(program_dir + "文件清单.txt", "/d/a\r\n/d/b\r\n/e/a\r\n/e/b\r\n/e/single\r\n");
        files.add_file(program_dir + "不相同文件.txt", "/e/single\r\n");
        select({"/d", "/e"});
        show({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}});
    }
    void save(const std::string& path = "/saved.txt") {
        screen.texts = {path};
        form.run("save_result");
    }
    void open(const std::string& path = "/saved.txt", box_answer answer = box_answer::yes) {
        screen.texts = {path};
        screen.answers = {answer};
        form.run("open_result");
        screen.answers.clear();
    }
    // Another comparison, with a result of its own.
    void show_another() {
        files.add_file("/x/1", "y");
        files.add_file("/x/2", "y");
        files.add_file(program_dir + "文件清单.txt", "/x/1\r\n/x/2\r\n");
        files.add_file(program_dir + "不相同文件.txt", "");
        select({"/x"});
        show({{1, "/x/1", "/x/2"}});
    }
    texts state_of_files() {
        return {files.content_of(program_dir + "相同文件.txt"),
                files.content_of(program_dir + "不相同文件.txt"),
                files.content_of(program_dir + "文件清单.txt")};
    }
};

TEST_F(saved_result_test, EverythingComesBack) {
    list().set_colour(2, 4, red);
    save();
    EXPECT_EQ(form.StatusBar1.panel(5), "已保存:2");
    const texts before = state_of_files();
    show_another();
    screen.messages.clear();
    open();
    ASSERT_EQ(list().row_count(), 2);
    EXPECT_EQ(list().cell(1, 4), "/e/a");
    EXPECT_EQ(list().colour(2, 4), red) << "with its marks";
    EXPECT_EQ(list().marked_cells(), 1);
    EXPECT_EQ(state_of_files(), before);
    ASSERT_EQ(state.selected_dir_count, 2);
    EXPECT_EQ(state.selected_dirs[1], "/d");
    ASSERT_EQ(screen.messages.size(), 1u) << "the question alone";
    // The file list is that of the result, too.
    form.run("Command21_Click");
    EXPECT_EQ(listed(), (texts{"/d/a", "/d/b", "/e/a", "/e/b", "/e/single"}));
}

TEST_F(saved_result_test, FilesWithoutATwinAreThoseOfTheOpenedResult) {
    files.add_file("/e/single", "1");
    save();
    show_another();
    form.run("Picture11_Click");
    open();
    form.run("Picture11_Click");
    ASSERT_EQ(list().row_count(), 1);
    EXPECT_EQ(list().cell(1, 4), "/e/single");
}

TEST_F(saved_result_test, RowsOfFilesThatHaveGoneFallOut) {
    save();
    files.erase("/e/a");
    open();
    ASSERT_EQ(list().row_count(), 1);
    EXPECT_EQ(list().cell(1, 3), "/d/b");
}

TEST_F(saved_result_test, WhatADeletionHasTakenIsNotSaved) {
    list().set_text(1, 4, "");
    form.run("rewrite_store");
    save();
    open();
    ASSERT_EQ(list().row_count(), 1);
    EXPECT_EQ(list().cell(1, 3), "/d/b");
}

TEST_F(saved_result_test, ANoKeepsThePresentResult) {
    save();
    show_another();
    const texts before = state_of_files();
    for (const box_answer answer : {box_answer::no, box_answer::dismissed}) {
        open("/saved.txt", answer);
        EXPECT_EQ(state_of_files(), before);
        EXPECT_EQ(list().row_count(), 1);
        EXPECT_EQ(state.selected_dirs[1], "/x");
    }
}

TEST_F(saved_result_test, WithoutAPresentResultNothingIsAsked) {
    save();
    files.erase(program_dir + "相同文件.txt");
    screen.messages.clear();
    screen.texts = {"/saved.txt"};
    form.run("open_result");
    EXPECT_TRUE(screen.messages.empty());
    EXPECT_EQ(list().row_count(), 2);
}

TEST_F(saved_result_test, EachPrefixIsRefusedInOneLineAndNothingIsLost) {
    list().set_colour(2, 4, red);
    save();
    const std::string whole = files.content_of("/saved.txt");
    show_another();
    const texts before = state_of_files();
    for (std::size_t length = 0; length + 2 < whole.size(); ++length) {
        files.add_file("/cut.txt", whole.substr(0, length));
        screen.messages.clear();
        open("/cut.txt");
        ASSERT_EQ(screen.messages.size(), 1u) << length;
        ASSERT_TRUE(screen.messages[0].failure) << length;
        ASSERT_EQ(state_of_files(), before) << length;
        ASSERT_EQ(list().cell(1, 3), "/x/1") << length;
    }
    // Without the last line end all of it is there.
    files.add_file("/cut.txt", whole.substr(0, whole.size() - 2));
    open("/cut.txt");
    EXPECT_EQ(list().row_count(), 2);
}

TEST_F(saved_result_test, AChangedByteIsSeen) {
    save();
    const std::string whole = files.content_of("/saved.txt");
    show_another();
    const texts before = state_of_files();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        if (whole[at] == '\r' || whole[at] == '\n') continue;
        std::string damaged = whole;
        damaged[at] = damaged[at] == 'x' ? 'y' : 'x';
        files.add_file("/bad.txt", damaged);
        open("/bad.txt");
        ASSERT_EQ(state_of_files(), before) << at;
    }
}

TEST_F(saved_result_test, OtherFilesAreNamedForWhatTheyAre) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "不是保存的结果,没有打开。"},
        {"any text\r\n", "不是保存的结果,没有打开。"},
        {"Corvane result 2\r\nD /d\r\nZ 2 0\r\n", "是别的版本保存的结果,没有打开。"},
        {"Corvane result 1\r\n", "保存的结果不完整或已损坏,没有打开。"},
        {"Corvane result 1\r\nZ 1 0\r\n", "保存的结果不完整或已损坏,没有打开。"},
        {"Corvane result 1\r\n\xff\xfe\x01\r\n", "保存的结果不完整或已损坏,没有打开。"}};
    const texts before = state_of_files();
    for (const auto& [text, words] : cases) {
        files.add_file("/other.txt", text);
        open("/other.txt");
        EXPECT_EQ(last_message(), std::string("/other.txt\r\n") + words) << text;
    }
    open("/missing.txt");
    EXPECT_TRUE(last_message().starts_with("/missing.txt\r\n"));
    EXPECT_EQ(state_of_files(), before);
}

TEST_F(saved_result_test, AFileThatIsNoSavedResultIsNotOverwritten) {
    files.add_file("/letter.txt", "dear");
    save("/letter.txt");
    EXPECT_EQ(last_message(), "/letter.txt\r\n不是保存的结果,没有覆盖。");
    EXPECT_EQ(files.content_of("/letter.txt"), "dear");
    files.add_directory("/folder");
    save("/folder");
    EXPECT_EQ(last_message(), "/folder\r\n不是保存的结果,没有覆盖。");
    save();
    const std::string once = files.content_of("/saved.txt");
    save();
    EXPECT_EQ(files.content_of("/saved.txt"), once);
}

TEST_F(saved_result_test, AFileThatCannotBeWrittenLeavesTheOldOne) {
    save();
    const std::string before = files.content_of("/saved.txt");
    files.erase("/d/b");
    files.write_failure_path = "/saved.txt";
    save();
    EXPECT_NE(last_message().find("disk full"), std::string::npos);
    EXPECT_EQ(files.content_of("/saved.txt"), before);
}

TEST_F(saved_result_test, AStoreThatCannotBeWrittenLeavesTheResult) {
    save();
    show_another();
    const std::string before = files.content_of(program_dir + "相同文件.txt");
    files.write_failure_path = program_dir + "相同文件.txt";
    open();
    EXPECT_NE(last_message().find("disk full"), std::string::npos);
    EXPECT_EQ(files.content_of(program_dir + "相同文件.txt"), before);
    EXPECT_EQ(list().cell(1, 3), "/x/1");
    EXPECT_EQ(state.selected_dirs[1], "/x");
}

TEST_F(saved_result_test, WithoutAResultThereIsNothingToSave) {
    files.erase(program_dir + "相同文件.txt");
    save();
    EXPECT_EQ(last_message(), "没有相同文件");
    EXPECT_FALSE(files.has("/saved.txt"));
    // A dismissed dialog does nothing.
    screen.messages.clear();
    screen.texts.clear();
    form.run("open_result");
    show({{3, "/d/a", "/e/a"}});
    form.run("save_result");
    EXPECT_TRUE(screen.messages.empty()) << last_message();
    EXPECT_EQ(screen.questions.size(), 2u);
}

TEST_F(saved_result_test, ARunningTaskRefuses) {
    save();
    show_another();
    const texts before = state_of_files();
    screen.texts = {"/saved.txt", "/second.txt"};
    screen.acts[screen.yields + 1] = [&] {
        form.run("open_result");
        form.run("save_result");
    };
    form.run("Picture4_Click");
    EXPECT_EQ(screen.texts.size(), 2u) << "nothing was asked";
    EXPECT_EQ(state_of_files(), before);
}

TEST_F(saved_result_test, ADirectoryThatHasGoneIsNotSelected) {
    files.add_directory("/gone");
    select({"/d", "/gone"});
    save();
    files.erase("/gone");
    open();
    EXPECT_EQ(state.selected_dir_count, 1);
    EXPECT_EQ(state.selected_dirs[1], "/d");
}

TEST_F(saved_result_test, TheFolderOfTheLastFileIsOfferedAgain) {
    files.add_directory("/deep/down");
    save("/deep/down/one.txt");
    screen.texts = {"/deep/down/one.txt"};
    screen.answers = {box_answer::no};
    form.run("open_result");
    EXPECT_EQ(screen.questions.back().initial, "/deep/down/");
}

TEST_F(saved_result_test, MarksOfAnotherStoreAreNotSaved) {
    list().set_colour(2, 4, red);
    form.run("exit_sub");
    EXPECT_TRUE(files.has(program_dir + "标记.txt"));
    const std::string store = files.content_of(program_dir + "相同文件.txt");
    files.add_file(program_dir + "相同文件.txt", store + " 1 \r\n/x\r\n/y\r\n");
    state.quit_requested = 0;
    list().visible = false;
    save();
    EXPECT_EQ(files.content_of("/saved.txt").find("\r\nM "), std::string::npos);
}

TEST_F(saved_result_test, MarksOfAnotherVersionArePutAsideWhenAResultWithMarksIsOpened) {
    list().set_colour(2, 4, red);
    save();
    const std::string other = "Corvane marks 2\r\nsomething\r\n";
    files.add_file(program_dir + "标记.txt", other);
    open();
    EXPECT_EQ(files.content_of(program_dir + "标记.旧.txt"), other);
    EXPECT_EQ(list().marked_cells(), 1);
}

TEST_F(saved_result_test, AResultThatCannotBeReadToItsEndIsNotSaved) {
    files.add_file("/saved.txt", "Corvane result 1\r\n");
    files.add_file(program_dir + "文件清单.txt", files.content_of(program_dir + "文件清单.txt"))
        .read_failure = 0;
    save();
    EXPECT_EQ(files.content_of("/saved.txt"), "Corvane result 1\r\n");
    EXPECT_NE(last_message().find("不能读出。"), std::string::npos);
}

}  // namespace
}  // namespace corvane
