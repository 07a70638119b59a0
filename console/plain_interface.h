// The front end of a run over directories: boxes are sentences on standard error, and nobody answers a
// question.
#pragma once

#include <functional>
#include <string>

#include "console/console_interface.h"
#include "console/plain_words.h"

namespace corvane {

class plain_interface : public console_interface {
  public:
    // Both outlive the interface. `records` is for what it shares with the other front end and receives
    // nothing.
    plain_interface(record_output& records, plain_words& words) : console_interface(records), words_(words) {}

    // Runs at each yield.
    void set_at_yield(std::function<void()> act) { at_yield_ = std::move(act); }

    box_answer show_message(const message& message) override;
    std::optional<std::string> ask_text(const std::string& title, const std::string& prompt,
                                        const std::string& initial) override;
    void yield() override {
        console_interface::yield();
        if (at_yield_) at_yield_();
    }

  private:
    plain_words& words_;
    std::function<void()> at_yield_;
};

}  // namespace corvane
