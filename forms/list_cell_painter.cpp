#include "forms/list_cell_painter.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "forms/colours.h"
#include "forms/elided_path.h"
#include "forms/list_model.h"

namespace corvane {

namespace {
constexpr int margin = 6;
constexpr double root_weight = 0.62;  // of the ink that tells what both paths begin with

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

// An exclamation mark in a ring in front of a path that could not be deleted; returns the room that it takes.
int draw_warning(QPainter& painter, const QRect& place, int height, const QColor& colour) {
    const QRectF ring(place.left() + 0.5, place.center().y() - height / 2.0 + 0.5, height - 1, height - 1);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.2));
    painter.drawEllipse(ring);
    const double x = ring.center().x();
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(x, ring.top() + height * 0.22), QPointF(x, ring.top() + height * 0.55));
    painter.drawPoint(QPointF(x, ring.top() + height * 0.75));
    painter.restore();
    return height + 3;
}
}  // namespace

void list_cell_painter::draw_path(QPainter& painter, const QRect& place, const QString& path,
                                  const QModelIndex& index, const QColor& background) const {
    const qsizetype root = common_root(path, cells_.text_beside(index.row(), index.column()), separator_);
    const QFontMetrics metrics(painter.font());
    const elided_path shown = elide_path(path, root, place.width(), [&metrics](const QString& words) {
        return metrics.horizontalAdvance(words);
    });
    const QColor full = painter.pen().color();
    painter.setPen(readable_on(blend(background, full, root_weight), background));
    painter.drawText(place, Qt::AlignVCenter | Qt::TextSingleLine | Qt::AlignLeft, shown.root);
    painter.setPen(full);
    painter.drawText(place.adjusted(metrics.horizontalAdvance(shown.root), 0, 0, 0),
                     Qt::AlignVCenter | Qt::TextSingleLine | Qt::AlignLeft, shown.rest);
}

void list_cell_painter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const {
    const QPalette& palette = option.palette;
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool second = cells_.bands.is_second(index.row() + 1);
    const bool keys_here = option.widget != nullptr && option.widget->hasFocus();
    const QColor background = row_background(palette, selected, second, keys_here);
    if (selected || second) painter->fillRect(option.rect, background);
    if (keys_here && option.state.testFlag(QStyle::State_HasFocus)) {
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
    const std::uint32_t colour = cells_.painted_colour(index.row(), index.column());
    const QColor ink = readable_on(cell_text_colour(colour, palette), background);
    // Who does not tell the colours apart has a sign: red is struck through, blue has a mark in front, what
    // was found is underlined.
    font.setUnderline(colour == cell_colour::colour_found);
    if (colour == cell_colour::mark_blue)
        place.setLeft(place.left() + draw_warning(*painter, place, option.fontMetrics.ascent(), ink));
    painter->setFont(font);
    painter->setPen(ink);
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
    if (!right) return draw_path(*painter, place, words, index, background);
    painter->drawText(place, Qt::AlignVCenter | Qt::TextSingleLine | Qt::AlignRight, words);
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
