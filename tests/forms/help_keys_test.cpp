// What opens a topic from a window: F1, a click on a panel, and the help mode of the pointer.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "forms/about_window.h"
#include "forms/directory_window.h"
#include "forms/list_box_view.h"
#include "forms/main_window.h"
#include "forms/options_window.h"
#include "forms/panel_bar.h"
#include "tests/forms/forms_program.h"
#include "tests/support/help_call.h"
#include "ui_text/help_topics.h"

namespace corvane {
namespace {

TEST(HelpKeys, F1OpensTheTopicOfTheFocusOrOfTheWindow) {
    forms_program shown;
    QWidget& main = shown.windows.main();
    main.activateWindow();
    QTest::keyClick(&main, Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls, std::vector<std::string>{help_call(1)});
    shown.show_pairs(3);
    shown.form.ListView1.help_context = 1015;
    QWidget* list = shown.widget("ListView1");
    list->setFocus();
    QTest::keyClick(list, Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls.back(), help_call(15));
    shown.form.ListView1.help_context = 1039;
    QTest::keyClick(list, Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls.back(), help_call(39));
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
    EXPECT_EQ(shown.desktop.calls.back(), help_call(9));
    const std::pair<const char*, int> places[] = {{"List1", 23}, {"List2", 26},  {"List3", 27},
                                                  {"List4", 25}, {"Check1", 28}, {"Command4", 22}};
    for (const auto& [name, topic] : places) {
        QTest::keyClick(shown.widget(name, &shown.windows.options()), Qt::Key_F1);
        EXPECT_EQ(shown.desktop.calls.back(), help_call(topic)) << name;
    }
    QTest::keyClick(shown.widget("Text1", &shown.windows.about()), Qt::Key_F1);
    EXPECT_EQ(shown.desktop.calls.back(), help_call(64));
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
        EXPECT_EQ(shown.desktop.calls.back(), help_call(topic));
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
            EXPECT_EQ(shown.desktop.calls, std::vector<std::string>{help_call(13)}) << number;
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
    EXPECT_EQ(shown.desktop.calls, std::vector<std::string>{help_call(1)});
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
    EXPECT_EQ(shown.desktop.calls, std::vector<std::string>{help_call(11)});
    shown.form.RichTextBox2.visible = false;
    shown.form.listleft.add("一行");
    shown.form.listleft.visible = true;
    shown.windows.sync();
    auto* list = static_cast<QAbstractScrollArea*>(shown.widget("listleft"));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_EQ(shown.desktop.calls.back(), help_call(8));
    EXPECT_EQ(shown.desktop.calls.size(), 2u);
}

}  // namespace
}  // namespace corvane
