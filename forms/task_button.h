// One row of the task column: picture and label of a task as one button. Used by task_column.
#pragma once

#include <QAbstractButton>

namespace corvane {

class task_button : public QAbstractButton {
  public:
    // `icon` lives as long as the button.
    task_button(const char* icon, QWidget* parent);

    // The step that comes next by itself is accented.
    void set_next_step(bool next);
    bool is_next_step() const { return next_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    const char* icon_;
    bool next_ = false;
    bool by_keyboard_ = false;  // the focus ring is for those who need it
};

}  // namespace corvane
