#include "forms/list_head.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QToolButton>
#include <QVBoxLayout>

#include "browser/list_hint.h"
#include "browser/list_views.h"
#include "compare/result_summary.h"
#include "core/text/text_format.h"
#include "forms/elided_label.h"
#include "forms/mirror.h"
#include "forms/own_words.h"

namespace corvane {

list_head::list_head(const Tavrel& form, const std::function<void(const std::string&)>& act, QWidget* parent)
    : QWidget(parent),
      form_(form),
      hint_(new elided_label(this)),
      summary_(new QFrame(this)),
      lines_(new QVBoxLayout) {
    hint_->setObjectName(QStringLiteral("list_hint"));
    hint_->setContentsMargins(12, 4, 12, 4);
    summary_->setObjectName(QStringLiteral("result_summary"));
    summary_->setAutoFillBackground(true);
    summary_->setBackgroundRole(QPalette::AlternateBase);
    summary_->setForegroundRole(QPalette::Text);
    auto* close = new QToolButton(summary_);
    close->setObjectName(QStringLiteral("result_summary_Close"));
    close->setText(QStringLiteral("✕"));
    close->setToolTip(own_line("关闭"));
    close->setAccessibleName(own_line("关闭"));
    close->setAutoRaise(true);
    connect(close, &QToolButton::clicked, this, [act] { act("result_summary_Close"); });
    auto* beside = new QHBoxLayout(summary_);
    beside->setContentsMargins(12, 6, 4, 6);
    lines_->setSpacing(2);
    beside->addLayout(lines_, 1);
    beside->addWidget(close, 0, Qt::AlignTop);
    summary_->hide();
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->addWidget(summary_);
    all->addWidget(hint_);
}

void list_head::sync(const std::string& marked) {
    sync_summary();
    // The result of a comparison that was cancelled is not whole, whatever else is to be said.
    const std::string cancelled =
        shown_view(form_).holds_copies ? cancelled_words(form_.state) : std::string();
    QString words = own_line(list_hint(form_, marked));
    if (!cancelled.empty()) words.prepend(own_line(cancelled) + QStringLiteral("  ·  "));
    hint_->setText(words);
}

void list_head::sync_summary() {
    const std::string& words = form_.state.summary_words;
    if (words != shown_summary_) {
        shown_summary_ = words;
        std::vector<std::string> parts;
        const int count = split_text(words, "\r\n", parts);
        while (static_cast<int>(words_.size()) < count) {
            words_.push_back(new elided_label(summary_));
            words_.back()->setObjectName(QStringLiteral("result_summary_%1").arg(words_.size()));
            words_.back()->setForegroundRole(QPalette::Text);
            lines_->addWidget(words_.back());
        }
        for (std::size_t i = 0; i < words_.size(); ++i) {
            const bool used = static_cast<int>(i) < count;
            if (used) words_[i]->setText(own_line(parts[i + 1]));
            mirror_visible(words_[i], used);
        }
    }
    mirror_visible(summary_, !words.empty() && shown_view(form_).holds_copies);
}

}  // namespace corvane
