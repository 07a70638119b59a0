// Frame4: the two paths of a row with dates and lengths, over the main window; dragged by its surface.
#pragma once

#include <QFrame>
#include <QPoint>
#include <functional>

class QLabel;
class QLineEdit;

namespace corvane {

class Tavrel;

class row_panel_frame : public QFrame {
  public:
    // `area` is the part of the parent over which the panel first appears; it outlives the panel.
    row_panel_frame(Tavrel& form, std::function<void(const std::string&)> act, const QWidget* area,
                    QWidget* parent);

    void sync();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    void keep_inside();

    Tavrel& form_;
    const QWidget* area_;
    QLabel* caption_;
    QLineEdit* first_;
    QLineEdit* second_;
    QPoint grip_;
    bool placed_ = false;
};

}  // namespace corvane
