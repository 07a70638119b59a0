#include "cleanup/empty_delete.h"

#include <gtest/gtest.h>

#include "core/model/main_form.h"
#include "tests/cleanup/empty_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;
using colours = std::vector<std::uint32_t>;
using namespace cell_colour;

constexpr const char* refusal_of_one =
    "放入回收站:0 个空目录\r\n无法删除:1 个空目录 (隐藏或只读)\r\n"
    "如需删除隐藏或只读目录,请按 yes,并重新运行<删除空目录>";

TEST(EmptyDelete, MarkedDirectoriesGoIntoTheBinAndNoOthers) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/", "/d/c/"});
    p.mark(1);
    p.mark(3);
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), (texts{"/d/a/", "/d/c/"}));
    EXPECT_TRUE(p.files.removed.empty());
    EXPECT_TRUE(p.files.has("/d/b"));
    EXPECT_EQ(p.cells(2), (texts{"", "/d/b/", ""}));
    EXPECT_EQ(p.message_texts(), texts{"放入回收站:2 个空目录"});
    EXPECT_EQ(p.screen.messages.back().title, "提示");
    EXPECT_EQ(p.panel(5), "已删除:2");
    EXPECT_EQ(p.panel(7), "删除空目录");
    EXPECT_FALSE(p.form.pic_gressbar1.visible);
    EXPECT_FALSE(p.state.tasks_locked);
    EXPECT_EQ(p.found().size(), 3u);  // the file is not rewritten
    p.form.run("Picture7_Click");
    EXPECT_EQ(p.cells(2), texts{"/d/b/"});
}

TEST(EmptyDelete, NothingMarkedReportsNothing) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.state.force_protected = -1;
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.message_texts(), texts{"放入回收站:0 个空目录"});
    EXPECT_TRUE(p.recycled().empty());
    EXPECT_EQ(p.state.force_protected, -1);  // no batch was sent
}

TEST(EmptyDelete, InAnotherViewThePictureSaysSoAndTheMenuDoesNothing) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.mark_all();
    for (const int mode : {0, 2, 3, 4}) {
        p.state.list_mode = static_cast<std::int16_t>(mode);
        p.screen.messages.clear();
        p.form.run("del_dir");
        EXPECT_TRUE(p.screen.messages.empty());
        p.form.run("Picture8_Click");
        EXPECT_EQ(p.message_texts(), texts{"非空目录状态,不能删除"});
    }
    EXPECT_TRUE(p.recycled().empty());
    EXPECT_TRUE(p.files.has("/d/a"));
}

TEST(EmptyDelete, ThePictureOfTheFilesTheMenuAndTheDeleteKeyRunIt) {
    for (const char* entry : {"Picture5_Click", "del_dir", "key"}) {
        empty_program p;
        p.show_directories({"/d/a/"});
        p.mark_all();
        if (entry == std::string("key"))
            p.key(46);
        else
            p.form.run(entry);
        EXPECT_EQ(p.recycled(), texts{"/d/a/"}) << entry;
    }
}

TEST(EmptyDelete, WithoutAListThereIsNothingToDelete) {
    empty_program p;
    p.state.list_mode = 1;
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.message_texts(), texts{"没有选中的要删除的空目录,请重选"});
    EXPECT_FALSE(p.state.tasks_locked);
}

TEST(EmptyDelete, TheQuestionIsPutOnlyForMinusOne) {
    for (const int value : {0, 1}) {
        empty_program p;
        p.state.delete_prompt_on = static_cast<std::int16_t>(value);
        p.show_directories({"/d/a/"});
        p.mark_all();
        p.form.run("Picture8_Click");
        EXPECT_EQ(p.message_texts(), texts{"放入回收站:1 个空目录"});
    }
    empty_program p;
    p.state.delete_prompt_on = -1;
    p.show_directories({"/d/a/"});
    p.mark_all();
    p.screen.answers = {box_answer::no};
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.message_texts(), texts{"空目录放入回收站吗？"});
    EXPECT_EQ(p.screen.messages.back().buttons, box_buttons::yes_no);
    EXPECT_EQ(p.screen.messages.back().icon, box_icon::question);
    EXPECT_TRUE(p.recycled().empty());
    EXPECT_FALSE(p.state.tasks_locked);
    p.screen.answers = {box_answer::yes};
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{"/d/a/"});
}

