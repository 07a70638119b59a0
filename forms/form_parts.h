// Small parts that the windows of settings share. Used by child_window and those made of it.
#pragma once

#include <QLabel>
#include <QPalette>
#include <QWidget>

#include "forms/colours.h"

namespace corvane {

// A layout without margins.
template <class Layout>
Layout* bare_layout(QWidget* owner, int spacing) {
    auto* layout = new Layout(owner);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

// Before all others, out of its icon if need be.
inline void bring_to_front(QWidget& window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

// On a dark window the empty box of a check mark is lighter than what is around it.
inline void colour_mark(QWidget& box, QPalette colours) {
    if (is_dark(colours))
        colours.setColor(QPalette::Base,
                         blend(colours.color(QPalette::Window), colours.color(QPalette::WindowText), 0.22));
    box.setPalette(colours);
}

// A screen reader hears the words of a label before the part that the label is for.
inline void name_by_labels(QWidget& window) {
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        QWidget* part = label->buddy();
        if (part == nullptr || !part->accessibleName().isEmpty()) continue;
        QString words = label->text();
        part->setAccessibleName(words.remove(QLatin1Char('&')));
    }
}

// What a screen reader says of a part beyond its name: the tip, also while tips are off, else where it
// stands.
inline void describe_parts(QWidget& window, const QString& title) {
    for (QWidget* part : window.findChildren<QWidget*>()) {
        if (part->focusPolicy() == Qt::NoFocus || !part->accessibleDescription().isEmpty()) continue;
        QString name = part->accessibleName();
        if (name.isEmpty()) name = part->property("text").toString();
        const QString place = title + QLatin1String(": ") + name.remove(QLatin1Char('&'));
        part->setAccessibleDescription(part->toolTip().isEmpty() ? place : part->toolTip());
    }
}

}  // namespace corvane
