// How a list shows that the keys go to it: its frame takes the accent, and its highlight is a full one. Used
// by every list of the windows.
#pragma once

#include <QEvent>
#include <QFrame>
#include <QPainter>
#include <QPalette>

#include "forms/colours.h"

namespace corvane {

// Called by the list's event() behind the one of its base. The list has a frame to paint on.
inline void follow_focus(QFrame& list, const QEvent& event) {
    if (event.type() == QEvent::FocusIn || event.type() == QEvent::FocusOut) list.update();
    if (event.type() != QEvent::Paint || !list.hasFocus()) return;
    QPainter painter(&list);
    painter.setPen(accent(list.palette()));
    painter.drawRect(list.rect().adjusted(0, 0, -1, -1));
}

// The highlight of a list that the keys do not go to: a shade of gray with the text of other rows.
inline void mute_highlight(QPalette& colours) {
    colours.setColor(QPalette::Highlight,
                     blend(colours.color(QPalette::Base), colours.color(QPalette::Text), 0.14));
    colours.setColor(QPalette::HighlightedText, colours.color(QPalette::Text));
}

}  // namespace corvane
