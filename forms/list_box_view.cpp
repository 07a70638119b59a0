#include "forms/list_box_view.h"

#include <QAbstractListModel>
#include <QMimeData>
#include <algorithm>

#include "forms/colours.h"
#include "forms/focus_look.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

// Remembers which revision of the box the screen shows.
class list_box_rows : public QAbstractListModel {
  public:
    list_box_rows(list_box& box, bool with_check_marks, QObject* parent)
        : QAbstractListModel(parent), box_(box), with_check_marks_(with_check_marks) {}

    bool is_current() const { return box_.revision() == revision_; }
    void note_revision() { revision_ = box_.revision(); }
    void reset() {
        beginResetModel();
        shown_ = static_cast<int>(box_.rows().size());
        note_revision();
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : shown_; }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        Qt::ItemFlags flags = QAbstractListModel::flags(index) | Qt::ItemIsDragEnabled;
        if (with_check_marks_) flags |= Qt::ItemIsUserCheckable;
        return flags;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        const auto row = static_cast<std::size_t>(index.row());
        if (row >= box_.rows().size()) return {};
        const list_box::row& shown = box_.rows()[row];
        if (role == Qt::CheckStateRole && with_check_marks_)
            return shown.checked ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::ToolTipRole && !shown.tooltip.empty()) return own_lines(shown.tooltip);
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
        return box_.own_words ? own_line(shown.text) : screen_line(shown.text);
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        const auto row = static_cast<std::size_t>(index.row());
        if (role != Qt::CheckStateRole || row >= box_.rows().size()) return false;
        const bool was_current = is_current();
        box_.check(row, value.toInt() == Qt::Checked);
        if (was_current) note_revision();
        emit dataChanged(index, index, {Qt::CheckStateRole});
        return true;
    }
    // Dragged rows travel as lines of text, in their order.
    QStringList mimeTypes() const override { return {QStringLiteral("text/plain")}; }
    QMimeData* mimeData(const QModelIndexList& indexes) const override {
        std::vector<std::size_t> rows;
        for (const QModelIndex& index : indexes) rows.push_back(static_cast<std::size_t>(index.row()));
        std::sort(rows.begin(), rows.end());
        QStringList lines;
        for (const std::size_t row : rows)
            if (row < box_.rows().size()) lines.append(QString::fromStdString(box_.rows()[row].text));
        auto* data = new QMimeData;
        data->setText(lines.join(QStringLiteral("\r\n")));
        return data;
    }

  private:
    list_box& box_;
    const bool with_check_marks_;
    int shown_ = 0;
    std::uint64_t revision_ = ~std::uint64_t{0};
};

void list_box_painter::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->widget == nullptr || !option->widget->hasFocus()) mute_highlight(option->palette);
    if (!is_dark(option->palette)) return;
    // The style draws the frame as a darker shade of the window, which is no frame on a dark row.
    const QColor base = option->palette.color(QPalette::Base);
    option->palette.setColor(QPalette::Window, blend(base, option->palette.color(QPalette::Text), 0.8));
}

list_box_view::list_box_view(list_box& box, QWidget* parent, bool with_check_marks)
    : QListView(parent), box_(box), rows_(new list_box_rows(box, with_check_marks, this)) {
    name_after(this, box);
    setModel(rows_);
    setItemDelegate(new list_box_painter(this));
    setUniformItemSizes(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void list_box_view::sync() {
    if (rows_->is_current()) return;
    taking_over_ = true;
    rows_->reset();
    for (std::size_t row = 0; row < box_.rows().size(); ++row)
        if (box_.rows()[row].selected)
            selectionModel()->select(rows_->index(static_cast<int>(row)), QItemSelectionModel::Select);
    taking_over_ = false;
}

bool list_box_view::event(QEvent* event) {
    const bool done = QListView::event(event);
    follow_focus(*this, *event);
    return done;
}

void list_box_view::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    if (taking_over_ || !rows_->is_current()) return;
    const auto hand_over = [this](const QItemSelection& ranges, bool chosen) {
        for (const QModelIndex& index : ranges.indexes())
            if (static_cast<std::size_t>(index.row()) < box_.rows().size())
                box_.select(static_cast<std::size_t>(index.row()), chosen);
    };
    hand_over(deselected, false);
    hand_over(selected, true);
    rows_->note_revision();
}

}  // namespace corvane
