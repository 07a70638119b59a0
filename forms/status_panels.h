// StatusBar1: seven panels that share the width by their models' weights. Used by the main window.
#pragma once

#include <QWidget>
#include <functional>

#include "core/controls.h"

namespace corvane {

class status_panels : public QWidget {
  public:
    status_panels(const status_bar& model, std::function<void()> clicked, QWidget* parent);

    void sync();
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QRect panel_place(int number) const;

    const status_bar& model_;
    std::function<void()> clicked_;
    QStringList shown_;
    std::array<int, status_bar::panel_count> widths_{};
};

}  // namespace corvane
