#include "forms/colour_bar_widget.h"

#include <QPainter>
#include <QPainterPath>

#include "forms/shown_text.h"

namespace corvane {

colour_bar_widget::colour_bar_widget(const colour_bar& model, QWidget* parent)
    : QWidget(parent), model_(model) {
    setObjectName(QString::fromStdString(model.name()));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumHeight(14);
}

void colour_bar_widget::sync() {
    if (shown_ == model_.filled() && shown_fill_ == model_.fill_colour()) return;
    shown_ = model_.filled();
    shown_fill_ = model_.fill_colour();
    update();
}

void colour_bar_widget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath frame;
    frame.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setClipPath(frame);
    painter.fillRect(rect(), palette().color(QPalette::AlternateBase));
    QColor back = colour_of(model_.back_colour());
    back.setAlpha(70);
    painter.fillRect(rect(), back);
    painter.fillRect(QRectF(0, 0, width() * model_.filled(), height()), colour_of(model_.fill_colour()));
    painter.setClipping(false);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawPath(frame);
}

}  // namespace corvane
