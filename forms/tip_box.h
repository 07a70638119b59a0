// The floating tip of the task pictures, at the place that its model says. Used by main_window.
#pragma once

#include <QLabel>

#include "core/model/main_form.h"

namespace corvane {

class tip_box : public QLabel {
  public:
    tip_box(Tavrel& form, QWidget* parent);

    void sync();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    // Tells the model the size of a character in this box's font.
    void measure();

    Tavrel& form_;
};

}  // namespace corvane
