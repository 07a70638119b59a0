// The panel Frame4 over the list: the two paths of a row with their dates and lengths, each in a column of
// its own. Dragging its surface moves it. Used by main_window.
#pragma once

#include <QFrame>
#include <QPoint>
#include <array>
#include <functional>
#include <string>

#include "core/model/main_form.h"

class QLabel;
class QLineEdit;

namespace corvane {

class row_panel : public QFrame {
  public:
    // `act` runs a handler of the main form by its name. The panel stays inside its parent, whatever size
    // that takes.
    row_panel(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent);

    void sync();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct line {
        QLineEdit* path;
        QLabel* date;
        QLabel* length;
    };
    line make_line(const control& source, int row);
    void sync_line(const line& shown, const control& source);
    int wanted_width() const;
    void take_room();
    void close_panel();

    Tavrel& form_;
    std::function<void(const std::string&)> act_;
    QLabel* caption_;
    std::array<line, 2> lines_;
    QPoint grip_;
    bool dragging_ = false;
    bool placed_ = false;
};

}  // namespace corvane
