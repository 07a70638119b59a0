#include "forms/elided_label.h"

#include <QEvent>
#include <QPainter>

namespace corvane {

elided_label::elided_label(QWidget* parent, Qt::TextElideMode cut) : QWidget(parent), cut_(cut) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void elided_label::setText(const QString& words) {
    if (text_ == words) return;
    text_ = words;
    // Who listens to the screen hears the line.
    setAccessibleName(words);
    take_tip();
    updateGeometry();
    update();
}

void elided_label::set_bold(bool bold) {
    QFont shown = font();
    shown.setBold(bold);
    setFont(shown);
}

bool elided_label::is_cut() const {
    const QMargins room = contentsMargins();
    return fontMetrics().horizontalAdvance(text_) > width() - room.left() - room.right();
}

QSize elided_label::sizeHint() const {
    const QMargins room = contentsMargins();
    return {fontMetrics().horizontalAdvance(text_) + 1 + room.left() + room.right(),
            fontMetrics().height() + room.top() + room.bottom()};
}

QSize elided_label::minimumSizeHint() const {
    return {40, sizeHint().height()};
}

void elided_label::take_tip() {
    const QString tip = is_cut() ? text_ : QString();
    if (toolTip() != tip) setToolTip(tip);
}

void elided_label::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QRect room = contentsRect();
    painter.drawText(room, Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text_, cut_, room.width()));
}

void elided_label::resizeEvent(QResizeEvent*) {
    take_tip();
}

void elided_label::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) take_tip();
}

}  // namespace corvane
