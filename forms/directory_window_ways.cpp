// The parts of the directory window beside its lists: the line for paths, pastes, the buttons of the chosen
// directories, earlier selections.
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <utility>

#include "forms/directory_window.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/path_box.h"
#include "forms/screen_text.h"
#include "forms/selected_list.h"

namespace corvane {

QWidget* directory_window::make_path_row() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    path_ = new path_box(main_.outside.files, row);
    name_after(path_, form_.Text_path);
    path_->given = [this](const std::string& text) {
        shown_path_ = path_->text().toStdString();
        take_given(text);
    };
    auto* heading = new QLabel(own_line("路径(&P)"), row);
    heading->setBuddy(path_);
    layout->addWidget(heading);
    layout->addWidget(path_, 1);
    QPushButton* add = add_button({nullptr, &form_.Command_path, "加入(&A)", false}, row);
    // Before the handler of the button reads it.
    connect(add, &QPushButton::pressed, this,
            [this] { form_.Text_path.text = shown_path_ = path_->text().toStdString(); });
    layout->addWidget(add);
    auto* key = new QShortcut(QKeySequence::Paste, this);
    connect(key, &QShortcut::activated, this, [this] {
        if (const QMimeData* copied = QGuiApplication::clipboard()->mimeData())
            take_given(given_text(*copied));
    });
    return row;
}

void directory_window::take_given(const std::string& text) {
    form_.Text_path.text = text;
    act_("目录选择.Command_path_Click");
    selected_->scrollToBottom();
}

QWidget* directory_window::make_list_buttons() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(add_button({nullptr, &form_.Command_remove, "移去(&M)", false}, row));
    QPushButton* recent = add_button({nullptr, &form_.Command_recent, "最近用过(&Z)", false}, row);
    // After the handler, which fills the list.
    connect(recent, &QPushButton::clicked, this, [this] { show_recent(); });
    layout->addWidget(recent);
    layout->addStretch(1);
    return row;
}

void directory_window::show_recent() {
    auto* menu = new QMenu(this);
    name_after(menu, form_.List_recent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    const std::vector<list_box::row>& rows = form_.List_recent.rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const QString words =
            menu->fontMetrics().elidedText(own_line(rows[i].text), Qt::ElideMiddle, width() * 2 / 3);
        QAction* set = menu->addAction(QString(words).replace(QLatin1Char('&'), QStringLiteral("&&")));
        set->setToolTip(screen_lines(rows[i].tooltip));
        connect(set, &QAction::triggered, this, [this, i] {
            form_.List_recent.select_only(i);
            act_("目录选择.List_recent_Click");
        });
    }
    if (rows.empty()) menu->addAction(own_line("还没有选中过目录"))->setEnabled(false);
    const QWidget* button = findChild<QWidget*>(QString::fromStdString(form_.Command_recent.name()));
    menu->popup(button->mapToGlobal(QPoint(0, button->height())));
}

void directory_window::toggle_directory() {
    if (!std::exchange(form_.tree_toggles, false)) return;
    const QModelIndex row = tree_->currentIndex();
    if (row.isValid()) tree_->setExpanded(row, !tree_->isExpanded(row));
}

}  // namespace corvane
