#include <gtest/gtest.h>

#include "core/tasks/error_trail.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

// The folder that a run leaves behind which died while it compared.
void add_dead_run(test_program& p, const std::string& path) {
    texts lines = fresh_settings_lines();
    lines[57] = "-1 ";
    p.add_used_folder(lines);
    p.files.add_file("/prog/err_rec.txt", path + "\r\n");
}

TEST(ErrorFrame, TheNextStartNamesTheFileOfARunThatDied) {
    test_program p;
    add_dead_run(p, "/d/damaged");
    p.corvane.start();
    EXPECT_TRUE(p.form.Frame_err.visible);
    EXPECT_EQ(p.form.Frame_err.caption, "上次运行时,出错的文件");
    EXPECT_EQ(p.form.txt_disp_err_file.text, "/d/damaged");
    EXPECT_EQ(p.form.Check1.value, 1);
    EXPECT_EQ(p.state.error_trail_on, 0);
    EXPECT_EQ(p.form.debug_err.value, 0);
}

TEST(ErrorFrame, WithoutARecordTheMarkIsClearedAllTheSame) {
    test_program p;
    add_dead_run(p, "");
    p.files.erase("/prog/err_rec.txt");
    p.corvane.start();
    EXPECT_FALSE(p.form.Frame_err.visible);
    EXPECT_EQ(p.state.error_trail_on, 0);
    EXPECT_EQ(p.form.debug_err.value, 0);
}

TEST(ErrorFrame, AfterANormalEndNothingIsShownAndTheRecordStays) {
    test_program p;
    p.add_used_folder();
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "equal");
    p.corvane.start();
    p.form.run("debug_err");
    p.compare({"/d"});
    p.corvane.close();
    program again({p.files, p.desktop, p.desktop, p.screen, p.encodings}, "/prog/");
    again.start();
    EXPECT_FALSE(again.main_form().Frame_err.visible);
    EXPECT_EQ(p.files.content_of("/prog/err_rec.txt"), "/d/b\r\n");
}

TEST(ErrorFrame, TheMarkIsOnDiskBeforeAFileIsRead) {
    test_program p;
    p.add_used_folder();
    for (const char* path : {"/d/a", "/d/b"}) p.files.add_file(path, "equal");
    p.corvane.start();
    p.search({"/d"});
    p.form.run("debug_err");
    std::string line;
    p.screen.acts[p.screen.yields + 1] = [&] { line = p.stored_lines("Tavrel环境.txt")[57]; };
    p.form.run("Picture3_Click");
    EXPECT_EQ(line, "-1 ");
}

TEST(ErrorFrame, TheMenuTurnsTheMarkAndTheSettingTogether) {
    test_program p;
    p.form.run("debug_err");
    EXPECT_EQ(p.state.error_trail_on, -1);
    EXPECT_EQ(p.form.debug_err.value, -1);
    p.form.run("debug_err");
    EXPECT_EQ(p.state.error_trail_on, 0);
    EXPECT_EQ(p.form.debug_err.value, 0);
}

TEST(ErrorFrame, ConfirmingTwiceLeavesOneLine) {
    test_program p;
    p.files.add_file("/prog/avoid.txt", "/d/first\r\n");
    p.files.add_file("/prog/err_rec.txt", "/d/damaged\r\nmore\r\n");
    for (int time = 0; time < 2; ++time) {
        p.form.run("debug_err_anly");
        EXPECT_TRUE(p.form.Frame_err.visible);
        p.form.run("Command47_Click");
        EXPECT_FALSE(p.form.Frame_err.visible);
    }
    EXPECT_EQ(p.files.content_of("/prog/avoid.txt"), "/d/first\r\n/d/damaged\r\n");
    EXPECT_EQ(p.state.avoid_count, 2);
}

TEST(ErrorFrame, WithoutAnAvoidListTheCountStartsAnew) {
    test_program p;
    p.state.avoid_files.push_back("/d/stale");
    p.state.avoid_count = 1;
    p.files.add_file("/prog/err_rec.txt", "/d/damaged\r\n");
    p.form.run("debug_err_anly");
    p.form.run("Command47_Click");
    EXPECT_EQ(p.files.content_of("/prog/avoid.txt"), "/d/damaged\r\n");
}

TEST(ErrorFrame, WithTheBoxOffConfirmingOnlyHides) {
    test_program p;
    p.files.add_file("/prog/err_rec.txt", "/d/damaged\r\n");
    p.form.run("debug_err_anly");
    p.form.Check1.value = 0;
    p.form.run("Command47_Click");
    EXPECT_FALSE(p.form.Frame_err.visible);
    EXPECT_FALSE(p.files.has("/prog/avoid.txt"));
}

TEST(ErrorFrame, WithoutARecordTheAnalysisShowsNothing) {
    test_program p;
    p.form.run("debug_err_anly");
    EXPECT_FALSE(p.form.Frame_err.visible);
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(ErrorFrame, TheFileIsShownInTheFileManager) {
    test_program p;
    p.files.add_file("/prog/err_rec.txt", "/d/damaged\r\n");
    p.form.run("debug_err_anly");
    p.form.run("Command46_Click");
    EXPECT_EQ(p.desktop.calls, texts{"select /d/damaged"});
}

TEST(ErrorFrame, TheConfirmedFileIsLeftOutOfTheNextComparison) {
    test_program p;
    for (const char* path : {"/d/a", "/d/b", "/d/c"}) p.files.add_file(path, "equal");
    p.files.add_file("/prog/err_rec.txt", "/d/b\r\n");
    p.form.run("debug_err_anly");
    p.form.run("Command47_Click");
    p.compare({"/d"});
    EXPECT_EQ(p.stored_pairs(), texts{"5 /d/a /d/c"});
    EXPECT_EQ(p.files.opened.count("/d/b"), 0u);
}

TEST(Notes, AreMadeWhenThereAreNoneAndOpened) {
    test_program p;
    p.form.run("notes_m");
    EXPECT_TRUE(p.files.has("/prog/备记录.txt"));
    p.files.add_file("/prog/备记录.txt", "mine");
    p.form.run("notes_m");
    EXPECT_EQ(p.files.content_of("/prog/备记录.txt"), "mine");
    p.form.run("prog_dir");
    p.form.run("programm_m");
    EXPECT_EQ(p.desktop.calls, (texts{"open /prog/备记录.txt", "open /prog/备记录.txt", "open /prog/",
                                      "open /prog/帮助/Corvane帮助.htm"}));
}

}  // namespace
}  // namespace corvane
