#include "forms/list_table.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "browser/list_hint.h"
#include "browser/list_views.h"
#include "browser/remembered_list.h"
#include "forms/colours.h"
#include "forms/focus_look.h"
#include "forms/list_cell_painter.h"
#include "forms/list_model.h"
#include "forms/own_words.h"

namespace corvane {

namespace {
constexpr int smallest_path = 110;
constexpr int growth_interval = 200;  // milliseconds between two takeovers while a task fills the rows

// Headings that keep as far from each other as the cells below them.
class heading_style : public QProxyStyle {
  public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        return metric == PM_HeaderMargin ? 6 : QProxyStyle::pixelMetric(metric, option, widget);
    }
};
}  // namespace

list_table::list_table(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent)
    : QTableView(parent),
      form_(form),
      list_(form.ListView1),
      act_(std::move(act)),
      cells_(new list_model(form.ListView1, this)) {
    const QChar separator = QLatin1Char(form.outside.files.separator());
    cells_->covers = [this](std::string_view path) { return protected_ && protected_->covers(path); };
    setModel(cells_);
    setItemDelegate(new list_cell_painter(*cells_, separator, this));
    setShowGrid(false);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setMouseTracking(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    auto* spaced = new heading_style;
    spaced->setParent(this);
    horizontalHeader()->setStyle(spaced);
    horizontalHeader()->setMinimumSectionSize(4);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        list_pointer event;
        event.column = column;
        run(event, "ListView1_ColumnClick");
        show_sort_sign(column);
    });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int pixels) { take_width_from_user(column, pixels); });
}

double list_table::twips_per_pixel() const {
    const double digit = QFontMetricsF(font()).horizontalAdvance(QLatin1Char('0'));
    return 15.0 * 6.0 / std::max(digit, 6.0);
}

void list_table::sync(bool tasks_locked) {
    taking_over_ = true;
    cells_->first_path = shown_view(form_).first_path;
    cells_->second_path = shown_view(form_).second_path;
    if (list_.layout_revision() != shown_layout_) {
        const bool resets = !cells_->same_columns() || list_.row_count() < cells_->shown_rows();
        const bool waits =
            tasks_locked && since_growth_.isValid() && !since_growth_.hasExpired(growth_interval);
        if (resets || !waits) {
            if (resets) {
                cells_->reset();
                apply_remembered_widths(form_);
            } else {
                cells_->grow();
            }
            take_widths();
            since_growth_.start();
            shown_layout_ = list_.layout_revision();
            viewport()->update();
        }
    }
    // What lies where is asked anew with other rows and with another choice.
    if (!protected_ || shown_protection_ != form_.state.protection_revision ||
        protected_fill_ != list_.fill_revision()) {
        protected_ = std::make_unique<protection>(form_);
        shown_protection_ = form_.state.protection_revision;
        protected_fill_ = list_.fill_revision();
        viewport()->update();
    }
    if (list_.cell_revision() != shown_cells_) {
        shown_cells_ = list_.cell_revision();
        viewport()->update();
    }
    if (top_fill_ != list_.fill_revision()) {
        // Other rows: where the old ones were scrolled to is no place in these.
        top_fill_ = list_.fill_revision();
        verticalScrollBar()->setValue(0);
    }
    take_selection();
    reveal_row();
    taking_over_ = false;
}

bool list_table::look_through(bool tasks_locked, std::int64_t most) {
    walk_progress bands = walk_progress::unchanged;
    if (tasks_locked)
        cells_->bands.give_up(list_);
    else
        bands = cells_->bands.renew(form_, most);
    walk_progress marks = walk_progress::unchanged;
    if (!tasks_locked || list_.marked_cells() == 0) marks = cells_->marks.renew(list_, most);
    if (bands == walk_progress::renewed || marks == walk_progress::renewed) viewport()->update();
    return bands != walk_progress::on_its_way && marks != walk_progress::on_its_way;
}

bool list_table::take_load() {
    if (known_fill_ == list_.fill_revision() || cells_->shown_rows() == 0 || isHidden()) return false;
    known_fill_ = list_.fill_revision();
    if (list_.selected_row == 0)
        selectionModel()->setCurrentIndex(cells_->index(0, shown_view(form_).first_path),
                                          QItemSelectionModel::NoUpdate);
    return true;
}

