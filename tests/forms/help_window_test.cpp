// The viewer of the help and its keys: pages, search, place, boxes that wait, F1, help mode by mouse.
#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "core/language/translation.h"
#include "forms/about_window.h"
#include "forms/directory_window.h"
#include "forms/help_browser.h"
#include "forms/help_pages.h"
#include "forms/help_window.h"
#include "forms/list_box_view.h"
#include "forms/main_window.h"
#include "forms/options_window.h"
#include "forms/own_words.h"
#include "forms/panel_bar.h"
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

std::string asked(int topic) {
    return "help " + page(topic).toStdString();
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
    qt_shell shell;
    help_window help(chinese);
    shell.show_help = [&help](const QString& file) { return help.open(file); };
    EXPECT_TRUE(shell.open_help_topic("/prog/Corvane帮助.chm", page(9).toStdString()));
    EXPECT_EQ(help.shown_page(), page(9));
    EXPECT_FALSE(shell.open_help_topic("/prog/Corvane帮助.chm", "aux98_Corvane帮助_Link.htm"));
}

TEST(HelpWindow, TheLanguageIsThatOfTheWindows) {
    bool english = true;
    EXPECT_EQ(help_folder(QStringLiteral("/p"), english), QStringLiteral("/p/help/zh_CN"));
    EXPECT_FALSE(english);
    const translation table = corvane::english();
    use_translation(&table);
    EXPECT_EQ(help_folder(QStringLiteral("/p"), english), QStringLiteral("/p/help/en"));
    EXPECT_TRUE(english);
    use_translation(nullptr);
}

TEST(HelpKeys, F1OpensTheTopicOfTheFocusOrOfTheWindow) {
    forms_program shown;
    QWidget& main = shown.windows.main();
    main.activateWindow();
    QTest::keyClick(&main, Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls, std::vector<std::string>{asked(1)});
    shown.show_pairs(3);
    shown.form.ListView1.help_context = 1015;
    QWidget* list = shown.widget("ListView1");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls.back(), asked(15));
    shown.form.ListView1.help_context = 1039;
    QTest::keyClick(list, Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls.back(), asked(39));
    EXPECT_EQ(shown.desktop.calls.size(), 3u);
}

TEST(HelpKeys, F1InTheOtherWindows) {
    forms_program shown;
    shown.files.add_file("/prog/常用文件扩展名.txt", ".txt 文本\r\n");
    shown.form.run("Picture1_Click");
    shown.form.run("select_m_Click");
    shown.form.run("关于_M");
    shown.windows.sync();
    QTest::keyClick(shown.widget("Dir_select", &shown.windows.directory()), Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls.back(), asked(9));
    const std::pair<const char*, int> places[] = {{"List1", 23}, {"List2", 26},  {"List3", 27},
                                                  {"List4", 25}, {"Check1", 28}, {"Command4", 22}};
    for (const auto& [name, topic] : places) {
        QTest::keyClick(shown.widget(name, &shown.windows.options()), Qt::Key_F1);
        EXPECT_EQ(shown.desktop.calls.back(), asked(topic)) << name;
    }
    QTest::keyClick(shown.widget("Text1", &shown.windows.about()), Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls.back(), asked(64));
    EXPECT_EQ(shown.desktop.calls.size(), 8u);
}

TEST(HelpKeys, F1InABoxOpensItsTopicAndAPlainOneTheMessages) {
    forms_program shown;
    for (const auto& [context, topic] : {std::pair{1000, 6}, {1009, 9}, {1015, 15}}) {
        QTimer::singleShot(0, &shown.windows.main(), [] {
            QWidget* box = QApplication::activeModalWidget();
            QTest::keyClick(box, Qt::Key_F1);
            box->close();
        });
        shown.form.inform("没有相同文件", context);
        EXPECT_EQ(shown.desktop.calls.back(), asked(topic));
    }
}

TEST(HelpKeys, OtherKeysAndModifiersAreLeftAlone) {
    forms_program shown;
    QWidget& main = shown.windows.main();
    QTest::keyClick(&main, Qt::Key_F1, Qt::ControlModifier);
    QTest::keyClick(&main, Qt::Key_F2);
    EXPECT_TRUE(shown.desktop.calls.empty());
    QWidget foreign;
    foreign.show();
    foreign.activateWindow();
    shown.settle();
    QTest::keyClick(&foreign, Qt::Key_F1);
    EXPECT_TRUE(shown.desktop.calls.empty());
}

TEST(HelpMouse, AClickOnAnyPanelOpensTheTopicOfPanelSevenAndNoOther) {
    forms_program shown;
    shown.form.panel(7, "搜索和比对");
    shown.windows.sync();
    auto* bar = static_cast<panel_bar*>(shown.widget("StatusBar1"));
    for (const bool help_mode : {false, true}) {
        shown.form.mouse_pointer = help_mode ? help_pointer : 0;
        for (int number = 1; number <= 7; ++number) {
            shown.desktop.calls.clear();
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->panel_place(number).center());
            EXPECT_EQ(shown.desktop.calls, std::vector<std::string>{asked(13)}) << number;
        }
    }
}

