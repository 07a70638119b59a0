// The text pane: line ends, missing and hostile files, a million lines, selection.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTest>

#include "forms/text_lines.h"
#include "forms/text_view.h"
#include "tests/forms/processor_time.h"
#include "tests/support/memory_file_system.h"
#include "tests/support/turned_encoding.h"

namespace corvane {
namespace {

struct lines_of {
    explicit lines_of(const std::string& content) : lines(files) {
        files.add_file("/t.txt", content);
        lines.open("/t.txt");
        while (lines.find_more()) {
        }
    }
    memory_file_system files;
    text_lines lines;
};

TEST(text_lines, both_line_ends_part_lines) {
    lines_of read("一\r\ntwo\nthree");
    ASSERT_EQ(read.lines.count(), 3);
    EXPECT_EQ(read.lines.line(0), QStringLiteral("一"));
    EXPECT_EQ(read.lines.line(1), QStringLiteral("two"));
    EXPECT_EQ(read.lines.line(2), QStringLiteral("three"));
}

TEST(text_lines, a_line_end_at_the_end_makes_no_further_line) {
    EXPECT_EQ(lines_of("a\r\nb\r\n").lines.count(), 2);
    EXPECT_EQ(lines_of("a\n\nb").lines.count(), 3);
    EXPECT_EQ(lines_of("").lines.count(), 0);
}

TEST(text_lines, a_byte_order_mark_is_not_shown) {
    EXPECT_EQ(lines_of("\xEF\xBB\xBF"
                       "first\n")
                  .lines.line(0),
              QStringLiteral("first"));
}

TEST(text_lines, are_read_as_the_machine_writes_its_data_files) {
    const turned_encoding turned;
    memory_file_system files;
    files.encoding = &turned;
    files.add_file("/t.txt", turned_encoding::of("D:\\照片\r\n乙\r\n"));
    // A file that says what it is in is believed.
    files.add_file("/u.txt", "\xEF\xBB\xBF甲\r\n");
    text_lines lines(files);
    lines.open("/t.txt");
    while (lines.find_more()) {
    }
    ASSERT_EQ(lines.count(), 2);
    EXPECT_EQ(lines.line(0), QStringLiteral("D:\\照片"));
    EXPECT_EQ(lines.line(1), QStringLiteral("乙"));
    lines.open("/u.txt");
    while (lines.find_more()) {
    }
    EXPECT_EQ(lines.line(0), QStringLiteral("甲"));
    lines.open("/t.txt");
    while (lines.find_more()) {
    }
    EXPECT_EQ(lines.line(1), QStringLiteral("乙"));
}

TEST(text_lines, bytes_that_are_no_text_are_shown_as_marks) {
    std::string binary("a\x01\xFF", 3);
    binary += '\0';
    const QString shown = lines_of(binary + "b").lines.line(0);
    EXPECT_EQ(shown, QStringLiteral(u"a\u2401\uFFFD\u2400b"));
}

TEST(text_lines, an_endless_line_is_cut) {
    const QString shown = lines_of(std::string(3'000'000, 'x')).lines.line(0);
    EXPECT_LT(shown.size(), 10'000);
    EXPECT_TRUE(shown.endsWith(QStringLiteral("…")));
}

TEST(text_lines, lines_across_slices_are_whole) {
    std::string content;
    for (int i = 0; i < 700'000; ++i) content += "line " + std::to_string(i) + "\r\n";
    lines_of read(content);
    ASSERT_EQ(read.lines.count(), 700'000);
    for (const int i : {0, 1, 311'111, 350'000, 699'999})
        EXPECT_EQ(read.lines.line(i), QStringLiteral("line %1").arg(i));
}

TEST(text_view, a_missing_file_says_so) {
    memory_file_system files;
    text_view view(files, nullptr);
    text_pane pane("RichTextBox2");
    pane.load_file("/none.txt");
    view.sync(pane);
    EXPECT_EQ(view.line_count(), 0);
    view.grab();
}

TEST(text_view, a_million_lines_are_there_within_a_second) {
    memory_file_system files;
    std::string content;
    for (int i = 0; i < 1'000'000; ++i) content += "/home/li/照片/图片_" + std::to_string(i) + ".jpg\r\n";
    files.add_file("/t.txt", std::move(content));
    text_view view(files, nullptr);
    view.resize(600, 400);
    view.show();
    text_pane pane("RichTextBox2");
    const processor_time spent;
    pane.load_file("/t.txt");
    view.sync(pane);
    view.grab();
    while (view.line_count() < 1'000'000 && spent.milliseconds() < 5000) QCoreApplication::processEvents();
    QTest::keyClick(&view, Qt::Key_End);
    view.grab();
    EXPECT_LT(spent.milliseconds(), 1000);
    EXPECT_GT(view.first_visible_line(), 999'900);
}

TEST(text_view, the_same_path_is_read_anew) {
    memory_file_system files;
    files.add_file("/t.txt", "one\n");
    text_view view(files, nullptr);
    text_pane pane("RichTextBox2");
    pane.load_file("/t.txt");
    view.sync(pane);
    files.add_file("/t.txt", "one\ntwo\n");
    view.sync(pane);
    EXPECT_EQ(view.line_count(), 1);
    pane.load_file("/t.txt");
    view.sync(pane);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.line_count(), 2);
}

TEST(text_view, selected_lines_are_copied) {
    memory_file_system files;
    files.add_file("/t.txt", "one\r\ntwo\r\nthree\r\nfour\r\n");
    text_view view(files, nullptr);
    view.resize(400, 300);
    view.show();
    text_pane pane("RichTextBox2");
    pane.load_file("/t.txt");
    view.sync(pane);
    const int line = view.fontMetrics().height() + 3;
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(20, line + line / 2));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, QPoint(20, 2 * line + line / 2));
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("two\nthree"));
}

}  // namespace
}  // namespace corvane
