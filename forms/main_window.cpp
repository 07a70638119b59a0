#include "forms/main_window.h"
#include "forms/form_parts.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

#include "browser/list_views.h"
#include "browser/preview.h"
#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "forms/column_scroll.h"
#include "forms/error_frame.h"
#include "forms/export_frame.h"
#include "forms/icons.h"
#include "forms/key_focus.h"
#include "forms/list_box_view.h"
#include "forms/list_head.h"
#include "forms/list_model.h"
#include "forms/list_table.h"
#include "forms/menu_bar.h"
#include "forms/mirror.h"
#include "forms/number_frame.h"
#include "forms/own_words.h"
#include "forms/panel_bar.h"
#include "forms/preview_pane.h"
#include "forms/row_panel.h"
#include "forms/run_row.h"
#include "forms/screen_text.h"
#include "forms/side_list.h"
#include "forms/start_page.h"
#include "forms/task_column.h"
#include "forms/text_view.h"
#include "forms/tip_box.h"

namespace corvane {

namespace {

constexpr QSize first_size(1100, 700);
constexpr int splitter_width = 5;
constexpr char splitter_name[] = "splitter";  // the width of the left half, in twips
constexpr int widest_half = 1'000'000;
constexpr int slice_length = 8;  // milliseconds between two looks for events
constexpr std::int64_t rows_at_once = 32'768;

rectangle place_in_window(const QWidget& widget) {
    const QPoint corner = widget.mapTo(widget.window(), QPoint(0, 0));
    return {corner.x() * twips_per_pixel, corner.y() * twips_per_pixel, widget.width() * twips_per_pixel,
            widget.height() * twips_per_pixel};
}

}  // namespace

main_window::main_window(Tavrel& form, std::function<void(const std::string&)> act,
                         std::function<void()> close)
    : form_(form), act_(std::move(act)), close_(std::move(close)), place_(*this, form) {
    slices_.setSingleShot(true);
    connect(&slices_, &QTimer::timeout, this, &main_window::look_through_rows);
    name_after(this, form);
    setWindowIcon(application_icon());
    menus_ = std::make_unique<menu_bar>(form_, *menuBar(), act_);
    auto* central = new QWidget(this);
    tasks_ = new task_column(
        form_, act_, [this] { tip_->sync(); }, central);
    tasks_area_ = new column_scroll(*tasks_, central);
    connect(tasks_area_->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { tasks_->take_places(); });
    panels_ = new panel_bar([this] { act_("StatusBar1_PanelClick"); }, central);
    name_after(panels_, form_.StatusBar1);

    auto* right = new QVBoxLayout;
    right->setSpacing(0);
    right->addWidget(make_work_area(), 1);
    marks_ = new QLabel;
    marks_->setObjectName(QStringLiteral("list_status"));
    marks_->setTextFormat(Qt::PlainText);
    marks_->setContentsMargins(12, 3, 12, 3);
    marks_->hide();
    right->addWidget(marks_);
    run_row_ = new run_row(form_, progress_, act_, central);
    right->addWidget(run_row_);
    auto* middle = new QHBoxLayout;
    middle->setSpacing(0);
    middle->addWidget(tasks_area_);
    middle->addLayout(right, 1);
    auto* all = new QVBoxLayout(central);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(middle, 1);
    all->addWidget(panels_);
    setCentralWidget(central);
    failure_ = new error_frame(form_, act_, central);
    numbers_ = new number_frame(form_, act_, central);
    exports_ = new export_frame(form_, act_, central);
    tip_ = new tip_box(form_, this);
    keys_ = std::make_unique<key_focus>(*central, *list_, run_row_->cancel());
    text_->setAccessibleName(own_line("文件清单"));
    left_list_->setAccessibleName(own_line("文件清单"));
    name_by_labels(*this);
    describe_parts(*this, QStringLiteral("Corvane"));
    // Placed here and not by the window manager, so that the windows beside it know where it stands.
    const QRect free = screen()->availableGeometry();
    resize(first_size.boundedTo(free.size() - QSize(0, 40)));
    move(free.center() - rect().center());
    place_.keep();
    form_.layout.design_width = form_.place.width;
    form_.layout.design_height = form_.place.height;
}

main_window::~main_window() = default;

QWidget* main_window::make_work_area() {
    splitter_ = new QSplitter(Qt::Horizontal);
    name_after(splitter_, form_.Splitter);
    splitter_->setChildrenCollapsible(false);
    splitter_->setHandleWidth(splitter_width);
    left_ = new QWidget(splitter_);
    left_->setMinimumWidth(120);
    auto* stacked = new QVBoxLayout(left_);
    stacked->setContentsMargins(0, 0, 0, 0);
    stacked->setSpacing(0);
    left_list_ = new list_box_view(form_.listleft, left_);
    side_list_ = new side_list(form_, act_, left_);
    text_ = new text_view(form_.outside.files, left_);
    name_after(text_, form_.RichTextBox2);
    start_ = new start_page(form_, progress_, act_, left_);
    start_area_ = new QScrollArea(left_);
    start_area_->setFrameShape(QFrame::NoFrame);
    start_area_->setWidgetResizable(true);
    start_area_->setFocusPolicy(Qt::NoFocus);
    start_area_->setWidget(start_);
    for (QWidget* widget : {static_cast<QWidget*>(left_list_), static_cast<QWidget*>(text_),
                            static_cast<QWidget*>(start_area_), static_cast<QWidget*>(side_list_)})
        stacked->addWidget(widget);
    list_side_ = new QSplitter(Qt::Vertical, splitter_);
    list_side_->setObjectName(QStringLiteral("list_side"));
    list_side_->setChildrenCollapsible(false);
    list_side_->setHandleWidth(splitter_width);
    list_area_ = new QWidget(list_side_);
    auto* beside = new QVBoxLayout(list_area_);
    beside->setContentsMargins(0, 0, 0, 0);
    beside->setSpacing(0);
    list_head_ = new list_head(form_, act_, list_area_);
    beside->addWidget(list_head_);
    list_ = new list_table(form_, act_, list_area_);
    beside->addWidget(list_, 1);
    name_after(list_, form_.ListView1);
    list_->setAccessibleName(own_line("结果列表"));
    list_->show_menu = [this](const std::string& name, QPoint place) {
        if (QMenu* menu = menus_->popup(name)) menu->popup(place);
    };
    list_->hide();
    list_area_->hide();
    panel_ = new row_panel(form_, act_, list_area_);
    preview_ = new preview_pane(form_, list_side_);
    preview_->hide();
    list_side_->setStretchFactor(0, 3);
    list_side_->setStretchFactor(1, 2);
    list_side_->hide();
    left_list_->viewport()->installEventFilter(this);
    text_->viewport()->installEventFilter(this);
    splitter_->handle(1)->installEventFilter(this);
    splitter_->setStretchFactor(0, 1);
    splitter_->setStretchFactor(1, 2);
    return splitter_;
}

void main_window::sync(bool tasks_locked) {
    keys_->before_copy();
    progress_.follow(form_, form_.outside.screen.seconds());
    sync_title();
    // The row below the title: the window itself would show it over every part that has no tip of its own.
    mirror_tooltip(menuBar(), form_.tooltip);
    menus_->sync(tasks_locked);
    tasks_->sync();
    panels_->sync(form_.StatusBar1);
    run_row_->sync();
    sync_work_area(tasks_locked);
    panel_->sync();
    failure_->sync();
    numbers_->sync();
    exports_->sync(tasks_locked);
    tip_->sync();
    keys_->after_copy(tasks_locked, form_.task_runs());
    place_.apply();
    const Qt::CursorShape pointer =
        form_.mouse_pointer == help_pointer ? Qt::WhatsThisCursor : Qt::ArrowCursor;
    if (cursor().shape() != pointer) setCursor(pointer);
    mirror_visible(this, form_.visible);
}

void main_window::sync_title() {
    QString title = own_line(form_.caption);
    if (const std::string share = progress_.percent_words(); !share.empty())
        title.prepend(QString::fromStdString(share) + QStringLiteral("  "));
    if (windowTitle() != title) setWindowTitle(title);
}

void main_window::sync_work_area(bool tasks_locked) {
    const bool list_shown = form_.ListView1.visible && form_.ListView1.column_count() > 0;
    const bool text_shown = form_.RichTextBox2.visible && !form_.RichTextBox2.path().empty();
    // The text pane lies over listleft, and a result takes its room.
    const bool left_list_shown =
        form_.listleft.visible && !form_.listleft.rows().empty() && !text_shown && !list_shown;
    const bool side_list_shown = side_list_->sync();
    const bool start_shown = !list_shown && !text_shown && !left_list_shown && !side_list_shown;
    if (text_shown) text_->sync(form_.RichTextBox2);
    if (left_list_shown) left_list_->sync();
    if (start_shown) start_->sync();
    mirror_visible(text_, text_shown);
    mirror_visible(left_list_, left_list_shown);
    mirror_visible(side_list_, side_list_shown);
    mirror_visible(start_area_, start_shown);
    mirror_visible(left_, !list_shown || text_shown || left_list_shown || side_list_shown);
    mirror_visible(list_area_, list_shown);
    mirror_visible(list_, list_shown);
    mirror_visible(list_side_, list_shown);
    mirror_tooltip(list_, form_.ListView1.tooltip);
    if (list_shown) list_->sync(tasks_locked);
    if (list_shown && !left_->isHidden()) place_splitter();
    if (list_shown)
        list_head_->sync(marked_fill_ == form_.ListView1.fill_revision() ? marked_ : std::string());
    mirror_visible(preview_, preview_shown(form_));
    // Rows that are on their way are not looked at.
    if (!tasks_locked) preview_->sync(list_shown ? list_->row_in_hand() : 0);
    mirror_visible(marks_, list_shown && shown_view(form_).holds_copies);
    if (list_shown)
        look_through_rows();
    else
        slices_.stop();
}

// Once, when both halves are seen for the first time: where the user left it at the end of the last run.
void main_window::place_splitter() {
    if (std::exchange(splitter_placed_, true)) return;
    const int left =
        remembered_number(form_.state.remembered.value(splitter_name), 0, widest_half, 0) / twips_per_pixel;
    if (left > 0 && left < splitter_->width()) splitter_->setSizes({left, splitter_->width() - left});
}

// A look at a million rows takes a while: it is cut in slices, between which events are heard.
void main_window::look_through_rows() {
    const bool locked = tasks_locked(form_);
    const bool counts = !marks_->isHidden() && !locked;
    QElapsedTimer since;
    since.start();
    bool whole = false;
    do {
        whole = list_->look_through(locked, rows_at_once);
        if (counts) whole = stake_.go_on(form_, rows_at_once) && whole;
    } while (!whole && !since.hasExpired(slice_length));
    if (!whole) {
        slices_.start(0);
        return;
    }
    slices_.stop();
    if (!counts) return;
    mirror_text(marks_, own_line(mark_words(stake_.stake())));
    marked_fill_ = form_.ListView1.fill_revision();
    marked_ = mark_line(stake_.stake(), list_->cells().bands.group_count());
    list_head_->sync(marked_);
}

void main_window::lay_out() {
    form_.layout.inner_width = width() * twips_per_pixel;
    form_.layout.inner_height = height() * twips_per_pixel;
    form_.StatusBar1.place = place_in_window(*panels_);
    form_.listleft.place = place_in_window(*left_);
    form_.pic_gressbar1.place.height = run_row_->bar_height() * twips_per_pixel;
    form_.Command28.place = {0, 0, run_row_->cancel().width() * twips_per_pixel,
                             run_row_->cancel().height() * twips_per_pixel};
    Form_Resize(form_);
    tasks_->take_places();
    place_.apply();
}

void main_window::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    place_.keep();
    if (!tip_) return;
    lay_out();
    failure_->centre();
}

