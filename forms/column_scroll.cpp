#include "forms/column_scroll.h"

#include <QEvent>
#include <QScrollBar>

namespace corvane {

namespace {
constexpr int least_height = 90;
}

column_scroll::column_scroll(QWidget& column, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    setWidget(&column);
    column.setAutoFillBackground(false);
    take_width();
}

QSize column_scroll::sizeHint() const {
    const bool scrolls = height() < widget()->minimumSizeHint().height();
    return {widget()->sizeHint().width() + (scrolls ? verticalScrollBar()->sizeHint().width() : 0),
            widget()->sizeHint().height()};
}

QSize column_scroll::minimumSizeHint() const {
    return {sizeHint().width(), least_height};
}

void column_scroll::take_width() {
    const int wanted = sizeHint().width();
    if (minimumWidth() != wanted || maximumWidth() != wanted) setFixedWidth(wanted);
}

void column_scroll::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    take_width();
}

bool column_scroll::eventFilter(QObject* watched, QEvent* event) {
    const bool done = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && event->type() == QEvent::LayoutRequest) take_width();
    return done;
}

}  // namespace corvane
