// The front end without windows: boxes are printed and answered from a queue, yields run what a script asked
// for, there is no pointer and no waiting.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>

#include "console/records.h"
#include "platform/user_interface.h"

namespace corvane {

class console_interface : public user_interface {
  public:
    // `output` outlives the interface.
    explicit console_interface(record_output& output) : output_(output) {}

    void queue_answer(std::string answer) { answers_.push_back(std::move(answer)); }
    // Runs at the `count`-th yield from now, at least the next.
    void at_yield(std::int64_t count, std::function<void()> act);
    // Called once when a question met no answer.
    void set_unanswered(std::function<void()> act) { unanswered_ = std::move(act); }

    bool failure_shown() const { return failure_shown_; }
    bool question_unanswered() const { return question_unanswered_; }
    bool ended() const { return ended_; }

    box_answer show_message(const message& message) override;
    std::optional<std::string> ask_text(const std::string& title, const std::string& prompt,
                                        const std::string& initial) override;
    std::optional<std::string> choose_file(const std::string& title, const std::string& initial) override;
    std::optional<std::string> choose_new_file(const std::string& title, const std::string& initial) override;
    std::optional<std::string> choose_files(const std::string& title, const std::string& filter,
                                            const std::string& directory) override;
    std::optional<int> choose_colour(const std::string& title, int initial) override;
    void yield() override {
        ++yields_;
        if (!acts_.empty()) run_due_acts();
    }
    void wait(double) override { yield(); }
    void repaint() override {}
    double seconds() override;
    local_time now() override;
    local_time local_date(std::int64_t unix_seconds) override;
    std::optional<screen_point> pointer() override { return {}; }
    void set_pointer(screen_point) override {}
    std::optional<screen_point> centre_of(const std::string&, const std::string&) override { return {}; }
    screen_size screen() override { return {15360, 11520}; }
    void hold_boxes(bool held) override { boxes_held_ = held; }
    void end_program() override { ended_ = true; }

  protected:
    void note_failure(const message& shown) { failure_shown_ = failure_shown_ || shown.failure; }
    // A question has met no answer.
    void refuse();

  private:
    void run_due_acts();
    // Nothing when the queue is empty; the run is then over.
    std::optional<std::string> next_answer();

    record_output& output_;
    std::deque<std::string> answers_;
    std::multimap<std::int64_t, std::function<void()>> acts_;
    std::function<void()> unanswered_;
    std::int64_t yields_ = 0;
    bool boxes_held_ = false;
    bool failure_shown_ = false;
    bool question_unanswered_ = false;
    bool ended_ = false;
};

}  // namespace corvane
