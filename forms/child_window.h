// What every window beside the main form does: keeps its place with its model, follows the main form, lights
// up the buttons under the pointer. Base of directory_window and its like.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "core/model/main_form.h"
#include "forms/window_place.h"

class QPushButton;

namespace corvane {

class child_window : public QDialog {
  public:
    // `act` runs a handler of the main form by its name and brings the screen up to date.
    child_window(Tavrel& main, form_model& form, std::function<void(const std::string&)> act,
                 QWidget* parent);

    // Copies what changed in the model to the widgets. With `tasks_locked`, what a running task works on
    // cannot be changed.
    virtual void sync(bool tasks_locked) = 0;
    // Title, visibility and place after the model. Opens at the model's place, else beside the main form.
    void sync_window();
    // The place alone: what a tick of the follow timer may have changed.
    void sync_place();

  protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    // Runs just before the window shows itself.
    virtual void before_open() {}
    // The button follows the pointer by its colour, as its model says.
    void watch_button(QPushButton* button, control& model);

    Tavrel& main_;
    std::function<void(const std::string&)> act_;

  private:
    void open_window();
    // No window is larger than its screen; where not even its least size has room its parts scroll.
    void fit_screen();
    void make_scrollable();
    void place_beside_main();
    void colour_marks();

    form_model& form_;
    window_place place_;
};

}  // namespace corvane
