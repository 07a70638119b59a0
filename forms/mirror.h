// Copies what a model says to the widget or menu entry that shows it, where the two differ: a setter that
// sets what stands there already still lays out, repaints or tells its listeners. Used by every window at its
// sync.
#pragma once

#include <QAction>
#include <QString>
#include <QWidget>
#include <string>

#include "core/model/controls.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

// The object is found by the name of what it shows.
template <class Model>
void name_after(QObject* object, const Model& model) {
    object->setObjectName(QString::fromStdString(model.name()));
}

// True when the text was another one.
template <class Shown>
bool mirror_text(Shown* shown, const QString& words) {
    if (shown->text() == words) return false;
    shown->setText(words);
    return true;
}

inline void mirror_title(QWidget* window, const std::string& caption) {
    const QString title = own_line(caption);
    if (window->windowTitle() != title) window->setWindowTitle(title);
}

inline void mirror_tooltip(QWidget* shown, const std::string& tooltip) {
    const QString words = own_text(tooltip);
    if (shown->toolTip() != words) shown->setToolTip(words);
}

template <class Shown>
void mirror_enabled(Shown* shown, bool enabled) {
    if (shown->isEnabled() != enabled) shown->setEnabled(enabled);
}

template <class Shown>
void mirror_checked(Shown* shown, bool checked) {
    if (shown->isChecked() != checked) shown->setChecked(checked);
}

// Whether the widget itself is hidden counts, not whether its window is.
inline void mirror_visible(QWidget* shown, bool visible) {
    if (shown->isHidden() == visible) shown->setVisible(visible);
}

inline void mirror_visible(QAction* shown, bool visible) {
    if (shown->isVisible() != visible) shown->setVisible(visible);
}

}  // namespace corvane
