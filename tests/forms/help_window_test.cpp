// The viewer of the help: pages, search, place, boxes that wait, languages.
#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "core/language/translation.h"
#include "forms/help_browser.h"
#include "forms/help_pages.h"
#include "forms/help_window.h"
#include "forms/main_window.h"
#include "forms/own_words.h"
#include "forms/qt_shell.h"
#include "tests/forms/forms_program.h"
#include "tests/forms/processor_time.h"
#include "ui_text/help_topics.h"

namespace corvane {
namespace {

const QString chinese = QStringLiteral(CORVANE_HELP_PAGES "/zh_CN");

QString page(int topic) {
    return QStringLiteral("aux%1_Corvane帮助_Link.htm").arg(topic, 2, 10, QLatin1Char('0'));
}

void press_action(QWidget& window, const char* words) {
    for (QAction* action : window.actions())
        if (action->text() == QString::fromUtf8(words)) return action->trigger();
    FAIL() << words;
}

TEST(HelpWindow, ShowsEveryTopicInBothLanguages) {
    for (const char* language : {"zh_CN", "en"}) {
        help_window help(QStringLiteral(CORVANE_HELP_PAGES "/") + QLatin1String(language));
        for (const int topic : help_topics()) {
            EXPECT_TRUE(help.open(page(topic))) << topic;
            EXPECT_EQ(help.shown_page(), page(topic));
            EXPECT_GT(help.browser().document()->characterCount(), 100) << language << topic;
        }
    }
}

TEST(HelpWindow, APageThatIsNotThereIsAFailureAndOpensNothing) {
    help_window help(chinese);
    const outcome result = help.open(QStringLiteral("aux99_Corvane帮助_Link.htm"));
    EXPECT_FALSE(result);
    EXPECT_NE(result.reason.find("  不存在"), std::string::npos);
    EXPECT_FALSE(help.isVisible());
}

TEST(HelpWindow, WithoutAnyPagesItSaysSo) {
    help_window help(QStringLiteral("/nowhere/at/all"));
    EXPECT_FALSE(help.open(page(1)));
}

TEST(HelpWindow, OpensWithinATenthOfASecond) {
    help_window help(chinese);
    const processor_time spent;
    help.open(page(6));  // the longest one
    QCoreApplication::processEvents();
    EXPECT_LT(spent.milliseconds(), 100);
}

TEST(HelpWindow, BackAndForward) {
    help_window help(chinese);
    help.open(page(1));
    help.open(page(9));
    press_action(help, "← 后退");
    EXPECT_EQ(help.shown_page(), page(1));
    press_action(help, "前进 →");
    EXPECT_EQ(help.shown_page(), page(9));
    press_action(help, "目录");
    EXPECT_EQ(help.shown_page(), QStringLiteral("contents.htm"));
}

TEST(HelpWindow, TextGrowsAndShrinksWithinLimits) {
    help_window help(chinese);
    help.open(page(1));
    const double usual = help.browser().text_size();
    press_action(help, "字大");
    EXPECT_DOUBLE_EQ(help.browser().text_size(), usual + 1);
    for (int i = 0; i < 100; ++i) press_action(help, "字小");
    EXPECT_DOUBLE_EQ(help.browser().text_size(), 7);
    for (int i = 0; i < 100; ++i) press_action(help, "字大");
    EXPECT_DOUBLE_EQ(help.browser().text_size(), 32);
}

TEST(HelpWindow, TheContentsFollowThePageAndOpenOne) {
    help_window help(chinese);
    help.open(page(20));
    auto* contents = help.findChild<QTreeWidget*>(QStringLiteral("help_contents"));
    EXPECT_EQ(contents->currentItem()->text(0), QStringLiteral("删除内容相同文件"));
    contents->setCurrentItem(contents->topLevelItem(0)->child(0));
    EXPECT_EQ(help.shown_page(), page(1));
}

TEST(HelpWindow, SearchGoesOverAllPagesAndMarksTheWord) {
    help_window help(chinese);
    help.open(page(1));
    auto* field = help.findChild<QLineEdit*>(QStringLiteral("help_search"));
    auto* hits = help.findChild<QListWidget*>(QStringLiteral("help_hits"));
    field->setText(QStringLiteral("run_history.txt"));
    ASSERT_GE(hits->count(), 4);  // two lines a page; the stored files and the comparison speak of it
    hits->setCurrentRow(0);
    EXPECT_FALSE(help.browser().extraSelections().isEmpty());
    field->setText(QStringLiteral("没有这样的词语xyz"));
    EXPECT_EQ(hits->item(0)->text(), QStringLiteral("没有找到"));
    field->clear();
    EXPECT_TRUE(help.browser().extraSelections().isEmpty());
}

TEST(HelpWindow, AMessageWithAPathIsFoundByItsWords) {
    help_pages pages(chinese);
    const auto first = [&](const char* words) {
        return pages.pages()[pages.search(QString::fromUtf8(words))[0].page].file;
    };
    EXPECT_EQ(first("/home/li/不参加搜索的目录.txt  不存在,请运行查找空子目录"), page(6));
    EXPECT_EQ(first("文件或目录太多，清单只含前 4000000 个文件。"), page(6));
    EXPECT_EQ(first("安全习惯"), page(3));
    EXPECT_TRUE(pages.search(QString()).empty());
    EXPECT_TRUE(pages.search(QStringLiteral("   ")).empty());
}

TEST(HelpWindow, EscapeClearsTheSearchAndThenCloses) {
    help_window help(chinese);
    help.open(page(1));
    auto* field = help.findChild<QLineEdit*>(QStringLiteral("help_search"));
    field->setText(QStringLiteral("回收站"));
    QTest::keyClick(&help, Qt::Key_Escape);
    EXPECT_TRUE(field->text().isEmpty());
    EXPECT_TRUE(help.isVisible());
    QTest::keyClick(&help, Qt::Key_Escape);
    EXPECT_FALSE(help.isVisible());
}

TEST(HelpWindow, ThePictureAndTheColoursFitThePalette) {
    const QDir place(QDir::tempPath() +
                     QStringLiteral("/corvane_help_%1").arg(QCoreApplication::applicationPid()));
    ASSERT_TRUE(place.mkpath(QStringLiteral("zh")) && place.mkpath(QStringLiteral("pictures")));
    const auto paint = [&](const char* name, Qt::GlobalColor colour) {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(colour);
        image.save(place.filePath(QStringLiteral("pictures/%1").arg(QLatin1String(name))));
    };
    paint("x_light_1.png", Qt::white);
    paint("x_dark_1.png", Qt::black);
    help_browser browser(place.filePath(QStringLiteral("zh")), nullptr);
    const auto centre = [&] {
        const auto image =
            browser
                .loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("../pictures/x_light_1.png")))
                .value<QImage>();
        return image.pixelColor(image.width() / 2, image.height() / 2);
    };
    browser.setPalette(light_palette());
    EXPECT_EQ(centre(), QColor(Qt::white));
    const QVariant light = browser.loadResource(QTextDocument::StyleSheetResource, QUrl());
    browser.setPalette(dark_palette());
    EXPECT_EQ(centre(), QColor(Qt::black));
    EXPECT_NE(light, browser.loadResource(QTextDocument::StyleSheetResource, QUrl()));
    // A picture that was not made leaves a dot and no sign of something broken.
    const auto missing =
        browser
            .loadResource(QTextDocument::ImageResource, QUrl(QStringLiteral("../pictures/none_light_1.png")))
            .value<QImage>();
    EXPECT_EQ(missing.height(), 1);
    QDir(place).removeRecursively();
}

