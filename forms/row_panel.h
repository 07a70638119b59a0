// The panel Frame4 over the work area: the two paths of a row with their dates and lengths. Dragging its
// surface moves it. Used by main_window.
#pragma once

#include <QFrame>
#include <QPoint>
#include <functional>
#include <string>

#include "core/model/main_form.h"

class QLabel;
class QLineEdit;

namespace corvane {

class row_panel : public QFrame {
  public:
    // `act` runs a handler of the main form by its name.
    row_panel(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    void sync();
    // Keeps the panel inside its parent.
    void keep_inside();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void sync_box(QLineEdit* box, const control& source);
    int wanted_width() const;
    void close_panel();

    Tavrel& form_;
    std::function<void(const std::string&)> act_;
    QLabel* caption_;
    QLineEdit* first_;
    QLineEdit* second_;
    QPoint grip_;
    bool dragging_ = false;
    bool placed_ = false;
};

}  // namespace corvane
