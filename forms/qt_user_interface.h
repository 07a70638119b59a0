// The screen of the desktop program: boxes, pointer, clock, and turns of the event loop that copy the models
// to the widgets first.
#pragma once

#include <functional>

#include "platform/shell.h"
#include "platform/user_interface.h"

class QWidget;

namespace corvane {

class qt_user_interface : public user_interface {
  public:
    qt_user_interface();

    // Copies the models to the widgets; set by the main window, like the window that boxes belong to and the
    // way to find a widget of a form.
    std::function<void()> sync;
    std::function<QWidget*()> owner;
    std::function<QWidget*(const std::string& form, const std::string& control)> find_widget;
    std::function<void(int help_context)> open_help;

    box_answer show_message(const message& message) override;
    std::optional<std::string> ask_text(const std::string& title, const std::string& prompt,
                                        const std::string& initial) override;
    std::optional<std::string> choose_file(const std::string& title, const std::string& initial) override;
    std::optional<int> choose_colour(int initial) override;
    // Real turns are at least 15 ms apart; in between this is a look at the clock.
    void yield() override;
    void wait(double seconds) override;
    void repaint() override;
    double seconds() override;
    local_time now() override;
    local_time local_date(std::int64_t unix_seconds) override;
    std::optional<screen_point> pointer() override;
    void set_pointer(screen_point place) override;
    std::optional<screen_point> centre_of(const std::string& form, const std::string& control) override;
    screen_size screen() override;
    void end_program() override;
    bool ended() const { return ended_; }

  private:
    void turn();

    std::int64_t last_turn_ = 0;  // nanoseconds of the steady clock
    bool ended_ = false;
};

}  // namespace corvane
