// The frame Frame_err over the work area: the file in which the last run ended. Used by main_window.
#pragma once

#include <QFrame>
#include <functional>
#include <string>

#include "core/model/main_form.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace corvane {

class error_frame : public QFrame {
  public:
    // `act` runs a handler of the main form by its name.
    error_frame(Tavrel& form, const std::function<void(const std::string&)>& act, QWidget* parent);

    void sync();
    // Keeps the frame in the middle of its parent.
    void centre();

  private:
    Tavrel& form_;
    QLabel* caption_;
    QLineEdit* path_;
    QCheckBox* avoid_;
};

}  // namespace corvane
