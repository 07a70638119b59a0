#include "forms/side_list.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "forms/list_box_view.h"
#include "forms/mirror.h"
#include "forms/own_words.h"

namespace corvane {

side_list::side_list(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent)
    : QWidget(parent),
      form_(form),
      act_(std::move(act)),
      heading_(new QLabel(this)),
      rows_(new list_box_view(form.List1, this)) {
    heading_->setObjectName(QStringLiteral("List1_heading"));
    heading_->setTextFormat(Qt::PlainText);
    heading_->setWordWrap(true);
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("List1_Close"));
    close->setText(QStringLiteral("✕"));
    close->setToolTip(own_line("关闭"));
    close->setAccessibleName(own_line("关闭"));
    close->setAutoRaise(true);
    connect(close, &QToolButton::clicked, this, [this] { act_("List1_Close"); });
    rows_->setAccessibleName(own_line("文件清单"));
    rows_->setContextMenuPolicy(Qt::CustomContextMenu);
    rows_->installEventFilter(this);
    connect(rows_, &QWidget::customContextMenuRequested, this, [this] {
        form_.list_event = {};
        form_.list_event.button = list_pointer::right_button;
        act_("List1_MouseDown");
    });
    auto* head = new QHBoxLayout;
    head->setContentsMargins(12, 4, 4, 4);
    head->addWidget(heading_, 1);
    head->addWidget(close);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addLayout(head);
    all->addWidget(rows_, 1);
}

bool side_list::sync() {
    const bool shown = form_.List1.visible && !form_.List1.rows().empty();
    if (shown) rows_->sync();
    mirror_tooltip(rows_, form_.List1.tooltip);
    mirror_text(heading_, own_line(form_.List1.caption));
    return shown;
}

bool side_list::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape)
        return QWidget::eventFilter(watched, event);
    act_("List1_Close");
    return true;
}

}  // namespace corvane
