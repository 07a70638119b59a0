#include "forms/start_page.h"

#include <QPainter>

#include "forms/colours.h"
#include "forms/icons.h"
#include "forms/task_column.h"

namespace corvane {

namespace {

struct step_words {
    const char* icon;
    const char* title;
    const char* text;
};

constexpr step_words words[] = {
    {"choose_directories", "选择目录", "告诉程序到哪里去找。可以选一个目录，也可以选好几个。"},
    {"search_files", "文件搜索", "把所选目录里的文件全部列出来。这一步只看，不改动任何文件。"},
    {"compare_files", "查相同文件", "逐个核对内容，找出完全一样的文件，成对列在这里。"},
};

constexpr char closing[] =
    "删除由您决定：在结果里双击要删的文件，它会变红并带删除线，再点“删除选定的重复文件”。";
constexpr double content_width = 620;

QFont larger(QFont font, double factor, bool bold) {
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    return font;
}

}  // namespace

start_page::start_page(const Tavrel& form, QWidget* parent) : QWidget(parent), form_(form) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setMinimumSize(320, 260);
}

void start_page::sync() {
    const run_state& state = form_.state;
    const std::string next = next_step(form_);
    std::array<step, 3> steps;
    const bool listed = state.file_count > 0 && state.file_list_loaded != 0;
    if (state.selected_dir_count > 0) {
        steps[0] = {step_state::done, QStringLiteral("已选 %1 个目录").arg(state.selected_dir_count)};
        if (listed) steps[1] = {step_state::done, QStringLiteral("已列出 %1 个文件").arg(state.file_count)};
    }
    constexpr const char* pictures[] = {"Picture1", "Picture2", "Picture3"};
    for (std::size_t i = 0; i < steps.size(); ++i)
        if (next == pictures[i]) steps[i].state = step_state::next;
    if (steps == steps_) return;
    steps_ = steps;
    update();
}

void start_page::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QFont title_font = larger(font(), 1.9, false);
    const double width_of_content = qMin(content_width, width() - 48.0);
    const double left = qMax(24.0, (width() - width_of_content) / 2);
    const double line = fontMetrics().height();
    const double title_height = QFontMetricsF(title_font).height();
    const double step_height = qMax(line * 4.4, 72.0);
    const double all = title_height + line * 2.9 + 3 * step_height + line * 3;
    double top = qMax(20.0, (height() - all) * 0.42);

    painter.setFont(title_font);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(QRectF(left, top, width_of_content, title_height), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("三步找出重复文件"));
    top += title_height + line * 0.4;
    painter.setFont(font());
    painter.setPen(quiet_text(palette()));
    painter.drawText(QRectF(left, top, width_of_content, line * 1.4), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("从左边的任务栏开始，依次点下面三项。"));
    top += line * 2.5;
    for (int number = 1; number <= 3; ++number) {
        paint_step(painter, number, left, top, width_of_content, step_height - 10);
        top += step_height;
    }
    painter.setFont(font());
    painter.setPen(quiet_text(palette()));
    painter.drawText(QRectF(left, top + line * 0.4, width_of_content, line * 3),
                     Qt::AlignLeft | Qt::TextWordWrap, QString::fromUtf8(closing));
}

void start_page::paint_step(QPainter& painter, int number, double left, double top, double width_of_content,
                            double height_of_step) const {
    const auto at = static_cast<std::size_t>(number - 1);
    const step& shown = steps_[at];
    const QColor ground = palette().color(QPalette::Base);
    const QColor ink = palette().color(QPalette::Text);
    const QColor mark = accent(palette());
    const bool next = shown.state == step_state::next;
    const QRectF card(left, top, width_of_content, height_of_step);
    painter.setPen(QPen(next ? mark : blend(ground, ink, 0.16), next ? 1.5 : 1));
    painter.setBrush(next ? blend(ground, mark, 0.07) : ground);
    painter.drawRoundedRect(card, 8, 8);

    const double icon = 30;
    paint_icon(painter, words[at].icon, QRectF(left + 20, card.center().y() - icon / 2, icon, icon), ink,
               mark);

    const double text_left = left + 20 + icon + 18;
    const double text_width = card.right() - 16 - text_left;
    const QFont title_font = larger(font(), 1.15, true);
    const double title_height = QFontMetricsF(title_font).height();
    const double line = fontMetrics().height();
    double y = card.center().y() - (title_height + line + 4) / 2;
    painter.setFont(title_font);
    painter.setPen(ink);
    painter.drawText(QRectF(text_left, y, text_width, title_height), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("%1  %2").arg(number).arg(QString::fromUtf8(words[at].title)));
    painter.setFont(font());
    if (!shown.note.isEmpty()) {
        painter.setPen(mark);
        painter.drawText(QRectF(text_left, y, text_width, title_height), Qt::AlignRight | Qt::AlignVCenter,
                         QStringLiteral("✓ ") + shown.note);
    }
    y += title_height + 4;
    painter.setPen(quiet_text(palette()));
    painter.drawText(QRectF(text_left, y, text_width, line), Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(QString::fromUtf8(words[at].text), Qt::ElideRight,
                                                      static_cast<int>(text_width)));
}

}  // namespace corvane
