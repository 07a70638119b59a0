// Paths between Qt's texts and the program's on Windows.
#include "forms/path_names.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(path_names, separators_are_those_of_the_disk) {
    EXPECT_EQ(program_path(QStringLiteral("D:/照片/夏天")), "D:\\照片\\夏天");
    EXPECT_EQ(program_path(QStringLiteral("//server/share/a")), "\\\\server\\share\\a");
    EXPECT_EQ(system_path("D:\\照片\\夏天"), QStringLiteral("D:\\照片\\夏天"));
}

TEST(path_names, every_name_comes_back) {
    // A half of a pair alone, a private character, a character beyond the first 65,536, one that the program
    // maps.
    const QString odd = QStringLiteral("D:\\a") + QChar(0xD83D) + QStringLiteral("b") + QChar(0xF021) +
                        QStringLiteral("\U0001F600") + QChar(0x7F);
    const std::string text = program_path(odd);
    EXPECT_EQ(text.find('\x7F'), std::string::npos);
    EXPECT_EQ(system_path(text), odd);
    EXPECT_NE(text, program_path(QString(odd).remove(QChar(0xD83D))));
}

TEST(path_names, what_is_no_name_is_empty) {
    EXPECT_TRUE(system_path("D:\\\xFF").isEmpty());
    EXPECT_TRUE(system_path("").isEmpty());
    EXPECT_TRUE(program_path({}).empty());
}

}  // namespace
}  // namespace corvane
