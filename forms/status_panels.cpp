#include "forms/status_panels.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "forms/shown_text.h"

namespace corvane {

status_panels::status_panels(const status_bar& model, std::function<void()> clicked, QWidget* parent)
    : QWidget(parent), model_(model), clicked_(std::move(clicked)) {
    setObjectName(QString::fromStdString(model.name()));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize status_panels::sizeHint() const {
    return {400, fontMetrics().height() + 10};
}

void status_panels::sync() {
    QStringList texts;
    std::array<int, status_bar::panel_count> widths{};
    for (int number = 1; number <= status_bar::panel_count; ++number) {
        texts << shown_text(model_.panel(number));
        widths[static_cast<std::size_t>(number - 1)] = model_.width(number);
    }
    if (texts == shown_ && widths == widths_) return;
    shown_ = texts;
    widths_ = widths;
    update();
}

QRect status_panels::panel_place(int number) const {
    int total = 0, before = 0;
    for (int panel = 1; panel <= status_bar::panel_count; ++panel) {
        const int weight = widths_[static_cast<std::size_t>(panel - 1)];
        if (panel < number) before += weight;
        total += weight;
    }
    if (total == 0) return {};
    const int left = width() * before / total;
    const int right = width() * (before + widths_[static_cast<std::size_t>(number - 1)]) / total;
    return {left, 0, right - left, height()};
}

void status_panels::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
    for (int number = 1; number <= shown_.size(); ++number) {
        const QRect place = panel_place(number);
        if (number > 1 && place.width() > 4) {
            painter.setPen(palette().color(QPalette::Mid));
            painter.drawLine(place.left(), 5, place.left(), height() - 5);
        }
        painter.setPen(palette().color(QPalette::WindowText));
        const QRect inner = place.adjusted(8, 1, -6, 0);
        if (inner.width() > 0)
            painter.drawText(inner, Qt::AlignVCenter | Qt::AlignLeft,
                             fontMetrics().elidedText(shown_[number - 1], Qt::ElideMiddle, inner.width()));
    }
}

void status_panels::mousePressEvent(QMouseEvent*) {
    clicked_();
}

bool status_panels::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QString tip = shown_text(model_.tooltip);
    for (int number = 1; number <= shown_.size(); ++number)
        if (panel_place(number).contains(help->pos()) && !shown_[number - 1].isEmpty())
            tip = shown_[number - 1] + QLatin1Char('\n') + tip;
    QToolTip::showText(help->globalPos(), tip, this);
    return true;
}

}  // namespace corvane
