// A list box of a form on the screen; reads the model's rows directly. Used by main_window, and the base of
// the lists of the other windows.
#pragma once

#include <QListView>
#include <QStyledItemDelegate>

#include "core/model/controls.h"

namespace corvane {

class list_box_rows;

// Draws rows, muted ones where the keys go elsewhere; a check mark keeps its frame apart from the row also
// where the palette is dark.
class list_box_painter : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

class list_box_view : public QListView {
  public:
    // `box` outlives the view. With check marks, the user checks rows by a click on their mark.
    list_box_view(list_box& box, QWidget* parent, bool with_check_marks = false);

    void sync();

  protected:
    bool event(QEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

    list_box& box_;

  private:
    list_box_rows* rows_;
    bool taking_over_ = false;
};

}  // namespace corvane
