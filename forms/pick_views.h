// The two lists of the directory window from which directories are picked with the mouse: right button or
// Ctrl picks one row, Shift picks a range. Used by directory_window.
#pragma once

#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QTreeView>
#include <functional>

namespace corvane {

// Base is the Qt view. The rows between two indexes are those on the screen.
template <class Base>
class pick_view : public Base {
  public:
    using Base::Base;

    std::function<void(const QModelIndexList&)> pick;

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        const QModelIndex row = this->indexAt(event->position().toPoint());
        const bool left = event->button() == Qt::LeftButton;
        const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
        const bool ctrl = event->modifiers().testFlag(Qt::ControlModifier);
        if (!row.isValid() || (left && !shift && !ctrl) || event->button() == Qt::MiddleButton) {
            if (left && row.isValid()) pressed_ = row;
            return Base::mousePressEvent(event);
        }
        if (left && shift && pressed_.isValid()) {
            const bool down = this->visualRect(pressed_).top() <= this->visualRect(row).top();
            hand_over(rows_between(down ? QModelIndex(pressed_) : row, down ? row : QModelIndex(pressed_)));
        } else {
            hand_over({row});
        }
        this->setCurrentIndex(row);
        pressed_ = row;
    }
    // The press has done the picking; a right or modified double click is two picks of the same row.
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        const QModelIndex row = this->indexAt(event->position().toPoint());
        if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier && row.isValid())
            hand_over({row});
    }
    void keyPressEvent(QKeyEvent* event) override {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (enter && this->currentIndex().isValid())
            hand_over({this->currentIndex()});
        else
            Base::keyPressEvent(event);
    }
    void contextMenuEvent(QContextMenuEvent*) override {}

  private:
    void hand_over(const QModelIndexList& rows) {
        if (pick) pick(rows);
    }
    QModelIndexList rows_between(const QModelIndex& first, const QModelIndex& last) const {
        QModelIndexList rows;
        if constexpr (std::is_base_of_v<QTreeView, Base>) {
            for (QModelIndex at = first; at.isValid(); at = this->indexBelow(at)) {
                rows.append(at);
                if (at == last) break;
            }
        } else {
            for (int at = first.row(); at <= last.row(); ++at) rows.append(this->model()->index(at, 0));
        }
        return rows;
    }

    QPersistentModelIndex pressed_;
};

using pick_tree = pick_view<QTreeView>;
using pick_list = pick_view<QListWidget>;

}  // namespace corvane
