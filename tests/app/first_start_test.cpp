// The first start in a folder of the user's own: lists come, earlier files are offered and never lost.
#include "app/first_start.h"

#include <gtest/gtest.h>

#include "core/settings/data_files.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

// A program in /usr/bin whose lists ship in /usr/share, over the folder of a user.
struct first_start_program {
    first_start_program() : corvane(ports(), place()) {
        for (const char* name : data_file::shipped)
            files.add_file("/usr/share/corvane/" + std::string(name), "shipped\r\n");
    }
    ::corvane::ports ports() { return {files, desktop, desktop, screen, encodings}; }
    static program_place place() {
        program_place found;
        found.folder = "/home/li/.local/share/corvane/";
        found.shared = "/usr/share/corvane/";
        found.kind = place_kind::user;
        found.earlier = {"/usr/bin/", "/usr/lib/corvane/", "/home/li/.local/lib/corvane/"};
        return found;
    }
    std::string here(const std::string& name) { return files.content_of(place().folder + name); }
    bool has(const std::string& name) const { return files.has(place().folder + name); }
    // Somebody has worked with the program there.
    void add_earlier(const std::string& folder) {
        std::vector<std::string> lines = fresh_settings_lines();
        lines[19] = "earlier find text";
        files.add_file(folder + "Tavrel环境.txt", with_line_ends(lines));
        files.add_file(folder + "比较文件_目录清单.txt");
        files.add_file(folder + "不参加搜索的目录.txt", "1/earlier/\r\n");
        files.add_file(folder + "run_history.txt", "earlier history\r\n");
    }
    texts told() const {
        texts all;
        for (const message& box : screen.messages) all.push_back(box.text);
        return all;
    }
    int questions() const {
        int count = 0;
        for (const message& box : screen.messages) count += box.buttons == box_buttons::yes_no ? 1 : 0;
        return count;
    }

    memory_file_system files;
    recording_shell desktop;
    scripted_interface screen;
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
    program corvane;
};

TEST(FirstStart, MakesTheFolderAndPutsTheListsIn) {
    first_start_program p;
    ASSERT_TRUE(p.corvane.start());
    EXPECT_EQ(p.files.made_directories, texts{"/home/li/.local/share/corvane/"});
    for (const char* name : data_file::shipped) EXPECT_EQ(p.here(name), "shipped\r\n") << name;
    EXPECT_EQ(p.told(),
              texts{"/home/li/.local/share/corvane/Tavrel环境.txt  第一次运行，已自动建立环境文件"});
    EXPECT_EQ(p.corvane.main_form().state.no_types, column<std::string>{"shipped"});
}

TEST(FirstStart, AListThatStandsStaysAndOneThatWasRemovedLaterStaysAway) {
    first_start_program p;
    p.files.add_file("/home/li/.local/share/corvane/仅搜索的文件类型.txt", "1.MINE\r\n");
    p.corvane.start();
    EXPECT_EQ(p.here("仅搜索的文件类型.txt"), "1.MINE\r\n");
    p.files.erase("/home/li/.local/share/corvane/常用文件扩展名.txt");
    program again(p.ports(), p.place());
    again.start();
    EXPECT_FALSE(p.has("常用文件扩展名.txt"));
}

TEST(FirstStart, AFolderThatWasAskedForIsNotSeeded) {
    first_start_program p;
    p.files.add_directory("/asked/");
    program_place place = std::string("/asked/");
    place.shared = "/usr/share/corvane/";
    place.earlier = {"/usr/lib/corvane/"};
    p.add_earlier("/usr/lib/corvane/");
    program asked(p.ports(), place);
    asked.start();
    EXPECT_FALSE(p.files.has("/asked/仅搜索的文件类型.txt"));
    EXPECT_EQ(p.questions(), 0);
}

TEST(FirstStart, EarlierFilesComeByteByByteAndStayWhereTheyWere) {
    first_start_program p;
    p.add_earlier("/home/li/.local/lib/corvane/");
    p.screen.answers = {box_answer::yes};
    p.corvane.start();
    ASSERT_EQ(p.questions(), 1);
    const message& question = p.screen.messages.front();
    EXPECT_EQ(question.text,
              "发现以前的设置和清单:\r\n/home/li/.local/lib/corvane/\r\n要复制到现在的程序目录吗?\r\n/home/"
              "li/.local/share/corvane/");
    EXPECT_EQ(question.detail, "4 个文件。这里已有的文件不会改动，原来的文件也留在原处。");
    EXPECT_EQ(p.here("run_history.txt"), "earlier history\r\n");
    EXPECT_EQ(p.here("不参加搜索的目录.txt"), "1/earlier/\r\n") << "not the list that ships";
    EXPECT_EQ(p.here("不参加比较的文件类型.txt"), "shipped\r\n") << "what the earlier place did not have";
    EXPECT_EQ(p.corvane.main_form().state.find_text, "earlier find text") << "in force at once";
    EXPECT_EQ(p.files.content_of("/home/li/.local/lib/corvane/run_history.txt"), "earlier history\r\n");
    EXPECT_NE(p.here("附加设置.txt").find("earlier_place_asked=1"), std::string::npos);
}

TEST(FirstStart, WhatIsHereIsNeverOverwritten) {
    first_start_program p;
    p.add_earlier("/usr/lib/corvane/");
    p.files.add_file("/home/li/.local/share/corvane/run_history.txt", "mine\r\n");
    p.files.add_directory("/home/li/.local/share/corvane/不参加搜索的目录.txt");
    p.screen.answers = {box_answer::yes};
    p.corvane.start();
    EXPECT_EQ(p.here("run_history.txt"), "mine\r\n");
    EXPECT_EQ(p.screen.messages.front().detail.find("2 个文件"), 0u);
}

