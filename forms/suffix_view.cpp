#include "forms/suffix_view.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "forms/colours.h"
#include "forms/focus_look.h"
#include "forms/list_box_view.h"
#include "forms/list_model.h"
#include "forms/mirror.h"

namespace corvane {

namespace {

constexpr int number_width = 90;

// The colour of a cell's text for the usual painter of tables.
class coloured_rows : public list_model {
  public:
    coloured_rows(const list_view& list, QWidget& shown)
        : list_model(list, &shown), list_(list), shown_(shown) {}

    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::ForegroundRole && colour(index.row(), index.column()) != cell_colour::colour_text)
            return cell_text_colour(colour(index.row(), index.column()), shown_.palette());
        if (role == Qt::TextAlignmentRole && index.column() < list_.column_count() &&
            list_.columns()[static_cast<std::size_t>(index.column())].alignment == text_alignment::right)
            return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignRight);
        return list_model::data(index, role);
    }

  private:
    const list_view& list_;
    const QWidget& shown_;
};

}  // namespace

suffix_view::suffix_view(list_view& list, std::function<void()> picked, std::function<void(int)> sorted,
                         QWidget* parent)
    : QTableView(parent), list_(list), picked_(std::move(picked)), rows_(new coloured_rows(list, *this)) {
    name_after(this, list);
    setModel(rows_);
    setItemDelegate(new list_box_painter(this));
    setShowGrid(false);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    horizontalHeader()->setMinimumSectionSize(4);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    mirror_tooltip(this, list.tooltip);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& row) { take_row(row); });
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [sorted = std::move(sorted)](int column) { sorted(column); });
}

void suffix_view::take_row(const QModelIndex& row) {
    list_.selected_row = row.row() + 1;
    picked_();
}

void suffix_view::sync() {
    if (list_.layout_revision() != shown_layout_) {
        rows_->reset();
        shown_layout_ = list_.layout_revision();
        setColumnWidth(0, 4);
        setColumnWidth(2, number_width);
        horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
        if (rows_->rowCount() > 0)
            selectionModel()->setCurrentIndex(rows_->index(0, 1), QItemSelectionModel::NoUpdate);
    }
    if (list_.cell_revision() == shown_cells_) return;
    shown_cells_ = list_.cell_revision();
    viewport()->update();
}

bool suffix_view::event(QEvent* event) {
    const bool done = QTableView::event(event);
    follow_focus(*this, *event);
    return done;
}

void suffix_view::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if ((enter || event->key() == Qt::Key_Space) && currentIndex().isValid())
        take_row(currentIndex());
    else
        QTableView::keyPressEvent(event);
}

}  // namespace corvane