TEST(HelpMouse, InHelpModeThePointerAsksAndAPressOnTheFormOpensTheFirstTopic) {
    forms_program shown;
    QWidget& main = shown.windows.main();
    QTest::mouseClick(&main, Qt::LeftButton, {}, QPoint(main.width() - 40, main.height() / 2));
    EXPECT_TRUE(shown.desktop.calls.empty());
    shown.windows.act("help_spirit");
    EXPECT_EQ(main.cursor().shape(), Qt::WhatsThisCursor);
    QWidget* ground = main.childAt(QPoint(main.width() - 40, main.height() / 2));
    QTest::mouseClick(ground, Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(shown.desktop.calls, std::vector<std::string>{asked(1)});
    shown.windows.act("help_spirit");
    EXPECT_EQ(main.cursor().shape(), Qt::ArrowCursor);
}

TEST(HelpMouse, InHelpModeTheLeftListAndTheTextOpenTheirTopics) {
    forms_program shown;
    shown.files.add_file("/prog/文件清单.txt", "/a\r\n/b\r\n");
    shown.form.RichTextBox2.load_file("/prog/文件清单.txt");
    shown.form.RichTextBox2.visible = true;
    shown.windows.act("help_spirit");
    auto* text = static_cast<QAbstractScrollArea*>(shown.widget("RichTextBox2"));
    QTest::mouseClick(text->viewport(), Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_EQ(shown.desktop.calls, std::vector<std::string>{asked(11)});
    shown.form.RichTextBox2.visible = false;
    shown.form.listleft.add("一行");
    shown.form.listleft.visible = true;
    shown.windows.sync();
    auto* list = static_cast<QAbstractScrollArea*>(shown.widget("listleft"));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_EQ(shown.desktop.calls.back(), asked(8));
    EXPECT_EQ(shown.desktop.calls.size(), 2u);
}

TEST(Tooltips, OffAndOnReachTheWidgetsAtOnce) {
    forms_program shown;
    shown.form.run("save_tooltips");
    shown.form.run("Picture1_Click");
    shown.windows.sync();
    QWidget* tree = shown.widget("Dir_select", &shown.windows.directory());
    const QString tip = tree->toolTip();
    EXPECT_FALSE(tip.isEmpty());
    shown.windows.act("tooltiphelp_false");
    EXPECT_TRUE(tree->toolTip().isEmpty());
    shown.windows.act("tooltiphelp_true");
    EXPECT_EQ(tree->toolTip(), tip);
}

TEST(Languages, ATableReachesMenusTasksAndTheSelection) {
    forms_program shown;
    shown.windows.act("Command38_Click");
    EXPECT_EQ(shown.action("search_in_result")->text(), QStringLiteral("18054"));
    EXPECT_EQ(static_cast<QPushButton*>(shown.widget("cmd_dir_firm", &shown.windows.directory()))->text(),
              QStringLiteral("Run"));
    shown.windows.act("Command37_Click");
    EXPECT_EQ(shown.action("search_in_result")->text(), QStringLiteral("在结果中查找"));
    EXPECT_EQ(static_cast<QPushButton*>(shown.widget("cmd_dir_firm", &shown.windows.directory()))->text(),
              QStringLiteral("执行(&R)"));
    EXPECT_EQ(shown.widget("Command37"), nullptr);
}

TEST(AboutWindow, IsModalOverTheMainFormAndNamesTheLibraries) {
    forms_program shown;
    shown.windows.act("关于_M");
    about_window& about = shown.windows.about();
    EXPECT_TRUE(about.isVisible());
    EXPECT_EQ(about.windowModality(), Qt::WindowModal);
    EXPECT_EQ(about.parentWidget(), &shown.windows.main());
    EXPECT_EQ(about.windowTitle(), QStringLiteral("关于 Corvane "));
    const QString libraries = static_cast<QPlainTextEdit*>(shown.widget("Text1", &about))->toPlainText();
    EXPECT_TRUE(libraries.contains(QLatin1String(qVersion())));
    for (const char* word :
         {"Qt", "GLib", "GNU C Library", "libstdc++", "LGPL 3", "LGPL 2.1", "apt-get source"})
        EXPECT_TRUE(libraries.contains(QLatin1String(word))) << word;
    for (const used_library& library : libraries_in_use()) {
        EXPECT_FALSE(library.version.empty()) << library.name;
        EXPECT_FALSE(library.licence.empty()) << library.name;
    }
    QTest::mouseClick(shown.widget("cmdOK", &about), Qt::LeftButton);
    EXPECT_FALSE(about.isVisible());
}

TEST(AboutWindow, TheButtonStartsTheSystemsTool) {
    forms_program shown;
    shown.desktop.programs = {{"hardinfo2", "/usr/bin/hardinfo2"}};
    shown.windows.act("关于_M");
    QTest::mouseClick(shown.widget("cmdSysInfo", &shown.windows.about()), Qt::LeftButton);
    EXPECT_EQ(shown.desktop.started, (std::vector<std::vector<std::string>>{{"/usr/bin/hardinfo2"}}));
}

}  // namespace
}  // namespace corvane
