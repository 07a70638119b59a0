#include "forms/sleep_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "forms/colour_bar_view.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {

constexpr int edge = 14;
constexpr int gap = 10;
constexpr int field_room = 22;
constexpr int first_repeat = 400;  // milliseconds until an arrow that is held repeats
constexpr int repeat = 80;

}  // namespace

sleep_window::sleep_window(Tavrel& main, sleep_form& form, std::function<void(const std::string&)> run,
                           QWidget* parent)
    : child_window(main, form, std::move(run), parent), form_(form) {
    // A dialog cannot be minimised everywhere; this window minimises itself.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setHorizontalSpacing(edge);
    layout->setVerticalSpacing(gap);
    layout->addWidget(make_options("Frame2", {form.Option2.begin(), form.Option2.end()}), 0, 0);
    layout->addWidget(make_options("Frame1", {form.Option1.begin(), form.Option1.end()}), 1, 0);
    layout->addWidget(make_times(), 0, 1, 2, 1);
    layout->addWidget(make_buttons(), 2, 0, 1, 2);
    layout->setRowStretch(1, 1);
    layout->setColumnStretch(1, 1);
    connect(&timer_, &QTimer::timeout, this, [this] { act("Timer1_Timer"); });
}

QGroupBox* sleep_window::make_options(const char* frame, const std::vector<control*>& options) {
    const control& model = *form_.find(frame);
    auto* group = new QGroupBox(own_line(model.caption), this);
    name_after(group, model);
    auto* layout = new QVBoxLayout(group);
    layout->setSpacing(4);
    for (control* option : options) {
        auto* button = new QRadioButton(own_line(option->caption), group);
        name_after(button, *option);
        connect(button, &QRadioButton::clicked, this, [this, option] { act(option->name() + "_Click"); });
        layout->addWidget(button);
        options_.push_back({button, option});
    }
    layout->addStretch(1);
    return group;
}

QLabel* sleep_window::make_label(const char* name, const QString& letter, QWidget* buddy) {
    control& model = *form_.find(name);
    auto* label = new QLabel(own_line(model.caption + letter.toStdString()), this);
    name_after(label, model);
    label->setBuddy(buddy);
    return label;
}

QLineEdit* sleep_window::make_field(control& model, int digits) {
    auto* edit = new QLineEdit(this);
    name_after(edit, model);
    mirror_tooltip(edit, model.tooltip);
    edit->setValidator(new QIntValidator(0, 9999, edit));
    edit->setAlignment(Qt::AlignRight);
    edit->setFixedWidth(edit->fontMetrics().horizontalAdvance(QString(digits, QLatin1Char('0'))) +
                        field_room);
    edit->installEventFilter(this);
    fields_.push_back({edit, &model, {}});
    // Enter, and leaving the field, take over what was typed.
    connect(edit, &QLineEdit::editingFinished, this, [this, edit] {
        for (bound_field& field : fields_)
            if (field.edit == edit) take_over(field);
    });
    return edit;
}

void sleep_window::take_over(bound_field& field) {
    if (field.edit->text() == field.shown) return;
    field.model->text = field.edit->text().toStdString();
    act(field.model->name() + "_KeyPress");
    field.shown = screen_line(field.model->text);
    mirror_text(field.edit, field.shown);
}

// The bar beside a field: up for more, down for less.
QWidget* sleep_window::make_arrows(range_control& model) {
    auto* arrows = new QWidget(this);
    name_after(arrows, model);
    auto* layout = new QVBoxLayout(arrows);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (const int step : {1, -1}) {
        auto* arrow = new QToolButton(arrows);
        arrow->setArrowType(step > 0 ? Qt::UpArrow : Qt::DownArrow);
        arrow->setAccessibleName(step > 0 ? own_line("增加") : own_line("减少"));
        mirror_tooltip(arrow, model.tooltip);
        arrow->setAutoRepeat(true);
        arrow->setAutoRepeatDelay(first_repeat);
        arrow->setAutoRepeatInterval(repeat);
        arrow->setFixedSize(20, 14);
        connect(arrow, &QToolButton::clicked, this, [this, &model, step] {
            model.value += step;
            act(model.name() + "_Change");
        });
        layout->addWidget(arrow);
    }
    arrows_.push_back({arrows, &model});
    return arrows;
}

