// Draws the colour bar model. Used by the main window.
#pragma once

#include <QWidget>

#include "core/controls.h"

namespace corvane {

class colour_bar_widget : public QWidget {
  public:
    // The model outlives the widget.
    explicit colour_bar_widget(const colour_bar& model, QWidget* parent = nullptr);

    void sync();
    QSize sizeHint() const override { return {200, 14}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const colour_bar& model_;
    double shown_ = -1;
    std::int32_t shown_fill_ = 0;
};

}  // namespace corvane
