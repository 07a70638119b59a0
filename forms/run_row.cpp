#include "forms/run_row.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/colour_bar_view.h"
#include "forms/elided_label.h"
#include "forms/mirror.h"
#include "forms/own_words.h"

namespace corvane {

namespace {
constexpr int edge = 12;
}

run_row::run_row(Tavrel& form, const run_progress& progress,
                 const std::function<void(const std::string&)>& act, QWidget* parent)
    : QWidget(parent),
      form_(form),
      progress_(progress),
      words_(new elided_label(this)),
      file_name_(new elided_label(this, Qt::ElideMiddle)),
      bar_(new colour_bar_view(this)),
      cancel_(new QPushButton(this)) {
    words_->setObjectName(QStringLiteral("run_words"));
    name_after(file_name_, form_.Label4);
    name_after(bar_, form_.pic_gressbar1);
    name_after(cancel_, form_.Command28);
    connect(cancel_, &QPushButton::clicked, this, [act] { act("Command28_Click"); });
    auto* line = new QHBoxLayout;
    line->setSpacing(edge);
    line->addWidget(bar_, 1);
    line->addWidget(cancel_);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(edge, 8, edge, 8);
    rows->setSpacing(6);
    rows->addWidget(words_);
    rows->addWidget(file_name_);
    rows->addLayout(line);
    hide();
}

int run_row::bar_height() const {
    return bar_->height();
}

void run_row::sync() {
    const bool name_shown = form_.Label4.visible;
    const bool bar_shown = form_.pic_gressbar1.visible;
    const bool cancel_shown = form_.Command28.visible;
    const std::string words = progress_.words();
    if (name_shown) file_name_->setText(own_line(form_.Label4.caption));
    bar_->sync(form_.pic_gressbar1);
    mirror_text(cancel_, own_line(form_.Command28.caption));
    mirror_enabled(cancel_, form_.Command28.enabled);
    words_->setText(own_line(words));
    mirror_visible(words_, !words.empty());
    mirror_visible(file_name_, name_shown);
    mirror_visible(bar_, bar_shown);
    mirror_visible(cancel_, cancel_shown);
    mirror_visible(this, !words.empty() || name_shown || bar_shown || cancel_shown);
}

}  // namespace corvane
