// The seven panels at the bottom of the main window. Used by main_window.
#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

#include "core/model/controls.h"

namespace corvane {

class panel_bar : public QWidget {
  public:
    // `clicked` is called on a click on any panel.
    panel_bar(std::function<void()> clicked, QWidget* parent);

    void sync(const status_bar& bar);
    // Counted from 1.
    QString panel_text(int number) const { return texts_.at(number - 1); }
    QRect panel_place(int number) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    // A press on the bar is no press on the form.
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

  private:
    std::function<void()> clicked_;
    QStringList texts_;
    QList<int> widths_;
    QString tip_;
    // Left edges of the panels and the right one of the last, for the present texts.
    QList<int> edges() const;
};

}  // namespace corvane
