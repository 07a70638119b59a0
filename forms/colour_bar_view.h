// Paints the colour bar of a form: its back colour and the filled box. Used by main_window.
#pragma once

#include <QWidget>

#include "core/model/controls.h"

namespace corvane {

class colour_bar_view : public QWidget {
  public:
    explicit colour_bar_view(QWidget* parent);

    void sync(const colour_bar& bar);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::int32_t back_ = 0;
    std::int32_t fill_ = 0;
    double filled_ = 0;
};

}  // namespace corvane
