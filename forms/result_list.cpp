#include "forms/result_list.h"

#include <QDateTime>
#include <QFont>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPainter>
#include <QPalette>
#include <QStyledItemDelegate>
#include <algorithm>

#include "forms/shown_text.h"

namespace corvane {

namespace {
constexpr qint64 reset_pause = 200;  // milliseconds
}

namespace {

constexpr int cell_margin = 8;

// Draws a cell with room on both sides; the toolkit's own leaves a number touching the path beside it.
class cell_delegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem cell(option);
        initStyleOption(&cell, index);
        const QString text = cell.text;
        cell.text.clear();
        cell.widget->style()->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
        const bool selected = cell.state & QStyle::State_Selected;
        painter->save();
        painter->setFont(cell.font);
        painter->setPen(cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        const QRect place = cell.rect.adjusted(cell_margin, 0, -cell_margin, 0);
        painter->drawText(place, static_cast<int>(cell.displayAlignment) | Qt::TextSingleLine,
                          cell.fontMetrics.elidedText(text, cell.textElideMode, place.width()));
        painter->restore();
    }
};

}  // namespace

result_model::result_model(const list_view& list, QObject* parent)
    : QAbstractTableModel(parent), list_(list) {}

int result_model::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}
int result_model::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

QVariant result_model::data(const QModelIndex& index, int role) const {
    const int row = index.row() + 1;
    const int column = index.column();
    if (row > list_.row_count() || column >= list_.column_count()) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return column == 0 ? QVariant() : shown_text(list_.cell(row, column));
        case Qt::ForegroundRole:
            return cell_text_colour(list_.colour(row, column), QGuiApplication::palette());
        case Qt::FontRole:
            // Never by colour alone: a marked cell is struck through as well.
            if (list_.colour(row, column) == cell_colour::mark_red) {
                QFont font;
                font.setStrikeOut(true);
                return font;
            }
            return {};
        case Qt::TextAlignmentRole: {
            const bool right =
                list_.columns()[static_cast<std::size_t>(column)].alignment == text_alignment::right;
            return QVariant(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
        }
        default:
            return {};
    }
}

QVariant result_model::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section >= list_.column_count()) return {};
    const list_column& column = list_.columns()[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return shown_text(column.header);
    if (role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignVCenter |
                        (column.alignment == text_alignment::right ? Qt::AlignRight : Qt::AlignLeft));
    return {};
}

void result_model::reset() {
    beginResetModel();
    rows_ = list_.row_count();
    columns_ = list_.column_count();
    endResetModel();
}

result_list::result_list(list_view& list, QWidget* parent)
    : QTableView(parent), list_(list), model_(list, this) {
    setObjectName(QString::fromStdString(list.name()));
    setModel(&model_);
    setItemDelegate(new cell_delegate(this));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTextElideMode(Qt::ElideMiddle);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 10);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(4);
    horizontalHeader()->setStretchLastSection(true);
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        list_.selected_row = index.row() + 1;
        if (clicked_row) clicked_row();
    });
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        list_.selected_row = index.row() + 1;
        if (double_clicked) double_clicked(index.row() + 1, index.column());
    });
}

void result_list::sync(bool task_running) {
    if (shown_layout_ != list_.layout_revision()) {
        const qint64 now = QDateTime::currentMSecsSinceEpoch();
        if (task_running && now - last_reset_ < reset_pause) return;
        last_reset_ = now;
        shown_layout_ = list_.layout_revision();
        shown_cells_ = list_.cell_revision();
        const int top = rowAt(0);
        model_.reset();
        for (int column = 0; column < list_.column_count(); ++column)
            setColumnWidth(column,
                           static_cast<int>(pixels(list_.columns()[static_cast<std::size_t>(column)].width) *
                                            width_scale()));
        if (top > 0 && top < list_.row_count())
            scrollTo(model_.index(top, 0), QAbstractItemView::PositionAtTop);
        if (list_.selected_row > 0) selectRow(list_.selected_row - 1);
    } else if (shown_cells_ != list_.cell_revision()) {
        shown_cells_ = list_.cell_revision();
        viewport()->update();
    }
}

double result_list::width_scale() const {
    constexpr double stated_length_pixels = 60;
    const int ten_digits = fontMetrics().horizontalAdvance(QLatin1Char('0')) * 10 + 2 * cell_margin;
    return std::max(1.0, ten_digits / stated_length_pixels);
}

void result_list::expect_width(int device_pixels) {
    list_.place.width = static_cast<int>(twips(device_pixels) / width_scale());
}

void result_list::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    expect_width(viewport()->width());
    if (resized) resized();
}

}  // namespace corvane
