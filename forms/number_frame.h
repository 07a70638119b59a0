// The frame Frame1 over the work area, which opens and closes and has no further effect. Used by main_window.
#pragma once

#include <functional>
#include <string>

#include "core/model/main_form.h"
#include "forms/floating_frame.h"

class QLabel;

namespace corvane {

class number_frame : public floating_frame {
  public:
    // `act` runs a handler of the main form by its name.
    number_frame(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    void sync();

  private:
    Tavrel& form_;
    QLabel* caption_;
};

}  // namespace corvane
