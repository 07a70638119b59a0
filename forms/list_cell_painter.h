// Paints the cells of ListView1: the text in its mark colour with a sign beside the colour, what both paths
// of a row begin with weaker than the rest and first to be shortened. Used by list_table.
#pragma once

#include <QStyledItemDelegate>

namespace corvane {

class list_model;

class list_cell_painter : public QStyledItemDelegate {
  public:
    // `separator` parts the directories of a path.
    list_cell_painter(const list_model& cells, QChar separator, QObject* parent)
        : QStyledItemDelegate(parent), cells_(cells), separator_(separator) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    void draw_path(QPainter& painter, const QRect& place, const QString& path, const QModelIndex& index,
                   const QColor& background) const;

    const list_model& cells_;
    const QChar separator_;
};

}  // namespace corvane
