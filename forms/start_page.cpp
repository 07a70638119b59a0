#include "forms/start_page.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "forms/colours.h"
#include "forms/icons.h"
#include "forms/own_words.h"
#include "forms/task_column.h"

namespace corvane {

namespace {

struct step_words {
    const char* picture;
    const char* icon;
    const char* title;
    const char* text;
};

constexpr step_words words[] = {
    {"Picture1", "choose_directories", "选择目录",
     "告诉程序到哪里去找。可以选好几个目录，也可以把文件夹拖到这里。"},
    {"Picture2", "search_files", "文件搜索", "把所选目录里的文件全部列出来。这一步只看，不改动任何文件。"},
    {"Picture3", "compare_files", "查相同文件", "逐个核对内容，找出完全一样的文件，成对列在这里。"},
    {"Picture4", "show_same", "显示上次的结果", "接着看上一次找到的相同文件；已经不在的不再列出。"},
};
constexpr std::size_t own_steps = 3;  // the last one is there where there is a result

constexpr char closing[] = "搜索和比对只读取文件，不会改动或删除任何一个。";
constexpr double content_width = 640;
constexpr double card_gap = 10;
constexpr int least_width = 300;
constexpr double least_top = 16;
constexpr double bar_height = 10;
constexpr double bar_share = 0.22;   // of the width, that moves while a search runs
constexpr double bar_seconds = 2.4;  // there and back
constexpr double title_factor = 1.8;

QFont larger(QFont font, double factor, bool bold) {
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    return font;
}

}  // namespace

start_page::start_page(const Tavrel& form, const run_progress& progress,
                       std::function<void(const std::string&)> act, QWidget* parent)
    : QWidget(parent), form_(form), act_(std::move(act)), progress_(progress), steps_(own_steps) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setMouseTracking(true);
}

void start_page::sync() {
    const run_state& state = form_.state;
    if (progress_.searches()) {
        found_ = own_line(progress_.found_words());
        moved_to_ = form_.outside.screen.seconds();
        set_hovered(-1);
        return update();
    }
    if (!found_.isEmpty()) {
        found_.clear();
        update();
    }
    const std::string next = next_step(form_);
    std::vector<step> steps(own_steps + (state.stored_pairs > 0 ? 1 : 0));
    const bool listed = state.file_count > 0 && state.file_list_loaded != 0;
    if (state.selected_dir_count > 0) {
        steps[0] = {step_state::done,
                    own_line("已选 " + std::to_string(state.selected_dir_count) + " 个目录")};
        if (listed)
            steps[1] = {step_state::done, own_line("已列出 " + std::to_string(state.file_count) + " 个文件")};
    }
    if (steps.size() > own_steps)
        steps[own_steps].note = own_line("上次的结果: " + std::to_string(state.stored_pairs) + " 对");
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (next == words[i].picture) steps[i].state = step_state::next;
    if (steps == steps_) return;
    if (steps.size() != steps_.size()) updateGeometry();
    steps_ = steps;
    update();
}

QSize start_page::minimumSizeHint() const {
    const double line = fontMetrics().height();
    const double title_height = QFontMetricsF(larger(font(), title_factor, false)).height();
    const double all =
        title_height + line * 5.9 +
        static_cast<double>(qMax(steps_.size(), own_steps)) * (qMax(line * 3.6, 64.0) + card_gap);
    return {least_width, static_cast<int>(all + 2 * least_top)};
}

start_page::page_places start_page::places() const {
    const double wide = qMin(content_width, width() - 48.0);
    const double left = qMax(24.0, (width() - wide) / 2);
    const double line = fontMetrics().height();
    const double title_height = QFontMetricsF(larger(font(), title_factor, false)).height();
    const double card_height = qMax(line * 3.6, 64.0);
    const double all =
        title_height + line * 5.9 + static_cast<double>(steps_.size()) * (card_height + card_gap);
    page_places found;
    found.cards.resize(steps_.size());
    double top = qMax(least_top, (height() - all) * 0.42);
    found.title = QRectF(left, top, wide, title_height);
    top += title_height + line * 0.4;
    found.subtitle = QRectF(left, top, wide, line * 1.4);
    top += line * 2.5;
    for (QRectF& card : found.cards) {
        // What was found before stands a little apart from the way to something new.
        if (&card == &found.cards.front() + own_steps) top += card_gap;
        card = QRectF(left, top, wide, card_height);
        top += card_height + card_gap;
    }
    found.closing = QRectF(left, top + line * 0.4, wide, line * 3);
    return found;
}

void start_page::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!found_.isEmpty()) return paint_search(painter);
    const page_places where = places();
    painter.setFont(larger(font(), title_factor, false));
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(where.title, Qt::AlignLeft | Qt::AlignVCenter, own_line("三步找出重复文件"));
    painter.setFont(font());
    painter.setPen(quiet_text(palette()));
    painter.drawText(where.subtitle, Qt::AlignLeft | Qt::AlignVCenter,
                     own_line("依次点下面三项，左边的任务栏里也有它们。"));
    for (std::size_t at = 0; at < steps_.size(); ++at) paint_step(painter, at, where.cards[at]);
    painter.setFont(font());
    painter.setPen(quiet_text(palette()));
    painter.drawText(where.closing, Qt::AlignLeft | Qt::TextWordWrap, own_line(closing));
}

