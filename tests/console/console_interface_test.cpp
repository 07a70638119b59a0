#include "console/console_interface.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

struct console {
    std::FILE* stream = std::tmpfile();
    record_output output{stream};
    console_interface screen{output};
    ~console() { std::fclose(stream); }

    std::string printed() {
        output.flush();
        std::rewind(stream);
        std::string text(4096, '\0');
        text.resize(std::fread(text.data(), 1, text.size(), stream));
        return text;
    }
};

message question() {
    message box;
    box.title = "提示";
    box.text = "同意吗";
    box.buttons = box_buttons::yes_no;
    return box;
}

TEST(ConsoleInterface, AQuestionTakesTheNextAnswer) {
    console c;
    c.screen.queue_answer("yes");
    c.screen.queue_answer("no");
    EXPECT_EQ(c.screen.show_message(question()), box_answer::yes);
    EXPECT_EQ(c.screen.show_message(question()), box_answer::no);
    EXPECT_FALSE(c.screen.question_unanswered());
    EXPECT_EQ(c.printed(), "message\t提示\t同意吗\tyesno\t1000\nmessage\t提示\t同意吗\tyesno\t1000\n");
}

TEST(ConsoleInterface, ABoxWithOnlyOkTakesNoAnswer) {
    console c;
    c.screen.queue_answer("yes");
    message box = question();
    box.buttons = box_buttons::ok;
    c.screen.show_message(box);
    EXPECT_EQ(c.screen.show_message(question()), box_answer::yes);
}

TEST(ConsoleInterface, AQuestionWithoutAnAnswerIsRefusedAndTold) {
    console c;
    int told = 0;
    c.screen.set_unanswered([&told] { ++told; });
    EXPECT_EQ(c.screen.show_message(question()), box_answer::dismissed);
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(c.screen.question_unanswered());
}

TEST(ConsoleInterface, CancelDismissesAQuestion) {
    console c;
    c.screen.queue_answer("cancel");
    EXPECT_EQ(c.screen.show_message(question()), box_answer::dismissed);
    EXPECT_FALSE(c.screen.question_unanswered());
}

TEST(ConsoleInterface, AnInputBoxTakesTheNextAnswerAsItsText) {
    console c;
    c.screen.queue_answer("*.jpg");
    c.screen.queue_answer("cancel");
    EXPECT_EQ(c.screen.ask_text("t", "p", ""), "*.jpg");
    EXPECT_EQ(c.screen.ask_text("t", "p", ""), std::nullopt);
}

TEST(ConsoleInterface, ActsRunAtTheirYieldCountedFromNow) {
    console c;
    std::string order;
    c.screen.yield();
    c.screen.at_yield(2, [&order] { order += 'b'; });
    c.screen.at_yield(1, [&order] { order += 'a'; });
    c.screen.yield();
    EXPECT_EQ(order, "a");
    c.screen.yield();
    EXPECT_EQ(order, "ab");
}

}  // namespace
}  // namespace corvane
