// Paints the cells of ListView1: the text in its mark colour, marked-for-deletion cells struck through, paths
// cut in the middle. Used by list_table.
#pragma once

#include <QStyledItemDelegate>

namespace corvane {

class list_model;

class list_cell_painter : public QStyledItemDelegate {
  public:
    list_cell_painter(const list_model& cells, QObject* parent)
        : QStyledItemDelegate(parent), cells_(cells) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    const list_model& cells_;
};

}  // namespace corvane