TEST(FirstStart, NoIsKeptAndADismissedBoxIsNoAnswer) {
    first_start_program p;
    p.add_earlier("/usr/lib/corvane/");
    p.screen.answers = {box_answer::dismissed};
    p.corvane.start();
    EXPECT_FALSE(p.has("run_history.txt"));
    p.screen.answers = {box_answer::no};
    program second(p.ports(), p.place());
    second.start();
    EXPECT_EQ(p.questions(), 2);
    EXPECT_FALSE(p.has("run_history.txt"));
    program third(p.ports(), p.place());
    third.start();
    EXPECT_EQ(p.questions(), 2);
}

TEST(FirstStart, AFileThatCannotBeCopiedIsToldAndLeavesNoHalfOne) {
    first_start_program p;
    p.add_earlier("/usr/lib/corvane/");
    p.files.write_failure_path = "/home/li/.local/share/corvane/run_history.txt";
    p.screen.answers = {box_answer::yes};
    p.corvane.start();
    EXPECT_FALSE(p.has("run_history.txt"));
    const texts told = p.told();
    ASSERT_GE(told.size(), 2u);
    EXPECT_EQ(told[1], "/home/li/.local/share/corvane/run_history.txt\r\ndisk full");
    EXPECT_TRUE(p.corvane.main_form().visible) << "the program goes on";
    // An answer that could not be carried out is none: it is asked again.
    p.files.write_failure_path.clear();
    p.screen.answers = {box_answer::yes};
    program again(p.ports(), p.place());
    again.start();
    EXPECT_EQ(p.questions(), 2);
    EXPECT_EQ(p.here("run_history.txt"), "earlier history\r\n");
}

TEST(FirstStart, AnUnreadableEarlierFileIsNotTakenAsAnEmptyOne) {
    first_start_program p;
    p.add_earlier("/usr/lib/corvane/");
    p.files.add_file("/usr/lib/corvane/run_history.txt", "earlier history\r\n").read_failure = 4;
    p.screen.answers = {box_answer::yes};
    p.corvane.start();
    EXPECT_FALSE(p.has("run_history.txt"));
    EXPECT_EQ(p.told()[1], "/home/li/.local/share/corvane/run_history.txt\r\n不能读出。");
}

TEST(FirstStart, AnEarlierPlaceWithoutSettingsOrThatIsThisOneIsNone) {
    first_start_program p;
    p.files.add_file("/usr/lib/corvane/不参加搜索的目录.txt", "shipped\r\n");
    p.files.add_directory("/home/li/.local/lib/");
    p.add_earlier("/home/li/.local/share/corvane/");
    p.files.add_link("/home/li/.local/lib/corvane", "/home/li/.local/share/corvane");
    p.corvane.start();
    EXPECT_EQ(p.questions(), 0);
    EXPECT_EQ(p.corvane.main_form().state.find_text, "earlier find text");
}

TEST(FirstStart, WhereNobodyAnswersTheEarlierPlaceIsToldOnce) {
    first_start_program p;
    p.add_earlier("/usr/lib/corvane/");
    p.corvane.ask_nothing();
    p.corvane.start();
    EXPECT_EQ(
        p.told().front(),
        "发现以前的设置和清单:\r\n/usr/lib/corvane/\r\n现在的程序目录:\r\n/home/li/.local/share/corvane/");
    EXPECT_EQ(p.questions(), 0);
    program again(p.ports(), p.place());
    again.ask_nothing();
    p.screen.messages.clear();
    again.start();
    EXPECT_TRUE(p.screen.messages.empty());
    // The windows still ask: nobody has answered.
    program windows(p.ports(), p.place());
    p.screen.answers = {box_answer::yes};
    windows.start();
    EXPECT_EQ(p.questions(), 1);
    EXPECT_EQ(p.here("run_history.txt"), "earlier history\r\n");
}

TEST(FirstStart, InAReadOnlyHomeItIsSaidOnceAndTheListsThatShipAreInForce) {
    first_start_program p;
    p.files.locked_folders.insert("/home/li/.local/share/corvane/");
    p.add_earlier("/usr/lib/corvane/");
    ASSERT_TRUE(p.corvane.start());
    EXPECT_EQ(p.told(),
              (texts{"/home/li/.local/share/corvane/\r\n程序目录不能写入，设置、清单和结果不能保存。",
                     "发现以前的设置和清单:\r\n/usr/lib/corvane/\r\n现在的程序目录:\r\n/home/li/.local/share/"
                     "corvane/"}))
        << "what is protected there does not hold here";
    EXPECT_EQ(p.corvane.main_form().state.no_types, column<std::string>{"shipped"});
    EXPECT_FALSE(p.files.has("/home/li/.local/share/corvane")) << "nothing on the disk";
}

TEST(FirstStart, ASecondInstanceMakesAndAsksNothing) {
    first_start_program p;
    p.add_earlier("/usr/lib/corvane/");
    p.files.claimed_by_another = true;
    EXPECT_FALSE(p.corvane.start());
    EXPECT_EQ(p.questions(), 0);
    EXPECT_FALSE(p.has("仅搜索的文件类型.txt"));
}

TEST(Place, TheHelpThatShipsIsOpenedWhereverTheFilesAre) {
    first_start_program p;
    p.corvane.start();
    p.corvane.main_form().run("programm_m");
    EXPECT_EQ(p.desktop.calls.back(), "open /usr/share/corvane/帮助/Corvane帮助.htm");
    EXPECT_EQ(p.corvane.main_form().tooltip, "程序目录: /home/li/.local/share/corvane/");
    EXPECT_EQ(p.corvane.texts().about().lblPlace.caption, "程序目录: /home/li/.local/share/corvane/");
}

}  // namespace
}  // namespace corvane