TEST(EmptyDelete, AProtectedDirectoryTurnsBlueAndGoesInTheSecondRun) {
    for (const bool hidden : {true, false}) {
        empty_program p;
        p.show_directories({"/d/a/"});
        (hidden ? p.files.add_directory("/d/a").hidden : p.files.add_directory("/d/a").read_only) = true;
        p.mark_all();
        p.screen.answers = {box_answer::yes};
        p.form.run("Picture8_Click");
        EXPECT_EQ(p.message_texts(), texts{refusal_of_one});
        EXPECT_EQ(p.screen.messages.back().buttons, box_buttons::yes_no);
        EXPECT_EQ(p.colours(2), colours{mark_blue});
        EXPECT_EQ(p.cells(2), texts{"/d/a/"});
        EXPECT_TRUE(p.recycled().empty());
        EXPECT_EQ(p.state.force_protected, -1);
        p.form.run("Picture8_Click");
        EXPECT_EQ(p.recycled(), texts{"/d/a/"});
        EXPECT_EQ(p.last_message(), "放入回收站:1 个空目录");
        EXPECT_EQ(p.state.force_protected, 0);
    }
}

TEST(EmptyDelete, ABlueRowStaysWithoutTheYes) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.files.add_directory("/d/a").hidden = true;
    p.mark_all();
    p.screen.answers = {box_answer::no};
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.state.force_protected, 0);
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.last_message(), "放入回收站:0 个空目录");
    EXPECT_TRUE(p.files.attributes("/d/a/").hidden);
    EXPECT_TRUE(p.recycled().empty());
}

TEST(EmptyDelete, ARedRowIsNotClearedEvenWhenBlueOnesAre) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.files.add_directory("/d/a").read_only = true;
    p.mark_all();
    p.state.force_protected = -1;
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.colours(2), colours{mark_blue});
    EXPECT_TRUE(p.files.attributes("/d/a").read_only);
    EXPECT_TRUE(p.recycled().empty());
}

TEST(EmptyDelete, AttributesThatCannotBeClearedCountAgain) {
    empty_program p;
    p.show_directories({"/d/a/"});
    memory_file& fixed = p.files.add_directory("/d/a");
    fixed.read_only = fixed.keeps_attributes = true;
    p.mark_all();
    p.screen.answers = {box_answer::yes, box_answer::yes};
    p.form.run("Picture8_Click");
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.message_texts(), (texts{refusal_of_one, refusal_of_one}));
    EXPECT_EQ(p.colours(2), colours{mark_blue});
    EXPECT_TRUE(p.recycled().empty());
}

TEST(EmptyDelete, AMarkedDirectoryThatHasGoneIsSkippedAndKeepsItsMark) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/"});
    p.mark_all();
    p.files.erase("/d/a");
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{"/d/b/"});
    EXPECT_EQ(p.cells(2), (texts{"/d/a/", ""}));
    EXPECT_EQ(p.colours(2), (colours{mark_red, mark_red}));
    EXPECT_EQ(p.last_message(), "放入回收站:1 个空目录");
}

TEST(EmptyDelete, ALinkOrAFileInThePlaceOfTheDirectoryIsNeverHandedOver) {
    empty_program p;
    p.files.add_file("/kept/precious", "text");
    p.show_directories({"/d/file/", "/d/link/"});
    p.mark_all();
    p.files.erase("/d/file");
    p.files.add_file("/d/file", "text");
    p.files.erase("/d/link");
    p.files.add_link("/d/link", "/kept");
    p.form.run("Picture8_Click");
    EXPECT_TRUE(p.recycled().empty());
    EXPECT_EQ(p.last_message(), "放入回收站:0 个空目录");
    EXPECT_EQ(p.colours(2), (colours{mark_red, mark_red}));
}

TEST(EmptyDelete, TheDiskIsLookedAtOnceMoreBeforeTheBin) {
    empty_program p;
    p.files.add_file("/kept/precious", "text");
    p.show_directories({"/d/a/", "/d/b/"});
    p.mark_all();
    const std::int64_t scan_end = p.screen.yields + 2;
    p.screen.acts[scan_end] = [&] {
        p.files.erase("/d/a");
        p.files.add_link("/d/a", "/kept");
    };
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{"/d/b/"});
    EXPECT_TRUE(p.files.has("/d/a"));
}

TEST(EmptyDelete, ADirectoryThatIsNoLongerEmptyStays) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/", "/d/c/"});
    p.files.add_file("/d/a/new");
    p.files.add_directory("/d/b/sub");
    p.mark_all();
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{"/d/c/"});
    EXPECT_EQ(p.cells(2), (texts{"/d/a/", "/d/b/", ""}));
    EXPECT_EQ(p.message_texts(), texts{"放入回收站:1 个空目录\r\n保留 2 个已不空的目录: /d/a/"});
}

TEST(EmptyDelete, ADirectoryThatIsFilledBetweenScanAndBinStays) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.mark_all();
    // The scan yields once for its row, the batch before its first path.
    p.screen.acts[p.screen.yields + 2] = [&] { p.files.add_file("/d/a/new"); };
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{});
    EXPECT_TRUE(p.files.has("/d/a/new"));
}

