#include "forms/task_button.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "forms/colours.h"
#include "forms/icons.h"

namespace corvane {

namespace {
constexpr int icon_size = 26;
constexpr int side_margin = 12;
constexpr int gap = 11;
constexpr int row_height = 42;
constexpr int corner = 6;
}  // namespace

task_button::task_button(const char* icon, QWidget* parent) : QAbstractButton(parent), icon_(icon) {
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setMouseTracking(true);
}

void task_button::set_shift(double shift) {
    if (shift_ == shift) return;
    shift_ = shift;
    update();
}

void task_button::set_next_step(bool next) {
    if (next_ == next) return;
    next_ = next;
    update();
}

QSize task_button::sizeHint() const {
    QFont bold = font();
    bold.setBold(true);
    const int text_width = QFontMetrics(bold).horizontalAdvance(text());
    return {side_margin * 2 + icon_size + gap + text_width, qMax(row_height, fontMetrics().height() + 20)};
}

void task_button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette colours = palette();
    const QColor window = colours.color(QPalette::Window);
    const QColor mark = accent(colours);
    const QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);

    QColor ground = window;
    if (isEnabled() && next_) ground = blend(window, mark, 0.12);
    if (isEnabled() && underMouse()) ground = blend(window, mark, 0.2);
    if (isEnabled() && isDown()) ground = blend(window, mark, 0.34);
    if (ground != window) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(frame, corner, corner);
    }
    if (isEnabled() && next_) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(mark);
        painter.drawRoundedRect(QRectF(1, frame.center().y() - 10, 3, 20), 1.5, 1.5);
    }
    if (hasFocus() && by_keyboard_) {
        painter.setPen(QPen(mark, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame, corner, corner);
    }

    QColor stroke = colours.color(QPalette::Active, QPalette::WindowText);
    QColor second = mark;
    if (!isEnabled()) stroke = second = blend(window, stroke, 0.45);
    const QRectF place(side_margin + shift_, (height() - icon_size) / 2.0 + shift_, icon_size, icon_size);
    paint_icon(painter, icon_, place, stroke, second);

    QFont shown = font();
    shown.setBold(next_ && isEnabled());
    painter.setFont(shown);
    painter.setPen(stroke);
    const int left = side_margin + icon_size + gap;
    const QRect text_place(left, 0, width() - left - 4, height());
    const QString words = painter.fontMetrics().elidedText(text(), Qt::ElideRight, text_place.width());
    painter.drawText(QRectF(text_place).translated(shift_, shift_), Qt::AlignVCenter | Qt::AlignLeft, words);
}

void task_button::focusInEvent(QFocusEvent* event) {
    by_keyboard_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                   event->reason() == Qt::ShortcutFocusReason;
    QAbstractButton::focusInEvent(event);
}

void task_button::keyPressEvent(QKeyEvent* event) {
    by_keyboard_ = true;
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return click();
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Right:
            // The base class would hand the focus on to the next task. They are meant for the list.
            return event->ignore();
        default:
            return QAbstractButton::keyPressEvent(event);
    }
}

void task_button::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    if (pointer_moved && isEnabled()) pointer_moved(event->position().toPoint());
    update();
}

void task_button::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    if (pointer_moved) pointer_moved(QPoint(-1, -1));
    update();
}

void task_button::mouseMoveEvent(QMouseEvent* event) {
    QAbstractButton::mouseMoveEvent(event);
    if (pointer_moved) pointer_moved(event->position().toPoint());
}

void task_button::mousePressEvent(QMouseEvent* event) {
    if (pointer_pressed && event->button() == Qt::LeftButton) pointer_pressed();
    QAbstractButton::mousePressEvent(event);
}

void task_button::mouseReleaseEvent(QMouseEvent* event) {
    // Before the click, which may run a long task.
    if (pointer_released && event->button() == Qt::LeftButton) pointer_released();
    QAbstractButton::mouseReleaseEvent(event);
}

}  // namespace corvane