// The number so far, and a bar that goes to and fro: nobody knows how many there will be.
void start_page::paint_search(QPainter& painter) const {
    const double wide = qMin(content_width, width() - 48.0);
    const double left = qMax(24.0, (width() - wide) / 2);
    const QFont title_font = larger(font(), title_factor, false);
    const double title_height = QFontMetricsF(title_font).height();
    const double line = fontMetrics().height();
    double top = qMax(least_top, (height() - title_height - 4 * line) * 0.42);
    painter.setFont(title_font);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRectF(left, top, wide, title_height), Qt::AlignLeft | Qt::AlignVCenter, found_);
    top += title_height + line;
    const QColor ground = palette().color(QPalette::Base);
    painter.setPen(Qt::NoPen);
    painter.setBrush(blend(ground, palette().color(QPalette::Text), 0.12));
    painter.drawRoundedRect(QRectF(left, top, wide, bar_height), bar_height / 2, bar_height / 2);
    const double phase = std::fmod(moved_to_, bar_seconds) / bar_seconds * 2;
    const double place = phase <= 1 ? phase : 2 - phase;
    painter.setBrush(accent(palette()));
    painter.drawRoundedRect(QRectF(left + place * wide * (1 - bar_share), top, wide * bar_share, bar_height),
                            bar_height / 2, bar_height / 2);
    top += bar_height + line * 0.8;
    painter.setFont(font());
    painter.setPen(quiet_text(palette()));
    painter.drawText(QRectF(left, top, wide, line * 3), Qt::AlignLeft | Qt::TextWordWrap, own_line(closing));
}

void start_page::paint_step(QPainter& painter, std::size_t at, const QRectF& card) const {
    const step& shown = steps_[at];
    const QColor ground = palette().color(QPalette::Base);
    const QColor ink = palette().color(QPalette::Text);
    const QColor mark = accent(palette());
    const bool next = shown.state == step_state::next;
    const double tint = (next ? 0.07 : 0) + (hovered_ == static_cast<int>(at) ? 0.07 : 0);
    painter.setPen(QPen(next ? mark : blend(ground, ink, 0.16), next ? 1.5 : 1));
    painter.setBrush(blend(ground, mark, tint));
    painter.drawRoundedRect(card, 8, 8);

    const double icon = 30;
    paint_icon(painter, words[at].icon, QRectF(card.left() + 20, card.center().y() - icon / 2, icon, icon),
               ink, mark);

    const double left = card.left() + 20 + icon + 18;
    const double wide = card.right() - 18 - left;
    const QFont title_font = larger(font(), 1.15, true);
    const double title_height = QFontMetricsF(title_font).height();
    const double line = fontMetrics().height();
    const double top = card.center().y() - (title_height + line + 4) / 2;
    painter.setFont(title_font);
    painter.setPen(ink);
    painter.drawText(QRectF(left, top, wide, title_height), Qt::AlignLeft | Qt::AlignVCenter,
                     at < own_steps ? QStringLiteral("%1  %2").arg(at + 1).arg(own_line(words[at].title))
                                    : own_line(words[at].title));
    painter.setFont(font());
    if (!shown.note.isEmpty()) {
        painter.setPen(mark);
        painter.drawText(QRectF(left, top, wide, title_height), Qt::AlignRight | Qt::AlignVCenter,
                         (shown.state == step_state::done ? QStringLiteral("✓ ") : QString()) + shown.note);
    }
    painter.setPen(quiet_text(palette()));
    const QString text = own_line(words[at].text);
    painter.drawText(QRectF(left, top + title_height + 4, wide, line), Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(wide)));
}

int start_page::step_at(QPointF point) const {
    if (!found_.isEmpty()) return -1;
    const page_places where = places();
    for (std::size_t at = 0; at < where.cards.size(); ++at)
        if (where.cards[at].contains(point))
            return form_.find(words[at].picture)->enabled ? static_cast<int>(at) : -1;
    return -1;
}

void start_page::set_hovered(int at) {
    if (hovered_ == at) return;
    hovered_ = at;
    setCursor(at < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
    update();
}

void start_page::mouseMoveEvent(QMouseEvent* event) {
    set_hovered(step_at(event->position()));
}

void start_page::leaveEvent(QEvent*) {
    set_hovered(-1);
}

void start_page::mouseReleaseEvent(QMouseEvent* event) {
    const int at = step_at(event->position());
    if (event->button() == Qt::LeftButton && at >= 0)
        act_(std::string(words[static_cast<std::size_t>(at)].picture) + "_Click");
}

}  // namespace corvane
