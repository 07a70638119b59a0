// One row of the task column: picture and label of a task as one button. Used by task_column.
#pragma once

#include <QAbstractButton>
#include <functional>

namespace corvane {

class task_button : public QAbstractButton {
  public:
    // `icon` lives as long as the button.
    task_button(const char* icon, QWidget* parent);

    // The step that comes next by itself is accented.
    void set_next_step(bool next);
    bool is_next_step() const { return next_; }
    // How far the picture stands off its resting place, in pixels, to the right and down.
    void set_shift(double shift);

    // What the pointer does on the button; each may be empty. Positions count from its corner, in pixels; a
    // position outside says that the pointer has left.
    std::function<void(QPoint)> pointer_moved;
    std::function<void()> pointer_pressed;
    std::function<void()> pointer_released;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    const char* icon_;
    bool next_ = false;
    double shift_ = 0;
    bool by_keyboard_ = false;  // the focus ring is for those who need it
};

}  // namespace corvane
