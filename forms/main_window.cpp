#include "forms/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include "core/help.h"
#include "core/main_menu.h"
#include "core/progress.h"
#include "forms/colour_bar_widget.h"
#include "forms/directory_window.h"
#include "forms/result_list.h"
#include "forms/row_panel_frame.h"
#include "forms/shown_text.h"
#include "forms/start_page.h"
#include "forms/status_panels.h"
#include "forms/task_column.h"
#include "forms/text_pane_widget.h"

namespace corvane {

main_window::main_window(program& corvane, qt_user_interface& screen)
    : program_(corvane), form_(corvane.main_form()), screen_(screen) {
    setObjectName(QString::fromStdString(form_.name()));
    setWindowIcon(QIcon(QStringLiteral(":/icons/corvane.svg")));
    resize(1120, 720);
    build_menus();
    build_centre();
    directories_ = new directory_window(
        program_, [this](const std::string& handler) { act(handler); }, this);

    screen_.sync = [this] { sync(); };
    screen_.owner = [this] { return static_cast<QWidget*>(this); };
    screen_.find_widget = [this](const std::string& form, const std::string& control) -> QWidget* {
        QWidget* const window =
            form == directories_->objectName().toStdString() ? static_cast<QWidget*>(directories_) : this;
        return window->findChild<QWidget*>(QString::fromStdString(control));
    };
    screen_.open_help = [this](int context) { open_topic(form_, context % 100); };

    auto* clock = new QTimer(this);
    connect(clock, &QTimer::timeout, this, [this] {
        program_.tick();
        sync();
    });
    clock->start(1000);
    sync();
}

main_window::~main_window() {
    screen_.sync = nullptr;
}

void main_window::build_menus() {
    std::map<std::string, QMenu*> menus;
    for (const menu_entry& entry : main_menu()) {
        const std::string parent = entry.parent;
        const QString caption = shown_text(entry.caption);
        if (parent.empty()) {
            if (!entry.visible) continue;
            menus[entry.name] = menuBar()->addMenu(caption);
            menus[entry.name]->setToolTipsVisible(true);
            actions_[entry.name] = menus[entry.name]->menuAction();
            continue;
        }
        if (menus.count(parent) == 0) continue;
        if (caption == QLatin1String("-")) {
            menus[parent]->addSeparator();
            continue;
        }
        QAction* const action = menus[parent]->addAction(caption);
        action->setObjectName(QString::fromUtf8(entry.name));
        if (*entry.shortcut != '\0') action->setShortcut(QKeySequence(QString::fromUtf8(entry.shortcut)));
        connect(action, &QAction::triggered, this, [this, name = std::string(entry.name)] { act(name); });
        actions_[entry.name] = action;
    }
}

void main_window::build_centre() {
    const auto run = [this](const std::string& handler) { act(handler); };
    auto* centre = new QWidget(this);
    auto* across = new QHBoxLayout;
    across->setContentsMargins(0, 0, 0, 0);
    across->setSpacing(0);
    tasks_ = new task_column(form_, run, centre);
    across->addWidget(tasks_);
    auto* border = new QFrame(centre);
    border->setFrameShape(QFrame::VLine);
    border->setForegroundRole(QPalette::Mid);
    across->addWidget(border);

    splitter_ = new QSplitter(Qt::Horizontal, centre);
    splitter_->setObjectName(QStringLiteral("Splitter"));
    splitter_->setHandleWidth(5);
    splitter_->setChildrenCollapsible(false);
    start_ = new start_page(splitter_);
    text_ = new text_pane_widget(form_.RichTextBox2, splitter_);
    list_ = new result_list(form_.ListView1, splitter_);
    list_->resized = [this] { form_.run("layout_list"); };
    list_->clicked_row = [this] { act("ListView1_Click"); };
    list_->double_clicked = [this](int, int column) {
        act(column < 3 && !form_.has_handler("ListView1_DblClick") ? "show_row_panel" : "ListView1_DblClick");
    };
    across->addWidget(splitter_, 1);

    progress_ = new QWidget(centre);
    bar_ = new colour_bar_widget(form_.pic_gressbar1, progress_);
    cancel_ = new QPushButton(progress_);
    cancel_->setObjectName(QString::fromStdString(form_.Command28.name()));
    connect(cancel_, &QPushButton::clicked, this, [this] { act("Command28_Click"); });
    running_file_ = new QLabel(centre);
    running_file_->setObjectName(QString::fromStdString(form_.Label4.name()));
    running_file_->setMargin(6);
    running_file_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* progress = new QHBoxLayout(progress_);
    progress->setContentsMargins(12, 8, 12, 8);
    progress->setSpacing(12);
    progress->addWidget(bar_, 1);
    progress->addWidget(cancel_);
    status_ = new status_panels(
        form_.StatusBar1, [this] { act("StatusBar1_PanelClick"); }, centre);

    auto* down = new QVBoxLayout(centre);
    down->setContentsMargins(0, 0, 0, 0);
    down->setSpacing(0);
    down->addLayout(across, 1);
    down->addWidget(running_file_);
    down->addWidget(progress_);
    down->addWidget(status_);
    setCentralWidget(centre);
    row_panel_ = new row_panel_frame(form_, run, splitter_, centre);
}

void main_window::act(const std::string& handler) {
    form_.run(handler);
    sync();
}

void main_window::sync() {
    if (syncing_) return;
    syncing_ = true;
    const QString title = shown_text(form_.caption);
    if (windowTitle() != title) setWindowTitle(title);
    sync_menus();
    tasks_->sync();
    sync_centre();
    status_->sync();
    row_panel_->sync();
    directories_->sync();
    const Qt::CursorShape shape = form_.mouse_pointer == help_pointer ? Qt::WhatsThisCursor : Qt::ArrowCursor;
    if (cursor().shape() != shape) setCursor(shape);
    if (isVisible() != form_.visible) setVisible(form_.visible);
    syncing_ = false;
}

void main_window::sync_menus() {
    for (const auto& [name, action] : actions_) {
        const control* const item = form_.find(name);
        if (action->isEnabled() != item->enabled) action->setEnabled(item->enabled);
        if (item->value != 0 && !action->isCheckable()) action->setCheckable(true);
        if (action->isCheckable() && action->isChecked() != (item->value != 0))
            action->setChecked(item->value != 0);
    }
    // A pointer that asks for a topic is a state the menu shows.
    QAction* const spirit = actions_["help_spirit"];
    spirit->setCheckable(true);
    spirit->setChecked(form_.mouse_pointer == help_pointer);
}

void main_window::sync_centre() {
    const bool list_shown = form_.ListView1.visible;
    const bool text_shown = form_.RichTextBox2.visible && !form_.RichTextBox2.path().empty();
    text_->sync();
    if (text_->isHidden() == text_shown) text_->setVisible(text_shown);
    if (list_->isHidden() == list_shown) list_->setVisible(list_shown);
    const bool start_shown = !list_shown && !text_shown;
    if (start_->isHidden() == start_shown) start_->setVisible(start_shown);
    if (list_shown)
        list_->sync(tasks_locked(form_));
    else
        list_->expect_width(splitter_->width() - list_->verticalScrollBar()->sizeHint().width());

    const bool bar_shown = form_.pic_gressbar1.visible;
    if (bar_->isHidden() == bar_shown) bar_->setVisible(bar_shown);
    if (bar_shown) bar_->sync();
    const QString cancel = shown_text(form_.Command28.caption);
    if (cancel_->text() != cancel) cancel_->setText(cancel);
    if (cancel_->isHidden() == form_.Command28.visible) cancel_->setVisible(form_.Command28.visible);
    const bool progress_shown = bar_shown || form_.Command28.visible;
    if (progress_->isHidden() == progress_shown) progress_->setVisible(progress_shown);
    if (running_file_->isHidden() == form_.Label4.visible) running_file_->setVisible(form_.Label4.visible);
    if (form_.Label4.visible)
        running_file_->setText(running_file_->fontMetrics().elidedText(
            shown_text(form_.Label4.caption), Qt::ElideMiddle, running_file_->width() - 16));
}

void main_window::closeEvent(QCloseEvent* event) {
    // The program ends when the running task, if any, has met the request at its next look.
    event->ignore();
    program_.close();
}

}  // namespace corvane
