#include "forms/main_window.h"
#include "forms/form_parts.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

#include "browser/list_views.h"
#include "cleanup/stake.h"
#include "core/tasks/help.h"
#include "forms/colour_bar_view.h"
#include "forms/error_frame.h"
#include "forms/export_frame.h"
#include "forms/icons.h"
#include "forms/key_focus.h"
#include "forms/list_box_view.h"
#include "forms/list_table.h"
#include "forms/menu_bar.h"
#include "forms/mirror.h"
#include "forms/number_frame.h"
#include "forms/own_words.h"
#include "forms/panel_bar.h"
#include "forms/row_panel.h"
#include "forms/screen_text.h"
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

rectangle place_in_window(const QWidget& widget) {
    const QPoint corner = widget.mapTo(widget.window(), QPoint(0, 0));
    return {corner.x() * twips_per_pixel, corner.y() * twips_per_pixel, widget.width() * twips_per_pixel,
            widget.height() * twips_per_pixel};
}

}  // namespace

main_window::main_window(Tavrel& form, std::function<void(const std::string&)> act,
                         std::function<void()> close)
    : form_(form), act_(std::move(act)), close_(std::move(close)), place_(*this, form) {
    name_after(this, form);
    setWindowIcon(application_icon());
    menus_ = std::make_unique<menu_bar>(form_, *menuBar(), act_);
    auto* central = new QWidget(this);
    tasks_ = new task_column(
        form_, act_, [this] { tip_->sync(); }, central);
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
    right->addWidget(make_run_row());
    auto* middle = new QHBoxLayout;
    middle->setSpacing(0);
    middle->addWidget(tasks_);
    middle->addLayout(right, 1);
    auto* all = new QVBoxLayout(central);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(middle, 1);
    all->addWidget(panels_);
    setCentralWidget(central);
    panel_ = new row_panel(form_, act_, central);
    failure_ = new error_frame(form_, act_, central);
    numbers_ = new number_frame(form_, act_, central);
    exports_ = new export_frame(form_, act_, central);
    tip_ = new tip_box(form_, this);
    keys_ = std::make_unique<key_focus>(*central, *list_, *cancel_);
    text_->setAccessibleName(own_line("文件清单"));
    left_list_->setAccessibleName(own_line("文件清单"));
    side_list_->setAccessibleName(own_line("文件清单"));
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
    left_->setMinimumWidth(160);
    auto* stacked = new QVBoxLayout(left_);
    stacked->setContentsMargins(0, 0, 0, 0);
    stacked->setSpacing(0);
    left_list_ = new list_box_view(form_.listleft, left_);
    side_list_ = new list_box_view(form_.List1, left_);
    side_list_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(side_list_, &QWidget::customContextMenuRequested, this, [this] {
        form_.list_event = {};
        form_.list_event.button = list_pointer::right_button;
        act_("List1_MouseDown");
    });
    text_ = new text_view(form_.outside.files, left_);
    name_after(text_, form_.RichTextBox2);
    start_ = new start_page(form_, act_, left_);
    for (QWidget* widget : {static_cast<QWidget*>(left_list_), static_cast<QWidget*>(text_),
                            static_cast<QWidget*>(start_), static_cast<QWidget*>(side_list_)})
        stacked->addWidget(widget);
    list_ = new list_table(form_, act_, splitter_);
    name_after(list_, form_.ListView1);
    list_->setAccessibleName(own_line("结果列表"));
    list_->show_menu = [this](const std::string& name, QPoint place) {
        if (QMenu* menu = menus_->popup(name)) menu->popup(place);
    };
    list_->hide();
    left_list_->viewport()->installEventFilter(this);
    text_->viewport()->installEventFilter(this);
    splitter_->handle(1)->installEventFilter(this);
    splitter_->setStretchFactor(0, 1);
    splitter_->setStretchFactor(1, 2);
    return splitter_;
}

QWidget* main_window::make_run_row() {
    run_row_ = new QWidget;
    file_name_ = new QLabel(run_row_);
    name_after(file_name_, form_.Label4);
    file_name_->setTextFormat(Qt::PlainText);
    file_name_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    bar_ = new colour_bar_view(run_row_);
    name_after(bar_, form_.pic_gressbar1);
    cancel_ = new QPushButton(run_row_);
    name_after(cancel_, form_.Command28);
    connect(cancel_, &QPushButton::clicked, this, [this] { act_("Command28_Click"); });
    auto* line = new QHBoxLayout;
    line->setSpacing(12);
    line->addWidget(bar_, 1);
    line->addWidget(cancel_);
    auto* rows = new QVBoxLayout(run_row_);
    rows->setContentsMargins(12, 8, 12, 8);
    rows->setSpacing(6);
    rows->addWidget(file_name_);
    rows->addLayout(line);
    run_row_->hide();
    return run_row_;
}

