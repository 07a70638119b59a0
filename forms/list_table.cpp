#include "forms/list_table.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <cmath>

#include "forms/colours.h"
#include "forms/list_cell_painter.h"
#include "forms/list_model.h"

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
    setModel(cells_);
    setItemDelegate(new list_cell_painter(*cells_, this));
    setFrameShape(QFrame::NoFrame);
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
        list_act what;
        what.what = list_act::header;
        what.column = column;
        run(what, "ListView1_ColumnClick");
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
    if (list_.layout_revision() != shown_layout_) {
        const bool resets = !cells_->same_columns() || list_.row_count() < cells_->shown_rows();
        const bool waits =
            tasks_locked && since_growth_.isValid() && !since_growth_.hasExpired(growth_interval);
        if (resets || !waits) {
            if (resets)
                cells_->reset();
            else
                cells_->grow();
            take_widths();
            since_growth_.start();
            shown_layout_ = list_.layout_revision();
            viewport()->update();
        }
    }
    if (list_.cell_revision() != shown_cells_) {
        shown_cells_ = list_.cell_revision();
        viewport()->update();
    }
    take_selection();
    taking_over_ = false;
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
    list_.set_column_width(column, static_cast<int>(std::ceil(pixels * twips_per_pixel())));
    shown_layout_ = list_.layout_revision();
}

void list_table::take_selection() {
    const int shown =
        currentIndex().isValid() && selectionModel()->hasSelection() ? currentIndex().row() + 1 : 0;
    if (shown == list_.selected_row || list_.selected_row > cells_->shown_rows()) return;
    if (list_.selected_row == 0)
        clearSelection();
    else
        selectRow(list_.selected_row - 1);
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
    form_.run("layout_list");
    if (list_.layout_revision() == shown_layout_) return;
    taking_over_ = true;
    if (cells_->same_columns() && cells_->shown_rows() == list_.row_count()) {
        take_widths();
        shown_layout_ = list_.layout_revision();
    }
    taking_over_ = false;
}

list_act list_table::act_at(list_act::kind kind, QMouseEvent* event) const {
    list_act what;
    what.what = kind;
    const QPoint at = event->position().toPoint();
    what.row = rowAt(at.y()) + 1;
    what.column = std::max(columnAt(at.x()), 0);
    what.x = static_cast<int>((at.x() + horizontalScrollBar()->value()) * twips_per_pixel());
    what.button = event->button() == Qt::RightButton ? 2 : 1;
    what.shift = event->modifiers().testFlag(Qt::ShiftModifier);
    what.ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    return what;
}

void list_table::run(const list_act& what, const char* handler) {
    if (list_input) list_input(what);
    act_(handler);
}

void list_table::mousePressEvent(QMouseEvent* event) {
    // A handler may open a menu at this place, on the row that the press selects.
    const list_act what = act_at(list_act::press, event);
    if (what.row > 0) selectRow(what.row - 1);
    setFocus(Qt::MouseFocusReason);
    run(what, "ListView1_MouseDown");
}

void list_table::mouseReleaseEvent(QMouseEvent* event) {
    const list_act what = act_at(list_act::click, event);
    if (what.button == 1 && what.row > 0) run(what, "ListView1_Click");
}

void list_table::mouseDoubleClickEvent(QMouseEvent* event) {
    const list_act what = act_at(list_act::double_click, event);
    if (what.button != 1 || what.row < 1) return;
    // The columns before the paths ask for the row's panel.
    const bool asks_for_panel = what.column < 3 && !form_.has_handler("ListView1_DblClick");
    run(what, asks_for_panel ? "show_row_panel" : "ListView1_DblClick");
}

void list_table::keyPressEvent(QKeyEvent* event) {
    list_act what;
    what.what = list_act::key;
    what.row = list_.selected_row;
    what.shift = event->modifiers().testFlag(Qt::ShiftModifier);
    what.ctrl = event->modifiers().testFlag(Qt::ControlModifier);
    if (event->key() == Qt::Key_Delete) what.key_code = 46;
    if (event->key() == Qt::Key_F && what.ctrl) what.key_code = 70;
    if (event->key() == Qt::Key_F3) what.key_code = 114;
    if (what.key_code != 0) return run(what, "ListView1_KeyDown");
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

void list_table::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (cells_->shown_rows() > 0) return;
    QPainter painter(viewport());
    painter.setPen(quiet_text(palette()));
    painter.drawText(viewport()->rect(), Qt::AlignCenter, QStringLiteral("没有可显示的行"));
}

}  // namespace corvane
