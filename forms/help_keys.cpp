#include "forms/help_keys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVariant>
#include <QWidget>

#include "app/program.h"
#include "core/tasks/help.h"
#include "ui_text/help_topics.h"

namespace corvane {

help_keys::help_keys(program& corvane, std::function<void(const std::string&)> act)
    : program_(corvane), act_(std::move(act)) {
    qApp->installEventFilter(this);
}

int help_keys::context_of(const QWidget* widget) const {
    const QWidget* const window = widget->window();
    if (const QVariant told = window->property(context_property); told.isValid()) return told.toInt();
    const std::string name = window->objectName().toStdString();
    const form_model* const form = name.empty() ? nullptr : program_.find_form(name);
    if (!form) return 0;
    for (; widget != window; widget = widget->parentWidget())
        if (const control* model = form->find(widget->objectName().toStdString()))
            if (model->help_context != 0) return model->help_context;
    // A window without a context of its own stands for the program.
    return form->help_context != 0 ? form->help_context : program_.main_form().help_context;
}

// An open menu and a box keep the key.
bool help_keys::ends_help_mode(const QWidget& widget, int key) const {
    return key == Qt::Key_Escape && program_.main_form().mouse_pointer == help_pointer &&
           !program_.is_closing() && QApplication::activePopupWidget() == nullptr &&
           program_.find_form(widget.window()->objectName().toStdString()) != nullptr;
}

bool help_keys::eventFilter(QObject* watched, QEvent* event) {
    // The first claims the key before a menu entry takes it, the second is the key itself.
    if (event->type() != QEvent::ShortcutOverride && event->type() != QEvent::KeyPress) return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!widget || key->modifiers() != Qt::NoModifier) return false;
    if (ends_help_mode(*widget, key->key())) {
        event->accept();
        if (event->type() == QEvent::KeyPress) act_("help_spirit");
        return true;
    }
    if (key->key() != Qt::Key_F1) return false;
    const int context = program_.is_closing() ? 0 : context_of(widget);
    if (context == 0) return false;
    event->accept();
    if (event->type() == QEvent::KeyPress && !key->isAutoRepeat())
        open_topic(program_.main_form(), topic_of_context(context));
    return true;
}

}  // namespace corvane