QWidget* sleep_window::make_times() {
    auto* side = new QWidget(this);
    auto* grid = new QGridLayout(side);
    grid->setContentsMargins(0, gap, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(gap);
    auto* clock = new QLabel(side);
    name_after(clock, form_.Text2);
    QFont large = clock->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    clock->setFont(large);
    grid->addWidget(clock, 0, 0, 1, 6, Qt::AlignCenter);

    QLineEdit* hours = make_field(form_.Text_h, 4);
    grid->addWidget(make_label("Label1", QStringLiteral("(&E)"), hours), 1, 0);
    grid->addWidget(hours, 1, 1);
    grid->addWidget(make_arrows(form_.VScroll1), 1, 2);
    grid->addWidget(new QLabel(QStringLiteral(":"), side), 1, 3);
    QLineEdit* minutes = make_field(form_.Text_m, 4);
    minutes->setAccessibleName(own_line("终止时间"));
    grid->addWidget(minutes, 1, 4);
    grid->addWidget(make_arrows(form_.VScroll2), 1, 5, Qt::AlignLeft);
    QLineEdit* delay = make_field(form_.Text3, 4);
    grid->addWidget(make_label("Label2", QStringLiteral("(&D)"), delay), 2, 0);
    grid->addWidget(delay, 2, 1);
    grid->addWidget(make_label("Label3"), 2, 2, 1, 4);
    QLineEdit* warning = make_field(form_.Text1, 4);
    grid->addWidget(make_label("Label7", QStringLiteral("(&W)"), warning), 3, 0);
    grid->addWidget(warning, 3, 1);
    grid->addWidget(make_arrows(form_.VScroll3), 3, 2);
    grid->addWidget(new QLabel(own_line("分钟"), side), 3, 3, 1, 3);
    grid->addWidget(new QLabel(own_line("计时开始"), side), 4, 0);
    grid->addWidget(make_label("Label9"), 4, 1, 1, 5);
    grid->addWidget(make_label("Label8"), 5, 0);
    grid->addWidget(make_label("Label4"), 5, 1, 1, 5);
    bar_ = new colour_bar_view(side);
    name_after(bar_, form_.pic_gressbar1);
    QSizePolicy keeps_room = bar_->sizePolicy();
    keeps_room.setRetainSizeWhenHidden(true);
    bar_->setSizePolicy(keeps_room);
    grid->addWidget(bar_, 6, 0, 1, 6);
    grid->setColumnStretch(5, 1);
    grid->setRowStretch(7, 1);
    labels_ = {{clock, &form_.Text2},
               {side->findChild<QLabel*>(QStringLiteral("Label9")), &form_.Label9},
               {side->findChild<QLabel*>(QStringLiteral("Label4")), &form_.Label4}};
    return side;
}

QPushButton* sleep_window::make_button(control& model, char letter) {
    auto* button = new QPushButton(own_caption(model.caption, letter), this);
    name_after(button, model);
    mirror_tooltip(button, model.tooltip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, &model] { act(model.name() + "_Click"); });
    watch_button(button, model);
    buttons_.push_back({button, &model});
    return button;
}

QWidget* sleep_window::make_buttons() {
    auto* rows = new QWidget(this);
    auto* grid = new QGridLayout(rows);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(8);
    static constexpr char letters[] = {0, 'S', 'C', 'I', 'T', 'P', 'H', 'O'};
    for (int i = 1; i <= 3; ++i)
        grid->addWidget(make_button(*form_.commands[static_cast<std::size_t>(i)], letters[i]), 0, i - 1);
    for (int i = 4; i <= 7; ++i)
        grid->addWidget(make_button(*form_.commands[static_cast<std::size_t>(i)], letters[i]), 1, i - 4);
    return rows;
}

void sleep_window::sync_fields() {
    for (bound_field& field : fields_) {
        mirror_enabled(field.edit, field.model->enabled);
        const QString words = screen_line(field.model->text);
        if (words == field.shown) continue;
        field.shown = words;
        mirror_text(field.edit, words);
    }
}

void sleep_window::sync(bool) {
    for (const bound_option& option : options_) mirror_checked(option.button, option.model->value != 0);
    for (const bound_button& bound : buttons_) mirror_enabled(bound.button, bound.model->enabled);
    for (const bound_arrows& bound : arrows_) mirror_enabled(bound.arrows, bound.model->enabled);
    sync_fields();
    for (const bound_label& bound : labels_)
        mirror_text(bound.label, screen_line(bound.model->kind() == control_kind::label ? bound.model->caption
                                                                                        : bound.model->text));
    bar_->sync(form_.pic_gressbar1);
    mirror_visible(bar_, form_.pic_gressbar1.visible);
    if (!form_.Timer1.enabled)
        timer_.stop();
    else if (!timer_.isActive())
        timer_.start(form_.Timer1.interval);
    if (form_.visible && isVisible() && form_.window == window_state::minimised && !isMinimized())
        showMinimized();
    sync_window();
}

void sleep_window::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) return act("Command6_Click");
    // Enter in a field takes its value over and does nothing else.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return event->accept();
    child_window::keyPressEvent(event);
}

void sleep_window::before_open() {
    adjustSize();
    buttons_.front().button->setFocus();
}

}  // namespace corvane
