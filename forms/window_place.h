// Keeps the place of a window and of its form model the same, in both directions. Member of every window.
#pragma once

#include <QElapsedTimer>
#include <QPoint>

#include "core/model/form_model.h"

class QWidget;

namespace corvane {

constexpr int twips_per_pixel = 15;

class window_place {
  public:
    window_place(QWidget& window, form_model& form) : window_(window), form_(form) {}

    // The user or the window manager moved or sized the window, or changed its state: the model takes it
    // over. While the window is still on its way to a place that the program asked for, its stops there are
    // no news.
    void keep();
    // The program changed the place in the model: the window goes there. A place without a size, or off every
    // screen, moves nothing. A display that forbids programs to place windows leaves it where it is.
    void apply();
    // True when the model knows a place: a stored one, or where the window stood when it was open last.
    bool is_known() const { return form_.place.width > 0 && form_.place.height > 0; }

  private:
    QWidget& window_;
    form_model& form_;
    rectangle kept_;
    QPoint asked_;
    QElapsedTimer since_asked_;
};

}  // namespace corvane
