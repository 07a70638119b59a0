// Questions of the main form: yes, no, and the way that does no harm.
#include <gtest/gtest.h>

#include "core/model/main_form.h"
#include "core/tasks/progress.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

TEST(Questions, AskTellsNoFromADismissedBoxAndKeepsWhatItWasGiven) {
    test_program p;
    p.screen.answers = {box_answer::yes, box_answer::no, box_answer::dismissed};
    message question;
    question.text = "words";
    question.detail = "detail";
    question.no_words = "不删除";
    question.default_answer = box_answer::no;
    EXPECT_EQ(p.form.ask(question), box_answer::yes);
    EXPECT_EQ(p.form.ask(question), box_answer::no);
    EXPECT_EQ(p.form.ask(question), box_answer::dismissed);
    const message& shown = p.screen.messages.back();
    EXPECT_EQ(shown.title, "提示");
    EXPECT_EQ(shown.text, "words");
    EXPECT_EQ(shown.detail, "detail");
    EXPECT_EQ(shown.no_words, "不删除");
    EXPECT_EQ(shown.default_answer, box_answer::no);
    EXPECT_EQ(shown.buttons, box_buttons::yes_no);
    EXPECT_EQ(shown.icon, box_icon::question);
    EXPECT_FALSE(shown.failure);
}

TEST(Questions, OnlyYesConfirms) {
    test_program p;
    p.screen.answers = {box_answer::yes, box_answer::no, box_answer::dismissed};
    EXPECT_TRUE(p.form.confirm("words"));
    EXPECT_FALSE(p.form.confirm("words"));
    EXPECT_FALSE(p.form.confirm("words"));
}

TEST(Questions, ADismissedShutdownQuestionDisarmsIt) {
    test_program p;
    p.state.shutdown_after_task = 1;
    p.screen.answers = {box_answer::dismissed};
    ask_for_shutdown(p.form);
    EXPECT_EQ(p.state.shutdown_after_task, 0);
}

}  // namespace
}  // namespace corvane
