#include "forms/colour_bar_view.h"

#include <QPainter>

#include "forms/colours.h"

namespace corvane {

colour_bar_view::colour_bar_view(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize colour_bar_view::sizeHint() const {
    return {200, 16};
}

void colour_bar_view::sync(const colour_bar& bar) {
    if (back_ == bar.back_colour() && fill_ == bar.fill_colour() && filled_ == bar.filled()) return;
    back_ = bar.back_colour();
    fill_ = bar.fill_colour();
    filled_ = bar.filled();
    update();
}

void colour_bar_view::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QRectF inner(rect());
    painter.fillRect(inner, muted_bar(from_blue_green_red(back_), palette()));
    inner.setWidth(inner.width() * filled_);
    painter.fillRect(inner, from_blue_green_red(fill_));
    painter.setPen(separator_line(palette()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace corvane
