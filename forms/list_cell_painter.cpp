#include "forms/list_cell_painter.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "forms/colours.h"
#include "forms/list_model.h"

namespace corvane {

namespace {
constexpr int margin = 6;

// A small lock in front of a protected path; returns the room that it takes.
int draw_lock(QPainter& painter, const QRect& place, int height, const QColor& colour) {
    const double unit = height / 10.0;
    const double top = place.center().y() - 4.5 * unit;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.3 * unit));
    painter.drawArc(QRectF(place.left() + 2.2 * unit, top, 3.6 * unit, 6 * unit), 0, 180 * 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(place.left() + unit, top + 3.6 * unit, 6 * unit, 4.9 * unit), unit, unit);
    painter.restore();
    return height;
}
}  // namespace

void list_cell_painter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const QPalette& palette = option.palette;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool second = cells_.bands.is_second(index.row() + 1);
    const QColor background = row_background(palette, selected, second);
    if (selected || second) painter->fillRect(option.rect, background);
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        // The current cell, which the keys work on, whether its row is selected or not.
        painter->setPen(QPen(accent(palette), 1.5));
        painter->drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
    }
    const QString words = cells_.text(index.row(), index.column());
    if (words.isEmpty()) return;
    const QVariant stated = cells_.headerData(index.column(), Qt::Horizontal, Qt::TextAlignmentRole);
    const bool right = stated.value<Qt::Alignment>().testFlag(Qt::AlignRight);
    QRect place = option.rect.adjusted(margin, 0, -margin, 0);
    if (cells_.is_protected(index.row(), index.column()))
        place.setLeft(place.left() + draw_lock(*painter, place, option.fontMetrics.ascent(),
                                               readable_on(quiet_text(palette), background)));
    QFont font = option.font;
    font.setStrikeOut(cells_.data(index, list_model::struck_role).toBool());
    painter->setFont(font);
    const std::uint32_t colour = cells_.painted_colour(index.row(), index.column());
    painter->setPen(readable_on(cell_text_colour(colour, palette), background));
    const QString group = cells_.group_words(index.row(), index.column());
    const int taken = group.isEmpty() ? 0 : option.fontMetrics.horizontalAdvance(group) + 2 * margin;
    // Where the path would have less than that, its own words come first; the tip says the others.
    if (taken > 0 && place.width() >= 2 * taken) {
        painter->save();
        painter->setFont(option.font);
        painter->setPen(readable_on(quiet_text(palette), background));
        painter->drawText(place, Qt::AlignVCenter | Qt::TextSingleLine | Qt::AlignRight, group);
        painter->restore();
        place.setRight(place.right() - taken);
    }
    const int wanted = option.fontMetrics.horizontalAdvance(words);
    if (right && wanted > place.width()) {
        // A number is never cut: its digits move together.
        font.setStretch(std::max(place.width() * 96 / wanted, 30));
        painter->setFont(font);
        painter->drawText(place, Qt::AlignVCenter | Qt::TextSingleLine | Qt::AlignRight, words);
        return;
    }
    painter->drawText(place, Qt::AlignVCenter | Qt::TextSingleLine | (right ? Qt::AlignRight : Qt::AlignLeft),
                      option.fontMetrics.elidedText(words, Qt::ElideMiddle, place.width()));
}

bool list_cell_painter::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                  const QStyleOptionViewItem& option, const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString words = cells_.text(index.row(), index.column());
    const bool cut = option.fontMetrics.horizontalAdvance(words) > option.rect.width() - 2 * margin;
    const QString group = cells_.group_words(index.row(), index.column());
    const QString told = cut ? words : view->toolTip();
    QToolTip::showText(event->globalPos(), group.isEmpty() ? told : group + QLatin1Char('\n') + told, view);
    return true;
}

}  // namespace corvane