TEST(HelpWindow, OpensBesideTheWindowWhereThereIsRoom) {
    forms_program shown;
    help_window help(chinese);
    QWidget& main = shown.windows.main();
    const QRect free = main.screen()->availableGeometry();
    main.resize(700, 500);
    main.move(free.topLeft() + QPoint(10, 40));
    main.activateWindow();
    shown.settle();
    ASSERT_EQ(QApplication::activeWindow(), &main);
    help.open(page(1));
    EXPECT_FALSE(help.frameGeometry().intersects(main.frameGeometry()));
    EXPECT_TRUE(free.contains(help.geometry()));
}

TEST(HelpWindow, OverAFullWindowItLeavesTheTasksFreeOrTheResults) {
    forms_program shown;
    help_window help(chinese);
    QWidget& main = shown.windows.main();
    const QRect free = main.screen()->availableGeometry();
    main.setGeometry(free);
    main.activateWindow();
    shown.settle();
    help.open(page(1));
    EXPECT_GT(help.x(), free.left());
    EXPECT_TRUE(free.contains(help.geometry()));
    help.hide();
    shown.show_pairs(5);
    main.activateWindow();
    shown.settle();
    help.open(page(1));
    EXPECT_EQ(help.x(), free.left());
    EXPECT_TRUE(free.contains(help.geometry()));
}

TEST(HelpWindow, CanBeReadWhileABoxWaitsAndStaysWhenItCloses) {
    forms_program shown;
    help_window help(chinese);
    help.open(page(1));
    QDialog box(&shown.windows.main());
    QTimer::singleShot(0, &box, [&] {
        EXPECT_TRUE(help.open(page(15)));
        EXPECT_EQ(help.parentWidget(), &box);  // a window of the box is not blocked by it
        EXPECT_TRUE(help.isVisible());
        box.accept();
    });
    box.exec();
    EXPECT_EQ(help.parentWidget(), nullptr);
    EXPECT_TRUE(help.isVisible());
    EXPECT_EQ(help.shown_page(), page(15));
}

TEST(HelpWindow, TheShellAnswersWithIt) {
    qt_shell shell(std::make_unique<recording_shell>());
    help_window help(chinese);
    shell.show_help = [&help](const QString& file) { return help.open(file); };
    EXPECT_TRUE(shell.open_help_topic("/prog/Corvane帮助.chm", page(9).toStdString()));
    EXPECT_EQ(help.shown_page(), page(9));
    EXPECT_FALSE(shell.open_help_topic("/prog/Corvane帮助.chm", "aux98_Corvane帮助_Link.htm"));
}

TEST(HelpWindow, TheLanguageIsThatOfTheWindows) {
    EXPECT_EQ(help_folder(QStringLiteral("/p")), QStringLiteral("/p/help/zh_CN"));
    const translation table = corvane::english();
    use_translation(&table);
    EXPECT_EQ(help_folder(QStringLiteral("/p")), QStringLiteral("/p/help/en"));
    help_window help(QStringLiteral(CORVANE_HELP_PAGES "/en"));
    ASSERT_TRUE(help.open(page(2)).ok);
    EXPECT_EQ(help.windowTitle(), QStringLiteral("Corvane help"));
    help.search(QStringLiteral("zqxj"));
    EXPECT_EQ(help.findChild<QListWidget*>()->item(0)->text(), QStringLiteral("Nothing found"));
    use_translation(nullptr);
}

}  // namespace
}  // namespace corvane