void list_table::take_widths() {
    const double scale = twips_per_pixel();
    for (int column = 0; column < cells_->columnCount(); ++column) {
        const int twips = list_.columns()[static_cast<std::size_t>(column)].width;
        // In a narrow window a path column stays wide enough to be read and the list scrolls.
        const bool path =
            column > 0 && list_.columns()[static_cast<std::size_t>(column)].content == cell_content::text;
        const auto pixels = std::max(static_cast<int>(std::floor(twips / scale)), path ? smallest_path : 4);
        if (columnWidth(column) != pixels) setColumnWidth(column, pixels);
    }
}

void list_table::take_width_from_user(int column, int pixels) {
    // The last column also takes what the others leave; that is no width of its own.
    if (taking_over_ || column + 1 >= list_.column_count() || shown_layout_ != list_.layout_revision())
        return;
    const int twips = static_cast<int>(std::ceil(pixels * twips_per_pixel()));
    list_.set_column_width(column, twips);
    remember_width(form_, column, twips);
    shown_layout_ = list_.layout_revision();
}

std::int32_t list_table::row_in_hand() const {
    if (list_.selected_row > 0) return list_.selected_row;
    return currentIndex().isValid() ? currentIndex().row() + 1 : 0;
}

void list_table::take_selection() {
    // The current cell may be another row's: what was found is current without being selected.
    const int shown = selectionModel()->hasSelection() ? selectionModel()->selection().first().top() + 1 : 0;
    if (shown == list_.selected_row || list_.selected_row > cells_->shown_rows()) return;
    if (list_.selected_row == 0) return clearSelection();
    // The keys go on in the column in which they were.
    const QModelIndex cell = cells_->index(list_.selected_row - 1, std::max(currentIndex().column(), 0));
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void list_table::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (taking_over_ || cells_->shown_rows() != list_.row_count()) return;
    list_.selected_row = selectionModel()->hasSelection() ? currentIndex().row() + 1 : 0;
}

void list_table::place_in_twips() {
    list_.place.width = static_cast<int>(std::floor(viewport()->width() * twips_per_pixel()));
    list_.place.height = static_cast<int>(std::floor(viewport()->height() * twips_per_pixel()));
}

void list_table::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    place_in_twips();
    form_.call(handlers::lay_out_list);
    if (list_.layout_revision() == shown_layout_) return;
    taking_over_ = true;
    if (cells_->same_columns() && cells_->shown_rows() == list_.row_count()) {
        take_widths();
        shown_layout_ = list_.layout_revision();
    }
    taking_over_ = false;
}

list_pointer list_table::pointer_at(QPoint place, const QMouseEvent& event) const {
    list_pointer pointer;
    pointer.button =
        event.button() == Qt::RightButton ? list_pointer::right_button : list_pointer::left_button;
    pointer.shift = event.modifiers().testFlag(Qt::ShiftModifier);
    pointer.ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    const int under = columnAt(place.x());
    const int column = under < 0 ? list_.column_count() - 1 : under;
    int left = 0;
    for (int before = 0; before < column; ++before)
        left += list_.columns()[static_cast<std::size_t>(before)].width;
    // The columns on the screen are not exactly as wide as in the model; the cell under the pointer counts.
    const int width = list_.columns()[static_cast<std::size_t>(std::max(column, 0))].width;
    const auto inside = static_cast<int>((place.x() - columnViewportPosition(column)) * twips_per_pixel());
    pointer.x = left + std::clamp(inside, 0, std::max(width - 1, 0));
    return pointer;
}

list_pointer list_table::pointer_at_current() const {
    list_pointer pointer;
    const list_view_row& view = shown_view(form_);
    int column = currentIndex().column();
    if (column < std::min(view.first_path, view.searched[0])) column = view.first_path;
    for (int before = 0; before < column; ++before)
        pointer.x += list_.columns()[static_cast<std::size_t>(before)].width;
    ++pointer.x;
    return pointer;
}

