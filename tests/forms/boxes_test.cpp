// Boxes on the screen: their buttons, what Enter, Escape and the close button answer.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

// Acts on the box that the code under test is about to open.
void at_box(std::function<void(QMessageBox&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        act(*box);
    });
}

QAbstractButton* button_of(QMessageBox& box, const QString& caption) {
    for (QAbstractButton* button : box.buttons())
        if (button->text() == caption) return button;
    return nullptr;
}

message question(const char* words) {
    message box;
    box.title = "提示";
    box.text = words;
    box.buttons = box_buttons::yes_no;
    return box;
}

// With a third way out.
message recycle_question() {
    message box = question("将所选定的文件放入回收站吗?\r\n    Y 放入回收站\r\n    N 直接删除");
    box.yes_words = "放入回收站";
    box.no_words = "直接删除";
    box.cancel_words = "取消";
    return box;
}

message direct_question() {
    message box = question("将所选定的文件放入回收站吗?");
    box.yes_words = "直接删除";
    box.no_words = "不删除";
    box.default_answer = box_answer::no;
    return box;
}

// What a key answers that goes to whatever has the focus of the box.
box_answer answer_to(forms_program& shown, const message& box, Qt::Key key) {
    at_box([key](QMessageBox& open) {
        QWidget* focus = open.focusWidget();
        QTest::keyClick(focus ? focus : &open, key);
    });
    return shown.screen.show_message(box);
}

box_answer answer_to_close(forms_program& shown, const message& box) {
    at_box([](QMessageBox& open) { open.close(); });
    return shown.screen.show_message(box);
}

TEST(boxes, a_question_has_chinese_buttons_and_returns_the_answer) {
    forms_program shown;
    message box;
    box.title = "提示";
    box.text = "要继续吗?";
    box.buttons = box_buttons::yes_no;
    at_box([](QMessageBox& open) {
        EXPECT_EQ(open.text(), QStringLiteral("要继续吗?"));
        button_of(open, QStringLiteral("是(&Y)"))->click();
    });
    EXPECT_EQ(shown.screen.show_message(box), box_answer::yes);
    at_box([](QMessageBox& open) { button_of(open, QStringLiteral("否(&N)"))->click(); });
    EXPECT_EQ(shown.screen.show_message(box), box_answer::no);
}

TEST(boxes, the_help_button_opens_the_topic_and_leaves_the_box_open) {
    forms_program shown;
    message box;
    box.text = "你未选择清查目录\r\n第二行";
    box.help_button = true;
    box.help_context = 1009;
    at_box([&shown](QMessageBox& open) {
        EXPECT_FALSE(open.text().contains(QLatin1Char('\r')));
        button_of(open, QStringLiteral("帮助"))->click();
        EXPECT_TRUE(open.isVisible());
        EXPECT_EQ(shown.desktop.calls.back(), "help aux09_Corvane帮助_Link.htm");
        button_of(open, QStringLiteral("确定"))->click();
    });
    EXPECT_EQ(shown.screen.show_message(box), box_answer::ok);
}

TEST(boxes, a_question_without_an_answer_is_dismissed_and_not_refused) {
    forms_program shown;
    for (const message& box : {question("要继续吗?"), recycle_question(), direct_question()}) {
        SCOPED_TRACE(box.no_words);
        EXPECT_EQ(answer_to(shown, box, Qt::Key_Escape), box_answer::dismissed);
        EXPECT_EQ(answer_to_close(shown, box), box_answer::dismissed);
        at_box([](QMessageBox& open) { open.reject(); });
        EXPECT_EQ(shown.screen.show_message(box), box_answer::dismissed);
    }
}

TEST(boxes, enter_answers_yes_where_nothing_else_is_said) {
    forms_program shown;
    EXPECT_EQ(answer_to(shown, question("要继续吗?"), Qt::Key_Return), box_answer::yes);
    EXPECT_EQ(answer_to(shown, question("要继续吗?"), Qt::Key_N), box_answer::no);
}

TEST(boxes, the_recycle_question_says_what_its_three_buttons_do) {
    forms_program shown;
    at_box([](QMessageBox& open) {
        QStringList captions;
        for (const QAbstractButton* button : open.buttons()) captions.append(button->text());
        captions.sort();
        QStringList wanted{QStringLiteral("放入回收站(&Y)"), QStringLiteral("直接删除(&N)"),
                           QStringLiteral("取消")};
        wanted.sort();
        EXPECT_EQ(captions, wanted);
        button_of(open, QStringLiteral("取消"))->click();
    });
    EXPECT_EQ(shown.screen.show_message(recycle_question()), box_answer::dismissed);
    at_box([](QMessageBox& open) { button_of(open, QStringLiteral("直接删除(&N)"))->click(); });
    EXPECT_EQ(shown.screen.show_message(recycle_question()), box_answer::no);
    EXPECT_EQ(answer_to(shown, recycle_question(), Qt::Key_Return), box_answer::yes);
    EXPECT_EQ(answer_to(shown, recycle_question(), Qt::Key_N), box_answer::no);
}

TEST(boxes, enter_keeps_the_files_at_the_question_before_the_direct_road) {
    forms_program shown;
    EXPECT_EQ(answer_to(shown, direct_question(), Qt::Key_Return), box_answer::no);
    EXPECT_EQ(answer_to(shown, direct_question(), Qt::Key_Enter), box_answer::no);
    EXPECT_EQ(answer_to(shown, direct_question(), Qt::Key_Space), box_answer::no);
    at_box([](QMessageBox& open) { button_of(open, QStringLiteral("直接删除(&Y)"))->click(); });
    EXPECT_EQ(shown.screen.show_message(direct_question()), box_answer::yes);
}

TEST(boxes, what_is_at_stake_stands_below_the_words_as_plain_text) {
    forms_program shown;
    message box = recycle_question();
    box.detail = "共 2 个文件\r\n/d/<b>a</b>.txt";
    at_box([](QMessageBox& open) {
        EXPECT_TRUE(open.text().startsWith(QStringLiteral("将所选定的文件放入回收站吗?")));
        EXPECT_FALSE(open.text().contains(QStringLiteral("共 2 个文件")));
        const QLabel* detail = nullptr;
        for (const QLabel* label : open.findChildren<QLabel*>())
            if (label->text() == QStringLiteral("共 2 个文件\n/d/<b>a</b>.txt")) detail = label;
        ASSERT_TRUE(detail);
        EXPECT_TRUE(detail->isVisible());
        EXPECT_EQ(detail->textFormat(), Qt::PlainText);
        open.reject();
    });
    shown.screen.show_message(box);
}

}  // namespace
}  // namespace corvane
