#include "forms/warning_window.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

warning_window::warning_window(Tavrel& main, warning_form& form, std::function<void(const std::string&)> run,
                               QWidget* parent)
    : child_window(main, form, std::move(run), parent), form_(form) {
    // Above other programs, too: it says what is about to happen to them.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowMinimizeButtonHint |
                   Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 18, 18, 14);
    layout->setSpacing(12);
    words_ = new QLabel(this);
    name_after(words_, form.Label1);
    words_->setWordWrap(true);
    words_->setTextFormat(Qt::PlainText);
    QFont large = words_->font();
    large.setPointSizeF(large.pointSizeF() * 1.25);
    words_->setFont(large);
    layout->addWidget(words_, 1);
    bar_ = new QProgressBar(this);
    name_after(bar_, form.ProgressBar1);
    bar_->setTextVisible(false);
    layout->addWidget(bar_);
    auto* stop = new QPushButton(own_line("取消关机(&C)"), this);
    stop->setObjectName(QStringLiteral("stop"));
    stop->setAutoDefault(false);
    connect(stop, &QPushButton::clicked, this, [this] { reject(); });
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(stop);
    layout->addLayout(row);
    resize(380, 150);
    connect(&timer_, &QTimer::timeout, this, [this] { act_("shut_msg.Timer1_Timer"); });
}

void warning_window::sync(bool) {
    mirror_text(words_, own_text(form_.Label1.caption));
    if (bar_->maximum() != form_.ProgressBar1.maximum) bar_->setRange(0, form_.ProgressBar1.maximum);
    if (bar_->value() != form_.ProgressBar1.value) bar_->setValue(form_.ProgressBar1.value);
    if (!form_.Timer1.enabled || form_.Timer1.interval <= 0)
        timer_.stop();
    else if (!timer_.isActive())
        timer_.start(form_.Timer1.interval);
    if (form_.visible && isMinimized() && form_.window == window_state::normal) showNormal();
    sync_window();
}

void warning_window::changeEvent(QEvent* event) {
    child_window::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange && isVisible()) act_("shut_msg.Form_Resize");
}

void warning_window::before_open() {
    // A box that stands would keep the user from this window; opened later and as modal as the box, it is the
    // one that is heard.
    setWindowModality(QApplication::activeModalWidget() != nullptr ? Qt::ApplicationModal : Qt::NonModal);
    QApplication::alert(this);
}

}  // namespace corvane
