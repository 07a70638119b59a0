// The screen as tasks ask for it, on Qt: boxes, the pointer, turns of the event loop, clocks. Made by main,
// connected to the windows by front_end.
#pragma once

#include <QPointer>
#include <QWidget>
#include <chrono>
#include <functional>

#include "platform/user_interface.h"

class QMessageBox;

namespace corvane {

class qt_user_interface : public user_interface {
  public:
    // Copies the models to the screen.
    void set_sync(std::function<void()> sync) { sync_ = std::move(sync); }
    // The window that boxes stand before, and where controls are looked for by their form's name.
    void set_window_finder(std::function<QWidget*(const std::string&)> finder) {
        find_window_ = std::move(finder);
    }
    // Opens the help topic of a box's help button.
    void set_help(std::function<void(int topic)> open_topic) { open_topic_ = std::move(open_topic); }
    bool ended() const { return ended_; }
    // For good: the program is closing.
    void show_no_more_boxes() { silent_ = true; }

    box_answer show_message(const message& message) override;
    std::optional<std::string> ask_text(const std::string& title, const std::string& prompt,
                                        const std::string& initial) override;
    std::optional<std::string> choose_file(const std::string& title, const std::string& initial) override;
    std::optional<std::string> choose_new_file(const std::string& title, const std::string& initial) override;
    std::optional<std::string> choose_files(const std::string& title, const std::string& filter,
                                            const std::string& directory) override;
    std::optional<int> choose_colour(const std::string& title, int initial) override;
    void yield() override {
        if (std::chrono::steady_clock::now() >= next_turn_) take_turn();
    }
    void work_aside(const std::function<void()>& work) override;
    void wait(double seconds) override;
    void repaint() override;
    double seconds() override;
    local_time now() override;
    local_time local_date(std::int64_t unix_seconds) override;
    std::optional<screen_point> pointer() override;
    void set_pointer(screen_point place) override;
    std::optional<screen_point> centre_of(const std::string& form, const std::string& control) override;
    screen_size screen() override;
    void hold_boxes(bool held) override;
    void end_program() override;

  private:
    void take_turn();
    void sync() {
        if (sync_) sync_();
    }
    // Brings the screen up to date for a box. False when none is to appear any more.
    bool shows_boxes();
    QWidget* window() const;

    std::function<void()> sync_;
    std::function<QWidget*(const std::string&)> find_window_;
    std::function<void(int)> open_topic_;
    std::chrono::steady_clock::time_point next_turn_{};
    bool ended_ = false;
    bool silent_ = false;
    bool held_ = false;
};

}  // namespace corvane
