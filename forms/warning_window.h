// The window shut_msg on the screen: what is about to happen, how long it takes, and one button that stops
// it. Made by front_end.
#pragma once

#include <QTimer>
#include <functional>
#include <string>

#include "forms/child_window.h"
#include "power/warning_form.h"

class QLabel;
class QProgressBar;

namespace corvane {

class warning_window : public child_window {
  public:
    // `act` runs a handler of the main form by its name and brings the screen up to date.
    warning_window(Tavrel& main, warning_form& form, std::function<void(const std::string&)> act,
                   QWidget* parent);

    void sync(bool tasks_locked) override;

  protected:
    void changeEvent(QEvent* event) override;
    void before_open() override;

  private:
    warning_form& form_;
    QLabel* words_;
    QProgressBar* bar_;
    QTimer timer_;
};

}  // namespace corvane