void main_window::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    place_.keep();
}

void main_window::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) place_.keep();
}

bool main_window::asks_for_help(QObject* pressed) {
    if (form_.mouse_pointer != help_pointer) return false;
    if (pressed == left_list_->viewport())
        act_("listleft_MouseDown");
    else if (pressed == text_->viewport())
        act_("RichTextBox2_MouseDown");
    else
        return false;
    return true;
}

void main_window::mousePressEvent(QMouseEvent* event) {
    QMainWindow::mousePressEvent(event);
    if (event->button() == Qt::LeftButton) act_("Form_MouseDown");
}

bool main_window::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && asks_for_help(watched)) return true;
    const auto pointer_x = [&] {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        return mapFromGlobal(mouse->globalPosition().toPoint()).x() * twips_per_pixel;
    };
    if (watched == splitter_->handle(1)) {
        if (event->type() == QEvent::MouseButtonPress) {
            form_.listleft.place = place_in_window(*left_);
            lay_out_halves(form_);
            Splitter_MouseDown(form_, pointer_x());
        } else if (event->type() == QEvent::MouseMove) {
            Splitter_MouseMove(form_, pointer_x());
        } else if (event->type() == QEvent::MouseButtonRelease) {
            // A half has a least width: the border is where the drag has really brought it.
            form_.Splitter.place.left = place_in_window(*left_).left + left_->width() * twips_per_pixel;
            Splitter_MouseUp(form_);
            form_.state.remembered.set(splitter_name, std::to_string(left_->width() * twips_per_pixel));
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void main_window::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && form_.Frame4.visible)
        act_("Frame4_Close");
    else
        QMainWindow::keyPressEvent(event);
}

void main_window::closeEvent(QCloseEvent* event) {
    // The program hides the window through its model, when the task that may run below this event is over.
    event->ignore();
    close_();
}

}  // namespace corvane
