// The table of texts: whole ones, lines, patterns, letters of captions.
#include "core/language/translation.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>

namespace corvane {
namespace {

constexpr std::array<translation_row, 10> rows = {{
    {"确定", "OK"},
    {"文件", "File"},
    {"自动关机...", "Shut down..."},
    {"关闭计算机.", "shut down."},
    {"文件数:{}", "Files: {}"},
    {"就要{t}请做好准备", "About to {t}"},
    {"保留 {} 个: 最后 {} 个", "Kept {}: last {}"},
    {"保留 {} 个: 最后 {} 个 变化 {} 个", "Kept {}: last {} changed {}"},
    {"{}  不存在", "{} is not there"},
    {"{n}个文件", "{n} files"},
}};

std::string said(std::string_view text) {
    return translation({rows}).translated(text);
}

TEST(Translation, AWholeTextIsItsRowAndWhatHasNoneStaysAsItIs) {
    EXPECT_EQ(said("确定"), "OK");
    EXPECT_EQ(said("不知道"), "不知道");
    EXPECT_EQ(said("plain"), "plain");
    EXPECT_EQ(said(""), "");
}

TEST(Translation, LinesAreTranslatedOneByOneWithTheirBlanksAndEnds) {
    EXPECT_EQ(said("  确定\r\n\r\n文件 \r\n不知道\n"), "  OK\r\n\r\nFile \r\n不知道\n");
}

TEST(Translation, HolesTakeOverWhatTheyCaughtAsItIs) {
    EXPECT_EQ(said("文件数:12,480"), "Files: 12,480");
    EXPECT_EQ(said("文件数:"), "Files: ");
    // A path that is a text of the table, or no UTF-8 at all.
    EXPECT_EQ(said("/家/文件  不存在"), "/家/文件 is not there");
    EXPECT_EQ(said("文件  不存在"), "文件 is not there");
    EXPECT_EQ(said("/a\xFF\xFE 中  不存在"), "/a\xFF\xFE 中 is not there");
}

TEST(Translation, ASpokenHoleIsTranslatedItself) {
    EXPECT_EQ(said("就要关闭计算机.请做好准备"), "About to shut down.");
    EXPECT_EQ(said("就要别的请做好准备"), "About to 别的");
}

TEST(Translation, OfTwoPatternsWithOneBeginningTheOneThatFitsWholeIsTaken) {
    EXPECT_EQ(said("保留 2 个: 最后 1 个 变化 1 个"), "Kept 2: last 1 changed 1");
    EXPECT_EQ(said("保留 2 个: 最后 2 个"), "Kept 2: last 2");
}

TEST(Translation, TheLetterOfACaptionMarksALetterOfItsWords) {
    EXPECT_EQ(said("文件(&F)"), "&File");
    EXPECT_EQ(said("文件(&L)"), "Fi&le");
    EXPECT_EQ(said("文件(&X)"), "File (&X)");
    EXPECT_EQ(said("自动关机(&D)..."), "Shut &down...");
    EXPECT_EQ(said("自动关机(&Z)..."), "Shut down (&Z)...");
}

TEST(Translation, APathThatEndsLikeACountIsNoCount) {
    EXPECT_EQ(said("12,480个文件"), "12,480 files");
    EXPECT_EQ(said("/home/u/旅行 100个文件"), "/home/u/旅行 100个文件");
    EXPECT_EQ(said("个文件"), "个文件");
}

TEST(Translation, OnlyChineseIsLookedAt) {
    EXPECT_TRUE(holds_chinese("a中"));
    EXPECT_TRUE(holds_chinese("a，"));
    EXPECT_FALSE(holds_chinese("résumé ✓ …"));
}

// English: every row once, as many holes on both sides, no Chinese left on the right.
TEST(English, RowsAreWellFormed) {
    std::set<std::string_view> seen;
    for (const auto& table :
         {english_windows(), english_menus(), english_messages(), english_reports(), english_status()})
        for (const translation_row& row : table) {
            EXPECT_TRUE(seen.insert(row.text).second) << row.text;
            EXPECT_FALSE(holds_chinese(row.translated)) << row.translated;
            // A hole that English has no use for would be lost, and one too many would take what is not
            // there.
            EXPECT_EQ(std::count(row.text.begin(), row.text.end(), '{'),
                      std::count(row.translated.begin(), row.translated.end(), '{'))
                << row.text;
        }
    EXPECT_GT(seen.size(), 300u);
}

TEST(English, OfMarksAndGroupsNothingStaysChinese) {
    const translation words = english();
    EXPECT_EQ(words.translated("已标记:2 个文件, 17 字节"), "Marked: 2 files, 17 bytes");
    EXPECT_EQ(words.translated("同组:3 份, 可释放 2.0 KB"), "Group: 3 copies, 2.0 KB can be freed");
    for (const char* text :
         {"已标记:3 个文件, 17.4 KB; 其中压缩包内 1 个, 不能恢复", "没有标记的文件", "2 份, 7 字节",
          "2 份, 7.7 KB", "同组:3 份, 可释放 14 字节", "保留路径最短的: 将标记 3 个文件, 9 字节",
          "按目录次序保留: 没有可标记的文件",
          "保留最新的: 将标记 3 个文件, 1.0 KB\r\n连同未显示的行: 4 个文件, 12 字节", "已撤销,标记:4",
          "受保护,不标记:1", "放入回收站:1 个空目录\r\n受保护,保留 2 个空目录",
          "受保护,保留 3 个文件:\r\n  /p/a 等", "/prog/标记.txt\r\n标记文件不完整,只取了前 1 个。"}) {
        const std::string translated = words.translated(text);
        // Names of files stay what they are.
        EXPECT_FALSE(
            holds_chinese(translated.substr(translated.starts_with('/') ? translated.find('\n') : 0)))
            << translated;
    }
}

}  // namespace
}  // namespace corvane
