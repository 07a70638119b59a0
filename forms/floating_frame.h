// A frame over the work area that is dragged by its surface. Base of number_frame and export_frame.
#pragma once

#include <QFrame>
#include <QPoint>
#include <functional>
#include <string>

#include "core/model/controls.h"

namespace corvane {

class floating_frame : public QFrame {
  public:
    // `act` runs a handler of the main form by its name: on a double click on the surface `double_click`, on
    // Escape `escape`.
    floating_frame(const control& model, std::function<void(const std::string&)> act,
                   const char* double_click, const char* escape, QWidget* parent);

  protected:
    // Shows the frame with its corner at `corner`, moved into the parent.
    void show_at(QPoint corner);

    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    std::function<void(const std::string&)> act_;

  private:
    void move_inside(QPoint corner);

    const std::string double_click_;
    const std::string escape_;
    QPoint grip_;
};

}  // namespace corvane
