#include "forms/tree_window.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <algorithm>

#include "core/tasks/help.h"
#include "forms/colours.h"
#include "forms/form_parts.h"
#include "forms/list_box_view.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"
#include "forms/suffix_view.h"

namespace corvane {

namespace {

constexpr QSize first_size(860, 560);
constexpr int edge = 14;
constexpr int gap = 12;
constexpr int settings_width = 340;
constexpr int number_width = 90;
constexpr int narrowest_button = 84;
constexpr int button_room = 14;

QString with_key(const control& model, const char* key) {
    return own_line(model.caption + key);
}

QLabel* label_of(const control& model, const char* key, QWidget* buddy) {
    auto* label = new QLabel(with_key(model, key));
    name_after(label, model);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(buddy);
    return label;
}

}  // namespace

tree_window::tree_window(Tavrel& main, tree_form& form, std::function<void(const std::string&)> run,
                         QWidget* parent)
    : child_window(main, form, std::move(run), parent), form_(form) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setHorizontalSpacing(gap + edge);
    layout->setVerticalSpacing(gap);
    layout->addWidget(make_settings(), 0, 0);
    layout->addWidget(make_lists(), 0, 1);
    layout->addWidget(make_buttons(), 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(0, 1);
    resize(first_size);
}

QLineEdit* tree_window::make_field(std::size_t number) {
    control& model = *form_.texts[number];
    auto* field = new QLineEdit(this);
    name_after(field, model);
    mirror_tooltip(field, model.tooltip);
    field->installEventFilter(this);
    connect(field, &QLineEdit::textEdited, this, [this, &model](const QString& words) {
        model.text = words.toStdString();
        if (main_.has_handler(form_.name() + "." + model.name() + "_Change")) act(model.name() + "_Change");
    });
    fields_.push_back({field, &model});
    return field;
}

QAbstractButton* tree_window::make_mark(QAbstractButton* button, control& model, const char* key) {
    name_after(button, model);
    button->setText(with_key(model, key));
    connect(button, &QAbstractButton::clicked, this, [this, &model](bool checked) {
        model.value = checked ? 1 : 0;
        if (main_.has_handler(form_.name() + "." + model.name() + "_Click")) act(model.name() + "_Click");
    });
    marks_.push_back({button, &model});
    return button;
}

// The check mark, the lower bound, the sign between and the upper bound in a row.
QWidget* tree_window::make_bounds(std::size_t check, std::size_t first, const char* key, const char* unit) {
    auto* row = new QWidget(this);
    auto* layout = bare_layout<QHBoxLayout>(row, 6);
    auto* mark = make_mark(new QCheckBox(row), *form_.checks[check], "");
    QLineEdit* least = make_field(first);
    QLineEdit* most = make_field(first + 1);
    QLabel* between = label_of(*form_.labels[first == 3 ? 3 : 5], key, mark);
    for (QWidget* part :
         {static_cast<QWidget*>(mark), static_cast<QWidget*>(least), static_cast<QWidget*>(most)})
        part->setAccessibleName(between->text());
    layout->addWidget(mark);
    layout->addWidget(least, 1);
    layout->addWidget(between);
    layout->addWidget(most, 1);
    if (unit != nullptr) layout->addWidget(label_of(*form_.labels[4], "", nullptr));
    return row;
}

QWidget* tree_window::make_settings() {
    auto* side = new QWidget(this);
    side->setFixedWidth(settings_width);
    auto* layout = bare_layout<QGridLayout>(side, 8);
    layout->setColumnStretch(3, 1);
    QLineEdit* levels = make_field(1);
    QLineEdit* columns = make_field(2);
    for (QLineEdit* field : {levels, columns}) field->setFixedWidth(number_width);
    int row = 0;
    layout->addWidget(label_of(*form_.labels[1], "(&L)", levels), row, 0);
    layout->addWidget(levels, row++, 1);
    layout->addWidget(label_of(*form_.labels[2], "(&C)", columns), row, 0);
    layout->addWidget(columns, row++, 1);
    const auto pair = [&](QAbstractButton* left, QAbstractButton* right) {
        layout->addWidget(left, row, 0);
        layout->addWidget(right, row++, 1);
    };
    pair(make_mark(new QCheckBox(side), *form_.checks[1], "(&S)"),
         make_mark(new QCheckBox(side), *form_.checks[2], "(&D)"));
    pair(make_mark(new QCheckBox(side), *form_.checks[3], "(&N)"),
         make_mark(new QCheckBox(side), *form_.checks[4], "(&H)"));
    layout->addWidget(make_bounds(5, 3, "", "Kb"), row++, 0, 1, 4);
    layout->addWidget(make_bounds(6, 5, "", nullptr), row++, 0, 1, 4);
    for (const std::size_t number : {7u, 8u}) {
        QLineEdit* types = make_field(number);
        layout->addWidget(label_of(*form_.labels[number - 1], number == 7 ? "(&I)" : "(&X)", types), row++, 0,
                          1, 4);
        layout->addWidget(types, row++, 0, 1, 4);
    }
    layout->addWidget(make_button(*form_.commands[4], with_key(*form_.commands[4], "(&F)"), true), row++, 0,
                      1, 4, Qt::AlignLeft);
    layout->setRowMinimumHeight(row++, gap);
    pair(make_mark(new QRadioButton(side), *form_.Option1[0], "(&T)"),
         make_mark(new QRadioButton(side), *form_.Option1[1], "(&E)"));
    layout->setRowStretch(row, 1);
    return side;
}

QWidget* tree_window::make_lists() {
    auto* side = new QWidget(this);
    auto* layout = bare_layout<QVBoxLayout>(side, 6);
    lines_ = new list_box_view(form_.List1, side);
    lines_->setAccessibleName(own_line("树状目录"));
    lines_->setTextElideMode(Qt::ElideRight);
    suffixes_ = new suffix_view(
        form_.ListView1, [this] { act("ListView1_DblClick"); },
        [this](int column) {
            main_.list_event = {};
            main_.list_event.column = column;
            act("ListView1_ColumnClick");
        },
        side);
    month_ = new QCalendarWidget(side);
    name_after(month_, form_.MonthView1);
    // The interface is Chinese, whatever the desktop's language.
    month_->setLocale(translation_in_use() ? QLocale(QLocale::English)
                                           : QLocale(QLocale::Chinese, QLocale::China));
    month_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    connect(month_, &QCalendarWidget::clicked, this, [this](QDate day) {
        form_.MonthView1.text = day.toString(Qt::ISODate).toStdString();
        act("MonthView1_DateClick");
    });
    layout->addWidget(month_);
    layout->addWidget(lines_, 1);
    layout->addWidget(suffixes_, 1);
    layout->addStretch(0);
    return side;
}

QPushButton* tree_window::make_button(control& model, const QString& words, bool waits_for_task) {
    auto* button = new QPushButton(words, this);
    name_after(button, model);
    button->setAutoDefault(false);
    button->setMinimumWidth(std::max(narrowest_button, button->sizeHint().width() + button_room));
    mirror_tooltip(button, model.tooltip);
    connect(button, &QPushButton::clicked, this, [this, &model] { act(model.name() + "_Click"); });
    watch_button(button, model);
    buttons_.push_back({button, &model, waits_for_task});
    return button;
}

QWidget* tree_window::make_buttons() {
    auto* row = new QWidget(this);
    auto* layout = bare_layout<QHBoxLayout>(row, 8);
    layout->addWidget(make_button(*form_.commands[3], with_key(*form_.commands[3], ""), false));
    layout->addWidget(make_button(form_.Picture1, own_caption(form_.Picture1.tooltip, 'V'), false));
    progress_ = new QProgressBar(row);
    name_after(progress_, form_.ProgressBar1);
    progress_->setTextVisible(false);
    QSizePolicy keeps = progress_->sizePolicy();
    keeps.setRetainSizeWhenHidden(true);
    progress_->setSizePolicy(keeps);
    layout->addWidget(progress_, 1);
    layout->addWidget(make_button(*form_.commands[1], with_key(*form_.commands[1], "(&O)"), true));
    layout->addWidget(make_button(*form_.commands[2], with_key(*form_.commands[2], "(&Q)"), false));
    return row;
}

void tree_window::sync(bool tasks_locked) {
    for (const bound_field& bound : fields_) {
        mirror_text(bound.field, screen_line(bound.model->text));
        mirror_enabled(bound.field, bound.model->enabled);
    }
    for (const bound_mark& bound : marks_) mirror_checked(bound.button, bound.model->value != 0);
    for (const bound_button& bound : buttons_)
        mirror_enabled(bound.button, bound.model->enabled && !(tasks_locked && bound.waits_for_task));
    if (form_.List1.visible) lines_->sync();
    if (form_.ListView1.visible) suffixes_->sync();
    mirror_visible(lines_, form_.List1.visible);
    mirror_visible(suffixes_, form_.ListView1.visible);
    sync_month();
    if (form_.ProgressBar1.visible) {
        if (progress_->maximum() != form_.ProgressBar1.maximum)
            progress_->setRange(0, form_.ProgressBar1.maximum);
        if (progress_->value() != form_.ProgressBar1.value) progress_->setValue(form_.ProgressBar1.value);
    }
    mirror_visible(progress_, form_.ProgressBar1.visible);
    sync_window();
}

void tree_window::sync_month() {
    const QDate day = QDate::fromString(screen_line(form_.MonthView1.text), Qt::ISODate);
    if (form_.MonthView1.visible && day.isValid() && month_->selectedDate() != day)
        month_->setSelectedDate(day);
    mirror_visible(month_, form_.MonthView1.visible);
}

void tree_window::colour_month() {
    QTextCharFormat weekend;
    weekend.setForeground(cell_text_colour(cell_colour::mark_red, palette()));
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) month_->setWeekdayTextFormat(day, weekend);
}

void tree_window::changeEvent(QEvent* event) {
    child_window::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) colour_month();
}

void tree_window::before_open() {
    colour_month();
    fields_.front().field->setFocus();
}

bool tree_window::eventFilter(QObject* watched, QEvent* event) {
    const auto field = std::find_if(fields_.begin(), fields_.end(),
                                    [&](const bound_field& bound) { return bound.field == watched; });
    if (field != fields_.end()) {
        const bool asks =
            event->type() == QEvent::MouseButtonDblClick ||
            (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F4);
        const std::string handler = field->model->name() + "_DblClick";
        if (asks && main_.has_handler(form_.name() + "." + handler)) {
            act(handler);
            return true;
        }
    }
    return child_window::eventFilter(watched, event);
}

void tree_window::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) return act("Command3_Click");
    if (event->key() == Qt::Key_Escape && form_.MonthView1.visible) {
        form_.MonthView1.visible = false;
        return sync_month();
    }
    child_window::keyPressEvent(event);
}

}  // namespace corvane
