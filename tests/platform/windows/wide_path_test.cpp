#include "platform/windows/wide_path.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(WidePath, LiftsTheLimitAndTakesNamesAsTheyStand) {
    EXPECT_EQ(wide_path("C:\\a\\b"), L"\\\\?\\C:\\a\\b");
    EXPECT_EQ(wide_path("C:\\a\\b\\"), L"\\\\?\\C:\\a\\b\\");
    EXPECT_EQ(wide_path("d:\\照片\\dot."), L"\\\\?\\d:\\照片\\dot.");
    EXPECT_EQ(wide_path("D:\\NUL"), L"\\\\?\\D:\\NUL");
    EXPECT_EQ(wide_path("\\\\server\\share\\f"), L"\\\\?\\UNC\\server\\share\\f");
}

TEST(WidePath, TakesBothSeparatorsAndNoneTwice) {
    EXPECT_EQ(wide_path("C:/a//b\\\\c"), L"\\\\?\\C:\\a\\b\\c");
    EXPECT_EQ(wide_path("//server/share"), L"\\\\?\\UNC\\server\\share");
}

TEST(WidePath, ADriveAloneIsItsRootAndNoDevice) {
    EXPECT_EQ(wide_path("C:"), L"\\\\?\\C:\\");
    EXPECT_EQ(wide_path("C:\\"), L"\\\\?\\C:\\");
}

TEST(WidePath, WhatIsNoPathOfTheDiskIsEmpty) {
    for (const char* text : {"",
                             "a",
                             "a\\b",
                             "\\a",
                             "C:a",
                             "\\\\?\\C:\\a",
                             "\\\\.\\PhysicalDrive0",
                             "\\\\.\\C:",
                             "C:\\a*b",
                             "C:\\a?",
                             "C:\\a\\..\\b",
                             "C:\\.",
                             "C:\\f:stream",
                             "C:\\\"a\"",
                             "C:\\a|b",
                             "C:\\<",
                             "\\\\",
                             "\\\\\\a",
                             "C:\\\xFF",
                             "1:\\a",
                             "C:\\a.zip*in.txt",
                             "C:\\a\uF02A"})
        EXPECT_EQ(wide_path(text), L"") << text;
    EXPECT_EQ(wide_path(std::string("C:\\a\0b", 6)), L"");
}

TEST(WidePath, ComesBackAsItWas) {
    for (const char* text : {"C:\\a\\b", "C:\\", "\\\\server\\share\\f", "D:\\照片"})
        EXPECT_EQ(text_of_path(wide_path(text)), text);
}

TEST(WidePath, TheRootOfAVolume) {
    EXPECT_EQ(volume_root("C:\\a\\b"), "C:\\");
    EXPECT_EQ(volume_root("C:\\"), "C:\\");
    EXPECT_EQ(volume_root("\\\\server\\share\\f\\g"), "\\\\server\\share\\");
    for (const char* text : {"C:", "a\\b", "\\\\server", "\\\\server\\share", ""})
        EXPECT_EQ(volume_root(text), "");
}

TEST(WidePath, TheShellGetsNoNameThatItTakesForAnother) {
    EXPECT_EQ(shell_path("D:\\d\\a.jpg"), L"D:\\d\\a.jpg");
    EXPECT_EQ(shell_path("\\\\server\\share\\a b.jpg"), L"\\\\server\\share\\a b.jpg");
    for (const char* path : {"D:\\d\\a.jpg.", "D:\\d\\a.jpg ", "D:\\d.\\a.jpg", "D:\\d\\NUL", "a.jpg"})
        EXPECT_TRUE(shell_path(path).empty()) << path;
}

}  // namespace
}  // namespace corvane