void main_window::sync(bool tasks_locked) {
    keys_->before_copy();
    mirror_title(this, form_.caption);
    // The row below the title: the window itself would show it over every part that has no tip of its own.
    mirror_tooltip(menuBar(), form_.tooltip);
    menus_->sync(tasks_locked);
    tasks_->sync();
    panels_->sync(form_.StatusBar1);
    sync_run_row();
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

void main_window::sync_work_area(bool tasks_locked) {
    const bool list_shown = form_.ListView1.visible && form_.ListView1.column_count() > 0;
    const bool text_shown = form_.RichTextBox2.visible && !form_.RichTextBox2.path().empty();
    // The text pane lies over listleft, and a result takes its room.
    const bool left_list_shown =
        form_.listleft.visible && !form_.listleft.rows().empty() && !text_shown && !list_shown;
    const bool side_list_shown = form_.List1.visible && !form_.List1.rows().empty();
    const bool start_shown = !list_shown && !text_shown && !left_list_shown && !side_list_shown;
    if (text_shown) text_->sync(form_.RichTextBox2);
    if (left_list_shown) left_list_->sync();
    if (side_list_shown) side_list_->sync();
    mirror_tooltip(side_list_, form_.List1.tooltip);
    if (start_shown) start_->sync();
    mirror_visible(text_, text_shown);
    mirror_visible(left_list_, left_list_shown);
    mirror_visible(side_list_, side_list_shown);
    mirror_visible(start_, start_shown);
    mirror_visible(left_, !list_shown || text_shown || left_list_shown || side_list_shown);
    mirror_visible(list_, list_shown);
    mirror_tooltip(list_, form_.ListView1.tooltip);
    if (list_shown) list_->sync(tasks_locked);
    if (list_shown && !left_->isHidden()) place_splitter();
    mirror_visible(marks_, list_shown && shown_view(form_).holds_copies);
    sync_marks(tasks_locked);
}

// Once, when both halves are seen for the first time: where the user left it at the end of the last run.
void main_window::place_splitter() {
    if (std::exchange(splitter_placed_, true)) return;
    const int left =
        remembered_number(form_.state.remembered.value(splitter_name), 0, widest_half, 0) / twips_per_pixel;
    if (left > 0 && left < splitter_->width()) splitter_->setSizes({left, splitter_->width() - left});
}

// A million marks take a while to be reckoned: then it is done now and then.
void main_window::sync_marks(bool tasks_locked) {
    const std::pair cells(form_.ListView1.cell_revision(), form_.state.force_protected != 0);
    if (marks_->isHidden() || tasks_locked || told_marks_ == cells) return;
    const double now = form_.outside.screen.seconds();
    if (now < marks_told_at_ + marks_pause_) return;
    told_marks_ = cells;
    mirror_text(marks_, own_line(mark_words(form_)));
    marks_told_at_ = form_.outside.screen.seconds();
    marks_pause_ = 5 * (marks_told_at_ - now);
}

void main_window::sync_run_row() {
    const bool name_shown = form_.Label4.visible;
    const bool bar_shown = form_.pic_gressbar1.visible;
    const bool cancel_shown = form_.Command28.visible;
    if (name_shown) {
        const QString name = own_line(form_.Label4.caption);
        mirror_text(file_name_,
                    file_name_->fontMetrics().elidedText(name, Qt::ElideMiddle, run_row_->width() - 24));
    }
    bar_->sync(form_.pic_gressbar1);
    mirror_text(cancel_, own_line(form_.Command28.caption));
    mirror_enabled(cancel_, form_.Command28.enabled);
    mirror_visible(file_name_, name_shown);
    mirror_visible(bar_, bar_shown);
    mirror_visible(cancel_, cancel_shown);
    mirror_visible(run_row_, name_shown || bar_shown || cancel_shown);
}

void main_window::lay_out() {
    form_.layout.inner_width = width() * twips_per_pixel;
    form_.layout.inner_height = height() * twips_per_pixel;
    form_.StatusBar1.place = place_in_window(*panels_);
    form_.listleft.place = place_in_window(*left_);
    form_.pic_gressbar1.place.height = bar_->height() * twips_per_pixel;
    form_.Command28.place = {0, 0, cancel_->width() * twips_per_pixel, cancel_->height() * twips_per_pixel};
    Form_Resize(form_);
    tasks_->take_places();
    place_.apply();
}

void main_window::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    place_.keep();
    if (!tip_) return;
    lay_out();
    panel_->keep_inside();
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
