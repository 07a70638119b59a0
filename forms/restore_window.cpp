#include "forms/restore_window.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "forms/list_box_view.h"
#include "forms/mirror.h"
#include "forms/own_words.h"

namespace corvane {

namespace {
constexpr QSize first_size(820, 520);
}

restore_window::restore_window(Tavrel& main, restore_form& form, std::function<void(const std::string&)> run,
                               QWidget* parent)
    : child_window(main, form, std::move(run), parent), form_(form) {
    runs_ = new list_box_view(form.List1, this);
    runs_->setSelectionMode(QAbstractItemView::SingleSelection);
    runs_->setAccessibleName(own_line("各次删除"));
    mirror_tooltip(runs_, form.List1.tooltip);
    files_ = new list_box_view(form.List2, this, true);
    files_->setAccessibleName(own_line("删除的文件"));
    mirror_tooltip(files_, form.List2.tooltip);
    connect(runs_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        if (!is_syncing_ && runs_->selectionModel()->hasSelection()) act_("restore_runs.List1_Click");
    });
    connect(files_, &QListView::doubleClicked, this, [this] { act_("restore_runs.List2_DblClick"); });
    files_->installEventFilter(this);
    words_ = new QLabel(this);
    name_after(words_, form.Label1);
    words_->setTextFormat(Qt::PlainText);
    words_->setWordWrap(true);
    auto* lists = new QSplitter(Qt::Vertical, this);
    lists->setChildrenCollapsible(false);
    lists->addWidget(runs_);
    lists->addWidget(files_);
    lists->setStretchFactor(0, 1);
    lists->setStretchFactor(1, 3);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(make_button(form.Command1));
    row->addWidget(make_button(form.Command2));
    row->addStretch(1);
    row->addWidget(make_button(form.Command3));
    row->addWidget(make_button(form.Command4));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->setSpacing(10);
    layout->addWidget(lists, 1);
    layout->addWidget(words_);
    layout->addLayout(row);
    resize(first_size);
}

QPushButton* restore_window::make_button(control& model) {
    auto* button = new QPushButton(own_line(model.caption), this);
    name_after(button, model);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this,
            [this, &model] { act_(form_.name() + "." + model.name() + "_Click"); });
    buttons_.emplace_back(button, &model);
    return button;
}

void restore_window::sync(bool tasks_locked) {
    is_syncing_ = true;
    runs_->sync();
    files_->sync();
    mirror_enabled(files_, !tasks_locked);
    mirror_text(words_, own_line(form_.Label1.caption));
    for (const auto& [button, model] : buttons_) {
        const bool acts = model == &form_.Command1 || model == &form_.Command2;
        mirror_enabled(button, model->enabled && !(acts && tasks_locked));
    }
    mirror_enabled(runs_, !tasks_locked);
    is_syncing_ = false;
    sync_window();
}

// Enter on a file restores it, as a double click does.
bool restore_window::eventFilter(QObject* watched, QEvent* event) {
    if (watched == files_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            act_("restore_runs.List2_DblClick");
            return true;
        }
    }
    return child_window::eventFilter(watched, event);
}

}  // namespace corvane
