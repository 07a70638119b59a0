#include "console/console_interface.h"

#include <chrono>
#include <ctime>

#include "platform/local_clock.h"

namespace corvane {

void console_interface::at_yield(std::int64_t count, std::function<void()> act) {
    acts_.emplace(yields_ + (count < 1 ? 1 : count), std::move(act));
}

void console_interface::run_due_acts() {
    while (!acts_.empty() && acts_.begin()->first <= yields_) {
        const std::function<void()> act = std::move(acts_.begin()->second);
        acts_.erase(acts_.begin());
        act();
    }
}

void console_interface::refuse() {
    question_unanswered_ = true;
    if (unanswered_) unanswered_();
}

std::optional<std::string> console_interface::next_answer() {
    if (answers_.empty()) {
        refuse();
        return {};
    }
    std::string answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

box_answer console_interface::show_message(const message& message) {
    const bool question = message.buttons == box_buttons::yes_no;
    if (boxes_held_) return question ? box_answer::dismissed : box_answer::ok;
    output_.record({"message", message.title, message.text, question ? "yesno" : "ok",
                    std::to_string(message.help_context)});
    output_.flush();
    note_failure(message);
    if (!question) return box_answer::ok;
    const std::optional<std::string> answer = next_answer();
    if (!answer || *answer == "cancel") return box_answer::dismissed;
    return *answer == "yes" || *answer == "ok" ? box_answer::yes : box_answer::no;
}

std::optional<std::string> console_interface::ask_text(const std::string& title, const std::string& prompt,
                                                       const std::string&) {
    if (boxes_held_) return {};
    output_.record({"input", title, prompt});
    output_.flush();
    std::optional<std::string> answer = next_answer();
    if (answer && *answer == "cancel") return {};
    return answer;
}

std::optional<std::string> console_interface::choose_file(const std::string& title,
                                                          const std::string& initial) {
    return ask_text(title, initial, initial);
}

std::optional<std::string> console_interface::choose_new_file(const std::string& title,
                                                              const std::string& initial) {
    return ask_text(title, initial, initial);
}

std::optional<std::string> console_interface::choose_files(const std::string& title, const std::string&,
                                                           const std::string& directory) {
    return ask_text(title, directory, directory);
}

std::optional<int> console_interface::choose_colour(const std::string& title, int initial) {
    const std::optional<std::string> answer = ask_text(title, std::to_string(initial), {});
    if (!answer) return {};
    return std::atoi(answer->c_str());
}

double console_interface::seconds() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

local_time console_interface::now() {
    return local_time_of(std::time(nullptr));
}

local_time console_interface::local_date(std::int64_t unix_seconds) {
    return local_time_of(unix_seconds);
}

}  // namespace corvane
