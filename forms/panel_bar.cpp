#include "forms/panel_bar.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "forms/colours.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {
constexpr int text_margin = 8;
}

panel_bar::panel_bar(std::function<void()> clicked, QWidget* parent)
    : QWidget(parent), clicked_(std::move(clicked)) {
    for (int number = 1; number <= status_bar::panel_count; ++number) {
        texts_.append(QString());
        widths_.append(1);
    }
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
}

QSize panel_bar::sizeHint() const {
    return {600, fontMetrics().height() + 12};
}

void panel_bar::sync(const status_bar& bar) {
    bool changed = false;
    for (int number = 1; number <= status_bar::panel_count; ++number) {
        const QString words = own_line(bar.panel(number)).trimmed();
        if (texts_.at(number - 1) == words && widths_.at(number - 1) == bar.width(number)) continue;
        texts_[number - 1] = words;
        widths_[number - 1] = bar.width(number);
        changed = true;
    }
    tip_ = own_text(bar.tooltip);
    if (changed) update();
}

// Each panel has its stated share. What one does not need goes to those whose words would be cut, in the
// measure of what they lack.
QList<int> panel_bar::edges() const {
    const auto count = widths_.size();
    int all = 0;
    for (const int share : widths_) all += share;
    QList<int> stated{0};
    for (int i = 0, before = 0; i < count; ++i) {
        before += widths_.at(i);
        stated.append(width() * before / all);
    }
    QList<int> room, wanted;
    int lacking = 0, spare = 0;
    for (int i = 0; i < count; ++i) {
        room.append(stated.at(i + 1) - stated.at(i));
        wanted.append(fontMetrics().horizontalAdvance(texts_.at(i)) + 2 * text_margin + 1);
        (wanted.at(i) > room.at(i) ? lacking : spare) += std::abs(wanted.at(i) - room.at(i));
    }
    const int moved = std::min(lacking, spare);
    if (moved == 0) return stated;
    QList<int> found{0};
    double right = 0;
    for (int i = 0; i < count; ++i) {
        const double missing = wanted.at(i) - room.at(i);
        right += room.at(i) + missing * moved / (missing > 0 ? lacking : spare);
        found.append(static_cast<int>(std::lround(right)));
    }
    found.back() = width();
    return found;
}

QRect panel_bar::panel_place(int number) const {
    const QList<int> at = edges();
    return {at.at(number - 1), 0, at.at(number) - at.at(number - 1), height()};
}

void panel_bar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(separator_line(palette()));
    painter.drawLine(0, 0, width(), 0);
    for (int number = 1; number <= status_bar::panel_count; ++number) {
        const QRect place = panel_place(number);
        if (number > 1) {
            painter.setPen(separator_line(palette()));
            painter.drawLine(place.left(), 6, place.left(), height() - 6);
        }
        const bool names_task = number == status_bar::panel_count;
        painter.setPen(names_task ? accent(palette()) : palette().color(QPalette::WindowText));
        const QRect inner = place.adjusted(text_margin, 1, -text_margin, 0);
        painter.drawText(inner, Qt::AlignVCenter | Qt::AlignLeft,
                         fontMetrics().elidedText(texts_.at(number - 1), Qt::ElideRight, inner.width()));
    }
}

void panel_bar::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void panel_bar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) clicked_();
}

bool panel_bar::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    for (int number = 1; number <= status_bar::panel_count; ++number) {
        if (!panel_place(number).contains(help->pos())) continue;
        const QString& words = texts_.at(number - 1);
        const bool cut =
            fontMetrics().horizontalAdvance(words) > panel_place(number).width() - 2 * text_margin;
        QString tip = cut ? words : QString();
        if (number == status_bar::panel_count) tip += (tip.isEmpty() ? "" : "\n") + tip_;
        QToolTip::showText(help->globalPos(), tip, this);
    }
    return true;
}

}  // namespace corvane
