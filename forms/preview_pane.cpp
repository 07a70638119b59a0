#include "forms/preview_pane.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "forms/form_parts.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/preview_side.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {
// Rows that keys run over are passed by; after this a row counts as stood on.
constexpr int pause_milliseconds = 50;
}  // namespace

preview_pane::preview_pane(Tavrel& form, QWidget* parent)
    : QWidget(parent), form_(form), copies_(new QLabel(this)), nothing_(new QLabel(this)), pause_(this) {
    setObjectName(QStringLiteral("preview"));
    auto* both = new QHBoxLayout;
    both->setSpacing(6);
    for (std::size_t i = 0; i < sides_.size(); ++i) {
        sides_[i] = new preview_side(form, QStringLiteral("preview_%1").arg(i + 1), this);
        sides_[i]->hide();
        both->addWidget(sides_[i], 1);
        sides_[i]->picture().changed = [this](const picture_part& part) {
            for (preview_side* side : sides_) side->picture().show_part(part);
        };
    }
    for (QLabel* label : {copies_, nothing_}) label->setTextFormat(Qt::PlainText);
    copies_->setObjectName(QStringLiteral("preview_copies"));
    copies_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    copies_->hide();
    nothing_->setText(own_line("在列表中选一行,这里就显示它的文件"));
    nothing_->setAlignment(Qt::AlignCenter);
    nothing_->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->setSpacing(4);
    layout->addLayout(both, 1);
    layout->addWidget(nothing_, 1);
    layout->addWidget(copies_);
    setMinimumHeight(110);
    pause_.setSingleShot(true);
    pause_.setInterval(pause_milliseconds);
    connect(&pause_, &QTimer::timeout, this, [this] { ask(); });
}

preview_pane::~preview_pane() = default;

void preview_pane::sync(std::int32_t row) {
    if (isHidden()) {
        pause_.stop();
        row_ = -1;
        question_ = {};  // shown again, it reads again
        return;
    }
    const list_view& list = form_.ListView1;
    if (row == row_ && cells_ == list.cell_revision() && layout_ == list.layout_revision()) return;
    row_ = row;
    cells_ = list.cell_revision();
    layout_ = list.layout_revision();
    pause_.start();
}

void preview_pane::ask() {
    // A task that has begun meanwhile may have the rows in work; the sync behind it asks anew.
    if (isHidden() || form_.task_runs()) {
        row_ = -1;
        return;
    }
    preview_question question = preview_of_row(form_, row_);
    const std::uint64_t fill = form_.ListView1.fill_revision();
    const bool same = question.paths == question_.paths && !question.paths.empty() && asked_fill_ == fill;
    asked_fill_ = fill;
    question_ = std::move(question);
    show_copies(question_);
    // Sorted or marked: the files are those that stand there.
    if (same) return;
    const std::size_t count = question_.paths.size();
    for (std::size_t i = 0; i < sides_.size(); ++i) {
        mirror_visible(sides_[i], i < count);
        if (i < count) sides_[i]->begin(question_.paths[i], question_.lengths[i]);
        sides_[i]->picture().show_part({});
    }
    mirror_visible(nothing_, count == 0);
    if (!worker_)
        worker_ = std::make_unique<preview_worker>(form_.outside.files, [this](preview_answer answer) {
            // Comes to rest with the pane.
            QMetaObject::invokeMethod(
                this, [this, answer = std::move(answer)] { take(answer); }, Qt::QueuedConnection);
        });
    std::vector<std::string> paths = question_.paths;
    // A folder that cannot be written is held in memory, and by the program's own thread alone.
    const run_state& state = form_.state;
    for (std::string& path : paths)
        if (state.program_dir_locked && path.starts_with(state.program_dir)) path.clear();
    worker_->ask(++number_, std::move(paths));
}

void preview_pane::take(const preview_answer& answer) {
    if (answer.number != number_ || answer.side >= sides_.size()) return;
    sides_[answer.side]->show_answer(answer);
}

void preview_pane::show_copies(const preview_question& question) {
    const std::vector<std::string>& copies = question.other_copies;
    mirror_visible(copies_, !copies.empty());
    if (copies.empty()) return;
    std::string words =
        "别处还有 " + std::to_string(copies.size()) + (question.more_copies ? " 份以上" : " 份");
    QString tip;
    for (const std::string& each : copies) tip += screen_line(each) + QLatin1Char('\n');
    mirror_text(copies_, own_line(words) + QStringLiteral(": ") + screen_line(copies.front()));
    if (copies_->toolTip() != tip.trimmed()) copies_->setToolTip(tip.trimmed());
}

}  // namespace corvane
