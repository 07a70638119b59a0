#include "forms/child_window.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QCloseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "forms/colours.h"
#include "forms/form_parts.h"
#include "forms/icons.h"
#include "forms/mirror.h"
#include "forms/own_words.h"

namespace corvane {

child_window::child_window(Tavrel& main, form_model& form, std::function<void(const std::string&)> act,
                           QWidget* parent)
    : QDialog(parent), main_(main), act_(std::move(act)), form_(form), place_(*this, form) {
    name_after(this, form);
    setWindowIcon(application_icon());
}

void child_window::sync_window() {
    mirror_title(this, form_.caption);
    if (form_.visible && isHidden()) open_window();
    if (!form_.visible && !isHidden()) hide();
    sync_place();
}

void child_window::sync_place() {
    if (isVisible()) place_.apply();
}

void child_window::open_window() {
    colour_marks();
    name_by_labels(*this);
    describe_parts(*this, own_line(form_.caption));
    before_open();
    fit_screen();
    if (place_.is_known()) {
        place_.apply();
        fit_screen();
        // Asked for once more, or a window manager places the window anew.
        move(pos());
    } else {
        place_beside_main();
    }
    show();
    // Shown it may need more than it said before.
    fit_screen();
    raise();
    activateWindow();
    place_.keep();
}

void child_window::fit_screen() {
    const QScreen* const shown_on = parentWidget() != nullptr ? parentWidget()->screen() : screen();
    const QSize frame(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const QSize room = shown_on->availableGeometry().size() - frame;
    ensurePolished();
    const QSize least = minimumSizeHint().expandedTo(minimumSize());
    if (least.width() > room.width() || least.height() > room.height()) make_scrollable();
    const QSize fitting = size().boundedTo(room);
    if (size() != fitting) resize(fitting);
}

void child_window::make_scrollable() {
    if (findChild<QScrollArea*>(QStringLiteral("window_scroll")) != nullptr || layout() == nullptr) return;
    auto* area = new QScrollArea(this);
    area->setObjectName(QStringLiteral("window_scroll"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto* parts = new QWidget;
    parts->setLayout(layout());
    area->setWidget(parts);
    // The layout that was the window's has left its least size behind.
    setMinimumSize(0, 0);
    auto* around = new QVBoxLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    around->addWidget(area);
}

void child_window::colour_marks() {
    for (QAbstractButton* mark : findChildren<QAbstractButton*>())
        if (qobject_cast<QCheckBox*>(mark) != nullptr || qobject_cast<QRadioButton*>(mark) != nullptr)
            colour_mark(*mark, palette());
}

void child_window::place_beside_main() {
    const QWidget* owner = parentWidget();
    if (!owner || !owner->isVisible()) return;
    const QRect free = owner->screen()->availableGeometry();
    const QRect beside = owner->frameGeometry();
    // Beside the main form where there is room, else over its work area, clear of the task column.
    int left = beside.right() + 8;
    if (left + width() > free.right()) left = beside.right() - width() - 40;
    const int top = beside.top() + 72;
    move(std::clamp(left, free.left(), std::max(free.left(), free.right() - width())),
         std::clamp(top, free.top(), std::max(free.top(), free.bottom() - height())));
}

void child_window::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    if (isVisible()) place_.keep();
}

void child_window::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (isVisible()) place_.keep();
}

void child_window::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isVisible()) place_.keep();
    if (event->type() == QEvent::PaletteChange) colour_marks();
}

void child_window::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

void child_window::reject() {
    form_.visible = false;
    // Its own close handler, where the window has one.
    act_(form_.name() + ".Form_Unload");
    hide();
}

void child_window::watch_button(QPushButton* button, control& model) {
    button->setAttribute(Qt::WA_Hover);
    button->installEventFilter(this);
    button->setProperty("model", QVariant::fromValue(static_cast<void*>(&model)));
}

bool child_window::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        auto* button = qobject_cast<QPushButton*>(watched);
        auto* model = button ? static_cast<control*>(button->property("model").value<void*>()) : nullptr;
        if (model) {
            button_moved(main_, *model, event->type() == QEvent::HoverEnter && button->isEnabled());
            QPalette colours = palette();
            if (model->back_colour != button_face) {
                colours.setColor(QPalette::Button, from_blue_green_red(model->back_colour));
                // The colour is light; its text is dark in every palette.
                colours.setColor(QPalette::ButtonText, Qt::black);
            }
            button->setPalette(colours);
        }
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace corvane
