#include "console/plain_interface.h"

#include "compare/compare_task.h"

namespace corvane {

box_answer plain_interface::show_message(const message& message) {
    note_failure(message);
    if (message.buttons == box_buttons::yes_no) {
        words_.say_failure("nobody is there to answer: " + message.text);
        refuse();
        return box_answer::dismissed;
    }
    if (message.failure) words_.say_failure(message.text);
    // The run has a closing sentence of its own.
    else if (message.title != comparison_closing_title)
        words_.say(message.text);
    return box_answer::ok;
}

std::optional<std::string> plain_interface::ask_text(const std::string& title, const std::string& prompt,
                                                     const std::string&) {
    words_.say_failure("nobody is there to answer: " + title + " " + prompt);
    refuse();
    return {};
}

}  // namespace corvane
