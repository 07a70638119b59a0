// The command line of the desktop program, and directories that come while its windows are open.
#include "forms/start_arguments.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "forms/main_window.h"
#include "platform/name_mapping.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

start_arguments read(const std::vector<const char*>& arguments) {
    return read_start_arguments(arguments);
}

TEST(start_arguments, directories_are_absolute_and_without_a_closing_separator) {
    const std::string here = to_text(std::filesystem::current_path().string());
    const start_arguments given = read({"/a/", "b", "/", "/c/../d//e/", "/star*"});
    EXPECT_FALSE(given.wrong);
    EXPECT_EQ(given.directories, (texts{"/a", here + "/b", "/", "/d/e", to_text("/star*")}));
    EXPECT_TRUE(given.program_dir.empty());
}

TEST(start_arguments, the_program_folder_stands_in_one_argument_or_in_two) {
    EXPECT_EQ(read({"--program-dir", "/p", "/a"}).program_dir, "/p");
    EXPECT_EQ(read({"--program-dir=/p/", "/a"}).program_dir, "/p");
    EXPECT_EQ(read({"--program-dir=/"}).program_dir, "/");
    EXPECT_EQ(read({"/a", "--program-dir=/p"}).directories, texts{"/a"});
}

TEST(start_arguments, after_two_dashes_everything_is_a_directory) {
    const start_arguments given = read({"--", "/-x", "--help", "--program-dir"});
    EXPECT_FALSE(given.wrong);
    EXPECT_FALSE(given.help);
    EXPECT_EQ(given.directories.size(), 3u);
}

TEST(start_arguments, wrong_usage_is_seen) {
    for (const std::vector<const char*>& arguments : {std::vector<const char*>{"--program-dir"},
                                                      {"--program-dir="},
                                                      {"--program-dir", ""},
                                                      {"-x"},
                                                      {"--helpx"},
                                                      {""}})
        EXPECT_TRUE(read(arguments).wrong);
    EXPECT_FALSE(read({}).wrong);
    EXPECT_TRUE(read({"--help"}).help);
    EXPECT_TRUE(read({"--version"}).version);
}

// Started with /d selected; another start hands /other over.
struct receiving_program : forms_program {
    receiving_program() {
        add_used_folder();
        files.add_directory("/d");
        files.add_directory("/other");
        files.add_file("/prog/比较文件_目录清单.txt", "/d\r\n");
        EXPECT_TRUE(windows.start());
    }
    reception take_other() { return instances.on_take({"/other"}); }
};

TEST(receiving, directories_of_another_start_are_selected_and_the_window_comes_to_the_front) {
    receiving_program shown;
    shown.windows.main().showMinimized();
    ASSERT_TRUE(shown.instances.on_take);
    EXPECT_EQ(shown.take_other(), reception::taken);
    EXPECT_EQ(shown.form.state.selected_dirs, column<std::string>{"/other"});
    EXPECT_FALSE(shown.windows.main().isMinimized());
}

TEST(receiving, within_a_task_they_wait) {
    receiving_program shown;
    bool ran = false;
    shown.form.bind("picture2_Click", [&] {
        EXPECT_EQ(shown.take_other(), reception::waits);
        EXPECT_EQ(shown.form.state.selected_dirs, column<std::string>{"/d"});
        ran = true;
    });
    shown.windows.act("picture2_Click");
    ASSERT_TRUE(ran);
    EXPECT_EQ(shown.form.state.selected_dirs, column<std::string>{"/other"});
}

}  // namespace
}  // namespace corvane
