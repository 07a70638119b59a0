#include "forms/key_focus.h"

#include <QKeyEvent>
#include <QPushButton>

#include "forms/list_table.h"

namespace corvane {

key_focus::key_focus(QWidget& parking, list_table& list, QPushButton& cancel)
    : parking_(parking), list_(list), cancel_(cancel) {
    cancel_.installEventFilter(this);
}

bool key_focus::can_keep(const QWidget* widget) const {
    return widget && widget->isEnabled() && widget->isVisibleTo(parking_.window());
}

void key_focus::before_copy() {
    had_ = parking_.window()->focusWidget();
}

void key_focus::after_copy(bool tasks_locked, bool task_runs) {
    const bool offers = tasks_locked && can_keep(&cancel_);
    const bool begins_to_offer = offers && !offered_;
    const bool unlocks = locked_ && !tasks_locked;
    const bool lost = had_ && !can_keep(had_);
    offered_ = offers;
    locked_ = tasks_locked;
    if (tasks_locked && !home_ && had_ != &cancel_ && had_ != &parking_) home_ = had_;
    if (!task_runs && list_.take_load()) {
        home_.clear();
        list_.setFocus(Qt::OtherFocusReason);
    } else if (begins_to_offer) {
        cancel_.setFocus(Qt::OtherFocusReason);
    } else if (tasks_locked) {
        if (lost) parking_.setFocus(Qt::OtherFocusReason);
    } else if (lost || (unlocks && had_ == &parking_)) {
        give_back();
    }
    if (!tasks_locked) home_.clear();
}

void key_focus::give_back() {
    QWidget* target = &parking_;
    if (can_keep(&list_) && list_.model()->rowCount() > 0)
        target = &list_;
    else if (can_keep(home_))
        target = home_;
    target->setFocus(Qt::OtherFocusReason);
}

bool key_focus::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &cancel_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right)
            return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace corvane
