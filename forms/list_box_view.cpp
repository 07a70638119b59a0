#include "forms/list_box_view.h"

#include <QAbstractListModel>

#include "forms/screen_text.h"

namespace corvane {

class list_box_rows : public QAbstractListModel {
  public:
    list_box_rows(const list_box& box, QObject* parent) : QAbstractListModel(parent), box_(box) {}

    void reset() {
        beginResetModel();
        shown_ = static_cast<int>(box_.rows().size());
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : shown_; }
    QVariant data(const QModelIndex& index, int role) const override {
        const auto row = static_cast<std::size_t>(index.row());
        if ((role != Qt::DisplayRole && role != Qt::ToolTipRole) || row >= box_.rows().size()) return {};
        const list_box::row& shown = box_.rows()[row];
        if (role == Qt::ToolTipRole && !shown.tooltip.empty())
            return screen_text(shown.tooltip).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        return screen_line(shown.text);
    }

  private:
    const list_box& box_;
    int shown_ = 0;
};

list_box_view::list_box_view(list_box& box, QWidget* parent)
    : QListView(parent), box_(box), rows_(new list_box_rows(box, this)) {
    setObjectName(QString::fromStdString(box.name()));
    setModel(rows_);
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void list_box_view::sync() {
    if (box_.revision() == shown_revision_) return;
    shown_revision_ = box_.revision();
    taking_over_ = true;
    rows_->reset();
    for (std::size_t row = 0; row < box_.rows().size(); ++row)
        if (box_.rows()[row].selected)
            selectionModel()->select(rows_->index(static_cast<int>(row)), QItemSelectionModel::Select);
    taking_over_ = false;
}

void list_box_view::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (taking_over_ || box_.revision() != shown_revision_) return;
    const auto hand_over = [this](const QItemSelection& ranges, bool chosen) {
        for (const QModelIndex& index : ranges.indexes())
            if (static_cast<std::size_t>(index.row()) < box_.rows().size())
                box_.select(static_cast<std::size_t>(index.row()), chosen);
    };
    hand_over(deselected, false);
    hand_over(selected, true);
    shown_revision_ = box_.revision();
}

}  // namespace corvane
