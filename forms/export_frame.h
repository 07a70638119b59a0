// The frame Frame6 over the work area: the parameters of an export, and the export to a spreadsheet. Used by
// main_window.
#pragma once

#include <functional>
#include <string>

#include "core/model/main_form.h"
#include "forms/floating_frame.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace corvane {

class export_frame : public floating_frame {
  public:
    // `act` runs a handler of the main form by its name.
    export_frame(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    // With `tasks_locked`, no export starts.
    void sync(bool tasks_locked);

  private:
    QLineEdit* make_field(control& model, const char* label, const char* words, int row);

    Tavrel& form_;
    QLabel* caption_;
    QLineEdit* levels_ = nullptr;
    QLineEdit* types_ = nullptr;
    QPushButton* export_ = nullptr;
};

}  // namespace corvane
