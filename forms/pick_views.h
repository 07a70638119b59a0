// The two lists of the directory window from which directories are picked with mouse and keyboard. They tell
// which row was pressed and how; the model decides what that takes. Used by directory_window.
#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeView>
#include <functional>
#include <string>
#include <vector>

#include "forms/focus_look.h"
#include "forms/list_box_view.h"
#include "search/directory_pick.h"

namespace corvane {

// Base is the Qt view. Rows count from 0 in the order on the screen.
template <class Base>
class pick_view : public Base {
  public:
    using Base::Base;

    // `place` is the point in this view's viewport.
    std::function<void(mouse_button button, int shift, int row, QPoint place)> pressed;
    // The current row is to be opened or closed, and not picked. Without it these acts do nothing.
    std::function<void()> opened;

    QModelIndexList rows(int first, int last) const {
        QModelIndexList found;
        int number = 0;
        for (QModelIndex at = this->model()->index(0, 0); at.isValid() && number <= last;
             at = below(at), ++number)
            if (number >= first) found.append(at);
        return found;
    }

  protected:
    bool event(QEvent* event) override {
        const bool done = Base::event(event);
        follow_focus(*this, *event);
        return done;
    }
    void mousePressEvent(QMouseEvent* event) override {
        const QPoint place = event->position().toPoint();
        const QModelIndex row = this->indexAt(place);
        const bool left = event->button() == Qt::LeftButton;
        if (row.isValid() && event->button() == Qt::MiddleButton && opened) {
            this->setCurrentIndex(row);
            return opened();
        }
        const Qt::KeyboardModifiers keys = event->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
        if (!row.isValid() || (!left && event->button() != Qt::RightButton))
            return Base::mousePressEvent(event);
        const int shift = (keys.testFlag(Qt::ShiftModifier) ? shift_key : 0) |
                          (keys.testFlag(Qt::ControlModifier) ? ctrl_key : 0);
        // The sign that opens a branch is no row to pick.
        const bool on_row = !left || shift != 0 || this->visualRect(row).contains(place);
        if (on_row && pressed)
            pressed(left ? mouse_button::left : mouse_button::right, shift, number_of(row), place);
        if (left && shift == 0)
            Base::mousePressEvent(event);
        else
            this->setCurrentIndex(row);
    }
    // A plain double click picks as the right button does; with a key each press has picked already.
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        const QPoint place = event->position().toPoint();
        const QModelIndex row = this->indexAt(place);
        if (event->button() != Qt::LeftButton || event->modifiers() != Qt::NoModifier || !row.isValid())
            return;
        if (!this->visualRect(row).contains(place)) return Base::mouseDoubleClickEvent(event);
        if (pressed) pressed(mouse_button::right, 0, number_of(row), place);
    }
    void keyPressEvent(QKeyEvent* event) override {
        const bool enter =
            event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Insert;
        if (event->key() == Qt::Key_Space && opened) return opened();
        const QModelIndex row = this->currentIndex();
        if (enter && row.isValid() && pressed)
            pressed(mouse_button::right, 0, number_of(row), this->visualRect(row).center());
        else
            Base::keyPressEvent(event);
    }
    void contextMenuEvent(QContextMenuEvent*) override {}

  private:
    QModelIndex below(const QModelIndex& row) const {
        if constexpr (std::is_base_of_v<QTreeView, Base>)
            return this->indexBelow(row);
        else
            return this->model()->index(row.row() + 1, 0);
    }
    int number_of(const QModelIndex& row) const {
        if constexpr (!std::is_base_of_v<QTreeView, Base>) {
            return row.row();
        } else {
            int number = 0;
            for (QModelIndex at = this->indexAbove(row); at.isValid(); at = this->indexAbove(at)) ++number;
            return number;
        }
    }
};

using pick_tree = pick_view<QTreeView>;
using pick_list = pick_view<list_box_view>;

}  // namespace corvane
