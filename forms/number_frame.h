// The frame Frame1 over the work area, which opens and closes and has no further effect. Used by main_window.
#pragma once

#include <QFrame>
#include <functional>
#include <string>

#include "core/model/main_form.h"

class QLabel;

namespace corvane {

class number_frame : public QFrame {
  public:
    // `act` runs a handler of the main form by its name.
    number_frame(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    void sync();

  protected:
    // A double click on the surface closes it, a drag moves it.
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Tavrel& form_;
    std::function<void(const std::string&)> act_;
    QLabel* caption_;
    QPoint grip_;
};

}  // namespace corvane
