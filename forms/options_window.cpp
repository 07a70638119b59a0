#include "forms/options_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>

#include "forms/form_parts.h"
#include "forms/mirror.h"
#include "forms/option_list_view.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"
#include "search/options_menu.h"

namespace corvane {

namespace {

constexpr QSize first_size(900, 660);
constexpr int edge = 14;
constexpr int gap = 12;
constexpr int narrowest_button = 84;
constexpr int button_room = 14;

// The caption with the letter that the keyboard reaches it by.
QString with_letter(const std::string& caption, char letter) {
    if (letter != 0 && caption.starts_with(letter)) return own_line(caption).prepend(QLatin1Char('&'));
    return own_caption(caption, letter);
}

QLabel* heading(const control& model, char letter, QWidget* buddy) {
    auto* label = new QLabel(with_letter(model.caption, letter));
    name_after(label, model);
    label->setTextFormat(Qt::PlainText);
    label->setBuddy(buddy);
    return label;
}

}  // namespace

options_window::options_window(Tavrel& main, options_form& form, std::function<void(const std::string&)> run,
                               QWidget* parent)
    : child_window(main, form, std::move(run), parent), form_(form) {
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(edge, edge, edge, edge);
    layout->setHorizontalSpacing(2 * gap);
    layout->setVerticalSpacing(gap);
    layout->addWidget(make_directories(), 0, 0);
    layout->addWidget(make_checks(), 0, 1);
    layout->addWidget(make_types(), 1, 0, 1, 2);
    layout->addWidget(make_buttons(), 2, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(0, 4);
    layout->setRowStretch(1, 5);
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, [this] { act("Timer1_Timer"); });
    resize(first_size);
}

option_list_view* options_window::make_list(list_box& box, bool with_check_marks, const char* help) {
    auto* view = new option_list_view(box, with_check_marks, this);
    view->menu = new QMenu(view);
    bool first = true;
    for (const options_menu_entry& entry : options_menus()) {
        if (entry.list != box.name()) continue;
        if (first) {
            view->menu->setObjectName(QString::fromUtf8(entry.name));
            first = false;
            continue;
        }
        const control& model = *form_.find(entry.name);
        QAction* action = view->menu->addAction(with_letter(model.caption, entry.letter));
        action->setObjectName(QString::fromUtf8(entry.name));
        action->setEnabled(model.enabled);
        connect(action, &QAction::triggered, this, [this, name = std::string(entry.name)] { act(name); });
    }
    lists_.push_back({view, help});
    return view;
}

QWidget* options_window::make_directories() {
    auto* side = new QWidget(this);
    option_list_view* list = make_list(form_.List1, true, "no_dir_help");
    list->remove_selected = [this] { act("move_dir"); };
    list->drop_paths = [this](const std::vector<std::string>& paths) {
        form_.drop_paths(paths);
        sync(false);
    };
    auto* layout = bare_layout<QVBoxLayout>(side, 6);
    QLabel* words = heading(*form_.labels[1], 'D', list);
    words->setWordWrap(true);
    layout->addWidget(words);
    layout->addWidget(list, 1);
    return side;
}

QWidget* options_window::make_checks() {
    auto* side = new QWidget(this);
    auto* layout = bare_layout<QVBoxLayout>(side, 10);
    layout->addStretch(1);
    static constexpr char letters[] = {0, 'P', 'C', 'W', 'S', 'R', 'Z', 'M', 'G'};
    std::vector<control*> models(form_.checks.begin(), form_.checks.end());
    models.insert(models.end(), {&form_.Check7, &form_.Check8});
    for (std::size_t i = 1; i < models.size(); ++i) {
        control& model = *models[i];
        auto* box = new QCheckBox(with_letter(model.caption, letters[i]), side);
        name_after(box, model);
        mirror_tooltip(box, model.tooltip);
        connect(box, &QCheckBox::clicked, this, [this, &model](bool checked) {
            model.value = checked ? 1 : 0;
            act(model.name() + "_Click");
        });
        layout->addWidget(box);
        checks_.push_back({box, &model});
    }
    layout->addStretch(1);
    return side;
}

QWidget* options_window::make_types() {
    auto* side = new QWidget(this);
    option_list_view* common = make_list(form_.List4, false, "file_type_help");
    option_list_view* left_out = make_list(form_.List2, true, "no_file_help");
    option_list_view* only = make_list(form_.List3, true, "only_help");
    left_out->remove_selected = [this] { act("move_no_search"); };
    only->remove_selected = [this] { act("only_search_move"); };
    for (option_list_view* list : {left_out, only})
        list->drop_text = [this,
                           &box = list == left_out ? form_.List2 : form_.List3](const std::string& lines) {
            form_.drop_types(box, lines);
            sync(false);
        };
    auto* arrow = new QWidget(side);
    auto* words = bare_layout<QHBoxLayout>(arrow, gap);
    words->addWidget(heading(*form_.labels[4], 'T', common));
    words->addStretch(1);
    // Points from the source to the two lists that take from it.
    words->addWidget(heading(*form_.labels[5], 0, nullptr));
    auto* columns = bare_layout<QHBoxLayout>(side, gap);
    const std::pair<QWidget*, QWidget*> lists[] = {{arrow, common},
                                                   {heading(*form_.labels[2], 'N', left_out), left_out},
                                                   {heading(*form_.labels[3], 'O', only), only}};
    for (const auto& [head, list] : lists) {
        auto* column = new QVBoxLayout;
        column->setSpacing(6);
        column->addWidget(head);
        column->addWidget(list, 1);
        columns->addLayout(column, 1);
    }
    return side;
}

QPushButton* options_window::make_button(control& model, char letter, QWidget* parent) {
    auto* button = new QPushButton(with_letter(model.caption, letter), parent);
    name_after(button, model);
    mirror_tooltip(button, model.tooltip);
    button->setAutoDefault(false);
    button->setMinimumWidth(std::max(narrowest_button, button->sizeHint().width() + button_room));
    connect(button, &QPushButton::clicked, this, [this, &model] { act(model.name() + "_Click"); });
    watch_button(button, model);
    buttons_.push_back({button, &model});
    return button;
}

QWidget* options_window::make_buttons() {
    auto* row = new QWidget(this);
    auto* layout = bare_layout<QHBoxLayout>(row, 8);
    layout->addWidget(make_button(form_.Command1, 'E', row));
    layout->addWidget(make_button(form_.Command3, 'Y', row));
    layout->addSpacing(gap);
    static constexpr char letters[] = {'B', 'L', 'K', 'X'};
    for (std::size_t i = 0; i < form_.Command2.size(); ++i)
        layout->addWidget(make_button(*form_.Command2[i], letters[i], row));
    layout->addStretch(1);
    layout->addWidget(make_button(form_.Command5, 'F', row));
    layout->addWidget(make_button(form_.Command4, 'A', row));
    return row;
}

void options_window::sync(bool) {
    for (const bound_list& list : lists_) list.view->sync_list();
    for (const bound_check& check : checks_) mirror_checked(check.box, check.model->value != 0);
    for (const bound_button& bound : buttons_) mirror_enabled(bound.button, bound.model->enabled);
    if (!form_.Timer1.enabled)
        timer_.stop();
    else if (!timer_.isActive())
        timer_.start(form_.Timer1.interval);
    sync_window();
}

void options_window::before_open() {
    lists_.front().view->setFocus();
}

void options_window::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_F1) return child_window::keyPressEvent(event);
    for (const bound_list& list : lists_)
        if (list.view->hasFocus()) return act(list.help);
    act("Command5_Click");
}

}  // namespace corvane
