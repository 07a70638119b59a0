// What the desktop of Windows is asked for: recycle bin, processes, keys, clipboard, rights.
#include "platform/windows/windows_shell.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <shellapi.h>

#include "platform/local_clock.h"
#include "platform/own_process.h"
#include "platform/typed_path.h"
#include "platform/windows/windows_attention.h"
#include "platform/windows/windows_instance_link.h"
#include "platform/windows/windows_keys.h"
#include "platform/windows/windows_power.h"
#include "platform/windows/windows_process.h"
#include "platform/windows/windows_recycle.h"
#include "platform/windows/windows_text_encoding.h"
#include "tests/platform/windows/scratch_drive.h"

namespace corvane {
namespace {

class WindowsShell : public scratch_drive {
  protected:
    windows_shell desktop;
};

TEST_F(WindowsShell, TheBinTakesWhatItIsGivenAndAnswersForEach) {
    make_file(L"照片.jpg", "x");
    make_file(L"b.txt", "y");
    make_file(L"stays.txt", "z");
    const std::vector<std::string> paths{root + "照片.jpg", root + "missing", root + "b.txt", root + "*"};
    const std::vector<outcome> answers = move_to_bin(paths);
    ASSERT_EQ(answers.size(), 4u);
    EXPECT_TRUE(answers[0]) << answers[0].reason;
    EXPECT_FALSE(answers[1]);
    EXPECT_TRUE(answers[2]) << answers[2].reason;
    EXPECT_FALSE(answers[3]);
    EXPECT_FALSE(is_there(L"照片.jpg"));
    EXPECT_FALSE(is_there(L"b.txt"));
    EXPECT_EQ(content_of(L"stays.txt"), "z");
}

TEST_F(WindowsShell, ARefusalOfTheBinSaysWhy) {
    const outcome refused = desktop.recycle(root + "missing");
    EXPECT_FALSE(refused);
    EXPECT_TRUE(refused.reason.starts_with("不能移到回收站。"));
}

TEST_F(WindowsShell, ACommandLineIsTakenApartIntoTheSameArguments) {
    const std::vector<std::wstring> arguments{
        L"C:\\Program Files\\7z.exe", L"", L"a b", L"quote\"d", L"end\\", L"\\\\\"", L"照片", L"a\\\\b \\\\"};
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(command_line_of(arguments).c_str(), &count);
    ASSERT_EQ(count, static_cast<int>(arguments.size()));
    for (int i = 0; i < count; ++i) EXPECT_EQ(words[i], arguments[static_cast<std::size_t>(i)]);
    LocalFree(words);
}

TEST_F(WindowsShell, AProcessRunsOnItsOwnAndItsEndIsSeen) {
    make_file(L"a file");
    const std::string attrib = text_of(system_program(L"system32\\attrib.exe"));
    const outcome_with<started_process> process = desktop.start_process({attrib, "+h", root + "a file"});
    ASSERT_TRUE(process) << process.reason;
    EXPECT_TRUE(process->has_ended(30));
    EXPECT_EQ(attributes_of(L"a file") & FILE_ATTRIBUTE_HIDDEN, DWORD{FILE_ATTRIBUTE_HIDDEN});
    EXPECT_FALSE(desktop.start_process({root + "missing.exe"}));
    EXPECT_FALSE(desktop.start_process({"cmd.exe"}));
    EXPECT_FALSE(desktop.start_process({}));
}

TEST_F(WindowsShell, ProgramsAreFoundInTheSearchPathAndNotInTheCurrentFolder) {
    EXPECT_TRUE(desktop.find_program("cmd").ends_with("\\cmd.exe"));
    make_file(L"only_here.exe");
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    ASSERT_TRUE(SetCurrentDirectoryW(wide_root.substr(4).c_str()));
    EXPECT_EQ(desktop.find_program("only_here"), "");
    SetCurrentDirectoryW(before);
    EXPECT_EQ(desktop.find_program(root + "only_here"), "");
    EXPECT_EQ(desktop.find_program(""), "");
}

TEST_F(WindowsShell, WhatIsNoPathIsNotOpened) {
    for (const char* path : {"cmd.exe", "a*b", "", "\\\\.\\C:"}) {
        EXPECT_FALSE(desktop.open_document(path)) << path;
        EXPECT_FALSE(desktop.show_in_file_manager(path)) << path;
        EXPECT_FALSE(desktop.show_properties(path)) << path;
    }
    EXPECT_FALSE(desktop.open_help_topic(root + "Corvane帮助.chm", "aux06.htm"));
}

TEST_F(WindowsShell, TextComesBackFromTheClipboard) {
    ASSERT_TRUE(desktop.set_clipboard("照片 \U0001F600"));
    ASSERT_TRUE(OpenClipboard(nullptr));
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    ASSERT_NE(memory, nullptr);
    EXPECT_EQ(static_cast<const wchar_t*>(GlobalLock(memory)), std::wstring(L"照片 \xD83D\xDE00"));
    GlobalUnlock(memory);
    CloseClipboard();
}

TEST(WindowsKeys, AreStrokesOfTheKeyboard) {
    using strokes = std::vector<key_stroke>;
    EXPECT_EQ(strokes_of("{F3}"), (strokes{{VK_F3, false}, {VK_F3, true}}));
    EXPECT_EQ(strokes_of("^v{ENTER}"), (strokes{{VK_CONTROL, false},
                                                {'V', false},
                                                {'V', true},
                                                {VK_CONTROL, true},
                                                {VK_RETURN, false},
                                                {VK_RETURN, true}}));
    for (const char* keys : {"", "{F99}", "{F3", "^", "é"}) EXPECT_TRUE(strokes_of(keys).empty()) << keys;
}

TEST(WindowsPower, TheRightToShutDownIsTaken) {
    EXPECT_TRUE(take_shutdown_right());
}

TEST(WindowsAttention, TheMachineStaysAwakeWhileAskedTo) {
    windows_attention notice;
    EXPECT_NE(notice.keep_awake("正在运行"), nullptr);
}

TEST(WindowsClock, IsTheWallsByTheZoneOfTheMachine) {
    const local_time start = local_time_of(0);
    EXPECT_TRUE(start.year == 1970 || start.year == 1969);
    const local_time later = local_time_of(61);
    EXPECT_EQ((later.second - start.second + 60) % 60, 1);
    EXPECT_EQ((later.minute - start.minute + 60) % 60, 1);
    // Before the calendar of the system begins there is the zero date.
    EXPECT_EQ(local_time_of(-20'000'000'000).year, 1899);
}

TEST(WindowsEncoding, PairsOfCodePage936AreCharacters) {
    windows_text_encoding encoding;
    EXPECT_EQ(encoding.double_byte_936(0xD6, 0xD0), U'中');
    EXPECT_EQ(encoding.double_byte_936(0xD6, 0x30), 0xFFFDu);
    EXPECT_EQ(encoding.double_byte_936(0xAA, 0xA1), 0xFFFDu);
}

TEST(OwnProcess, StandsInAFolderAndResolvesTypedPaths) {
    EXPECT_TRUE(own_folder().ends_with('\\'));
    EXPECT_TRUE(user_data_home().ends_with("\\"));
    EXPECT_EQ(absolute_raw_path("D:\\a\\..\\b\\.\\照片\\"), "D:\\b\\照片");
    EXPECT_EQ(absolute_raw_path("D:/a/b"), "D:\\a\\b");
    EXPECT_EQ(absolute_raw_path("D:\\"), "D:\\");
}

class WindowsInstances : public scratch_drive {};

TEST_F(WindowsInstances, DirectoriesReachTheInstanceOfTheFolder) {
    make_directory(L"Folder");
    windows_instance_link served, asking;
    std::vector<std::string> taken;
    int raised = 0;
    served.serve(root + "Folder\\", {[&] { return ++raised > 0; },
                                     [&](const std::vector<std::string>& directories) {
                                         taken = directories;
                                         return reception::waits;
                                     }});
    EXPECT_TRUE(asking.raise_other(root + "folder"));
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(asking.hand_over(root + "FOLDER\\", {"D:\\照片", "D:\\b"}), reception::waits);
    EXPECT_EQ(taken, (std::vector<std::string>{"D:\\照片", "D:\\b"}));
    EXPECT_EQ(asking.hand_over(root, {"D:\\a"}), reception::none);
    served.serve(root + "Folder\\", {});
    EXPECT_FALSE(asking.raise_other(root + "Folder\\"));
    EXPECT_EQ(asking.hand_over(root + "Folder\\", {"D:\\a"}), reception::none);
}

}  // namespace
}  // namespace corvane