TEST(EmptyDelete, OnlyPlainFullPathsGo) {
    empty_program p;
    p.files.add_directory("/d/a");
    p.files.add_directory("/d/a*");
    const texts lines = {"/", "//", "/d/a", "/d/a/../", "/d/./", "d/a/", "/d/?/", "/d/*/", "/d/a/   "};
    std::string text;
    for (const std::string& line : lines) text.append(line).append("\r\n");
    p.files.add_file("/prog/spasedir.txt", text);
    p.form.run("Picture7_Click");
    // Whatever the view makes of them, each stands in a marked row now.
    p.list().clear_rows();
    for (const std::string& line : lines) {
        const std::int32_t row = p.list().add_row();
        p.list().set_text(row, 2, line);
        p.mark(row);
    }
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{"/d/a/"});  // the last one, without its blanks
}

TEST(EmptyDelete, DriveAndServerPathsAreFullPathsToo) {
    test_program p('\\');
    p.files.add_directory("C:\\DATA\\OLD");
    p.files.add_directory("\\\\HOST\\SHARE\\OLD");
    p.files.add_file("P:\\prog\\spasedir.txt",
                     "C:\\DATA\\OLD\\\r\nC:\\\r\nC:DATA\\\r\n\\\\HOST\\SHARE\\OLD\\\r\n\\DATA\\\r\n");
    p.form.run("Picture7_Click");
    p.form.run("all_select");
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.desktop.calls, (texts{"recycle C:\\DATA\\OLD\\", "recycle \\\\HOST\\SHARE\\OLD\\"}));
}

TEST(EmptyDelete, TheThousandAndFirstPathStartsANewBatch) {
    for (const int count : {999, 1000, 1001}) {
        empty_program p;
        texts directories;
        for (int number = 0; number < count; ++number)
            directories.push_back("/d/" + std::to_string(10'000 + number) + "/");
        p.show_directories(directories);
        p.mark_all();
        const std::int64_t before = p.screen.yields;
        p.form.run("Picture8_Click");
        EXPECT_EQ(p.recycled(), directories);
        EXPECT_EQ(p.screen.yields - before, 2 * count);  // each row and each path
        EXPECT_EQ(p.panel(5), "已删除:" + std::to_string(count));
    }
}

TEST(EmptyDelete, PanelFiveCountsWhileItRuns) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/"});
    p.mark_all();
    const std::int64_t before = p.screen.yields;
    p.screen.acts[before + 1] = [&] { EXPECT_EQ(p.panel(5), "正在删除:1"); };
    p.screen.acts[before + 2] = [&] {
        EXPECT_EQ(p.panel(5), "正在删除:2");
        EXPECT_TRUE(p.form.pic_gressbar1.visible);
        EXPECT_TRUE(p.state.tasks_locked);
    };
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.screen.yields, before + 4);
}

TEST(EmptyDelete, ADirectoryThatIsFilledWithinABatchStays) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/"});
    p.mark_all();
    p.screen.acts[p.screen.yields + 2 + 2] = [&] { p.files.add_file("/d/b/new"); };
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.recycled(), texts{"/d/a/"});
    EXPECT_TRUE(p.files.has("/d/b/new"));
}

TEST(EmptyDelete, WhatTheBinRefusesStaysAndIsSaid) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.mark_all();
    p.bin_refuses = true;
    p.form.run("Picture8_Click");
    EXPECT_TRUE(p.files.has("/d/a"));
    EXPECT_TRUE(p.files.removed.empty());
    EXPECT_EQ(p.message_texts(), texts{"放入回收站:0 个空目录\r\n回收站未收下 1 个: /d/a/"});
    EXPECT_EQ(p.cells(2), texts{"/d/a/"});
    p.form.run("Picture7_Click");
    EXPECT_EQ(p.cells(2), texts{"/d/a/"});
}

TEST(EmptyDelete, ClosingDuringTheScanHandsNothingOver) {
    empty_program p;
    p.show_directories({"/d/a/", "/d/b/"});
    p.mark_all();
    p.screen.acts[p.screen.yields + 1] = [&] { p.state.quit_requested = -1; };
    p.form.run("Picture8_Click");
    EXPECT_TRUE(p.recycled().empty());
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(EmptyDelete, HelpModeOpensTheTopic) {
    empty_program p;
    p.show_directories({"/d/a/"});
    p.mark_all();
    p.form.mouse_pointer = help_pointer;
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.desktop.calls, texts{"help aux40_Corvane帮助_Link.htm"});
}

TEST(EmptyDelete, OnAHiddenListIsRefused) {
    empty_program p;
    p.files.add_directory("/d/a");
    p.files.add_file(p.program_dir + "spasedir.txt", "/d/a/\r\n");
    p.form.run("Picture7_Click");
    p.list().set_colour(1, 2, cell_colour::mark_red);
    p.list().visible = false;
    p.form.run("Picture8_Click");
    EXPECT_EQ(p.last_message(), "列表没有显示,请先显示结果");
    EXPECT_EQ(p.list().cell(1, 2), "/d/a/");
}

}  // namespace
}  // namespace corvane
