// A column of parts that is as wide as they are and scrolls where the window is too low for them. Used by
// main_window.
#pragma once

#include <QScrollArea>

namespace corvane {

class column_scroll : public QScrollArea {
  public:
    // Takes `column` over.
    column_scroll(QWidget& column, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void take_width();
};

}  // namespace corvane
