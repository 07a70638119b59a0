#include "forms/text_pane_widget.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>

namespace corvane {
namespace {

struct pane {
    explicit pane(const std::string& content) {
        const std::string path = folder.path().toStdString() + "/list.txt";
        std::ofstream(path, std::ios::binary) << content;
        model.load_file(path);
        widget.sync();
    }
    QTemporaryDir folder;
    text_pane model{"RichTextBox2"};
    text_pane_widget widget{model};
};

TEST(TextPane, ShowsLinesWithEitherEnd) {
    pane p("one\r\ntwo\n三\r\nlast");
    EXPECT_EQ(p.widget.line_count(), 4);
    EXPECT_EQ(p.widget.line(0), QStringLiteral("one"));
    EXPECT_EQ(p.widget.line(1), QStringLiteral("two"));
    EXPECT_EQ(p.widget.line(2), QStringLiteral("三"));
    EXPECT_EQ(p.widget.line(3), QStringLiteral("last"));
    EXPECT_EQ(p.widget.line(4), QString());
}

TEST(TextPane, AMillionLinesStandThereWithinASecond) {
    std::string content;
    for (int i = 0; i < 1'000'000; ++i)
        content += "/some/long/directory/with/several/levels/file" + std::to_string(i) + "\r\n";
    pane p(content);
    p.widget.resize(800, 600);
    QElapsedTimer clock;
    clock.start();
    p.model.load_file(p.model.path());
    p.widget.sync();
    p.widget.grab();
    EXPECT_LT(clock.elapsed(), 1000);
    EXPECT_EQ(p.widget.line_count(), 1'000'000);
    EXPECT_TRUE(p.widget.line(999'999).endsWith(QStringLiteral("file999999")));
    EXPECT_TRUE(p.widget.line(64 * 500 + 63).endsWith(QStringLiteral("file32063")));
}

TEST(TextPane, MissingEmptyAndBinaryFilesAreSurvived) {
    pane empty("");
    EXPECT_EQ(empty.widget.line_count(), 0);
    empty.widget.grab();
    std::string noise;
    for (unsigned i = 0; i < 300'000; ++i) noise += static_cast<char>(i * 2654435761u >> 24);
    pane binary(noise);
    binary.widget.resize(300, 300);
    binary.widget.grab();
    empty.model.load_file("/nowhere/file");
    empty.widget.sync();
    EXPECT_EQ(empty.widget.line_count(), 0);
}

TEST(TextPane, AVeryLongLineIsCutForTheScreenOnly) {
    pane p(std::string(5'000'000, 'x') + "\nnext\n");
    EXPECT_EQ(p.widget.line_count(), 2);
    EXPECT_EQ(p.widget.line(1), QStringLiteral("next"));
    p.widget.grab();
}

TEST(TextPane, IsReadAnewWhenTheFileIsLoadedAgain) {
    pane p("one\n");
    std::ofstream(p.model.path(), std::ios::binary) << "one\ntwo\n";
    p.model.load_file(p.model.path());
    p.widget.sync();
    EXPECT_EQ(p.widget.line_count(), 2);
}

TEST(TextPane, SelectedLinesCanBeCopied) {
    pane p("one\ntwo\nthree\n");
    p.widget.resize(300, 300);
    p.widget.select_all();
    EXPECT_EQ(p.widget.selected_text(), QStringLiteral("one\ntwo\nthree"));
    QTest::mouseClick(p.widget.viewport(), Qt::LeftButton, {}, QPoint(20, 2));
    EXPECT_EQ(p.widget.selected_text(), QStringLiteral("one"));
}

}  // namespace
}  // namespace corvane