void list_table::run(const list_pointer& event, const char* handler, QPoint place) {
    form_.list_event = event;
    act_(handler);
    if (form_.popup_menu.empty()) return;
    const std::string menu = std::exchange(form_.popup_menu, {});
    if (show_menu) show_menu(menu, viewport()->mapToGlobal(place));
}

void list_table::reveal_row() {
    if (list_.reveal_row < 1 || list_.reveal_row > cells_->shown_rows()) return;
    int column = std::max(currentIndex().column(), 1);
    // What was found is current then, so that the keys work on it.
    for (const int searched : shown_view(form_).searched)
        if (searched < list_.column_count() &&
            list_.colour(list_.reveal_row, searched) == cell_colour::colour_found)
            column = searched;
    const QModelIndex cell = cells_->index(list_.reveal_row - 1, column);
    list_.reveal_row = 0;
    scrollTo(cell);
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
}

void list_table::show_sort_sign(int column) {
    const std::string& header = list_.columns()[static_cast<std::size_t>(column)].header;
    const bool sorted = form_.state.sort_descending != 0 || form_.state.last_sort_column == header;
    horizontalHeader()->setSortIndicatorShown(sorted && !header.empty() && shown_view(form_).sorts);
    horizontalHeader()->setSortIndicator(
        column, form_.state.sort_descending != 0 ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void list_table::mousePressEvent(QMouseEvent* event) {
    // A handler may open a menu at this place, on the row that the press selects.
    const QPoint place = event->position().toPoint();
    const QModelIndex cell = indexAt(place);
    if (cell.isValid()) {
        selectionModel()->setCurrentIndex(cell,
                                          QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        list_.selected_row = cell.row() + 1;
    }
    setFocus(Qt::MouseFocusReason);
    if (list_.column_count() > 0) run(pointer_at(place, *event), "ListView1_MouseDown", place);
}

void list_table::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    if (event->button() == Qt::LeftButton && indexAt(place).isValid())
        run(pointer_at(place, *event), "ListView1_Click");
}

void list_table::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    const QModelIndex cell = indexAt(place);
    if (event->button() != Qt::LeftButton || !cell.isValid()) return;
    // A quick second press on another row is a double click there.
    list_.selected_row = cell.row() + 1;
    run(pointer_at(place, *event), "ListView1_DblClick");
}

// The menu key; the mouse has opened the menu at its press.
void list_table::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Keyboard || !currentIndex().isValid()) return;
    list_.selected_row = currentIndex().row() + 1;
    list_pointer pointer = pointer_at_current();
    pointer.button = list_pointer::right_button;
    run(pointer, "ListView1_MouseDown", visualRect(currentIndex()).bottomLeft());
}

void list_table::keyPressEvent(QKeyEvent* event) {
    list_pointer pointer;
    pointer.shift = event->modifiers().testFlag(Qt::ShiftModifier);
    pointer.ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    if (event->key() == Qt::Key_Delete) pointer.key_code = 46;
    if (event->key() == Qt::Key_F && pointer.ctrl) pointer.key_code = 70;
    if (event->key() == Qt::Key_F3) pointer.key_code = 114;
    if (pointer.key_code != 0) return run(pointer, "ListView1_KeyDown");
    const bool marks =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (marks && currentIndex().isValid()) {
        // As a click and a double click on the current path cell; with Shift, as the end of a range.
        list_.selected_row = currentIndex().row() + 1;
        list_pointer there = pointer_at_current();
        there.shift = pointer.shift;
        run(there, "ListView1_MouseDown");
        if (!pointer.shift) {
            list_.selected_row = currentIndex().row() + 1;
            run(there, "ListView1_DblClick");
        }
        return;
    }
    QTableView::keyPressEvent(event);
    act_("ListView1_Click");
}

void list_table::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
        place_in_twips();
    }
}

bool list_table::event(QEvent* event) {
    const bool done = QTableView::event(event);
    follow_focus(*this, *event);
    return done;
}

void list_table::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    // Rows that are on their way are not said to be missing.
    if (cells_->shown_rows() > 0 || form_.task_runs()) return;
    const std::string why = empty_list_words(form_);
    QPainter painter(viewport());
    painter.setPen(quiet_text(palette()));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap,
                     own_line(why.empty() ? "没有可显示的行" : why));
}

}  // namespace corvane
