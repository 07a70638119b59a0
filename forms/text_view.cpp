#include "forms/text_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTimerEvent>

#include "forms/colours.h"
#include "forms/focus_look.h"
#include "forms/fonts.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {
constexpr int margin = 10;
constexpr std::int64_t most_copied = 200'000;  // lines; a clipboard is no place for more
}  // namespace

text_view::text_view(file_system& files, QWidget* parent) : QAbstractScrollArea(parent), lines_(files) {
    setFocusPolicy(Qt::StrongFocus);
    setFont(even_font());
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setBackgroundRole(QPalette::Base);
}

void text_view::sync(const text_pane& pane) {
    if (pane.revision() == shown_revision_) return;
    shown_revision_ = pane.revision();
    lines_.open(pane.path());
    anchor_ = current_ = -1;
    widest_ = 0;
    finder_.stop();
    if (!lines_.complete()) finder_.start(0, this);
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    update_scroll_bars();
    viewport()->update();
}

std::int64_t text_view::first_visible_line() const {
    return verticalScrollBar()->value();
}

std::int64_t text_view::line_at(int y) const {
    return std::clamp<std::int64_t>(first_visible_line() + y / line_height(), 0, lines_.count() - 1);
}

void text_view::update_scroll_bars() {
    const int shown = visible_lines();
    const auto all =
        static_cast<int>(std::min<std::int64_t>(lines_.count(), std::numeric_limits<int>::max()));
    verticalScrollBar()->setPageStep(shown);
    verticalScrollBar()->setRange(0, std::max(0, all - shown));
    const int width = viewport()->width();
    horizontalScrollBar()->setPageStep(width);
    horizontalScrollBar()->setSingleStep(fontMetrics().horizontalAdvance(QLatin1Char('0')) * 4);
    horizontalScrollBar()->setRange(0, std::max(0, widest_ + 2 * margin - width));
}

void text_view::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    if (!lines_.reason().empty()) {
        painter.setPen(quiet_text(palette()));
        painter.drawText(viewport()->rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap, own_text(lines_.reason()));
        return;
    }
    const std::int64_t first = first_visible_line();
    const std::int64_t low = std::min(anchor_, current_);
    const std::int64_t high = std::max(anchor_, current_);
    const int height = line_height();
    const int left = margin - horizontalScrollBar()->value();
    int widest = widest_;
    QTextOption tabs;
    for (std::int64_t row = 0; row <= viewport()->height() / height; ++row) {
        const std::int64_t number = first + row;
        if (number >= lines_.count()) break;
        const QRect place(0, static_cast<int>(row) * height, viewport()->width(), height);
        const bool selected = anchor_ >= 0 && number >= low && number <= high;
        if (selected) painter.fillRect(place, palette().brush(QPalette::Highlight));
        painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
        const QString words = lines_.line(number);
        const QRect bounds =
            fontMetrics().boundingRect(QRect(0, 0, 1 << 24, height), Qt::TextExpandTabs, words);
        painter.drawText(QRect(left, place.top(), bounds.width() + margin, height),
                         Qt::AlignVCenter | Qt::TextExpandTabs | Qt::TextDontClip, words);
        widest = std::max(widest, bounds.width());
    }
    if (widest > widest_) {
        widest_ = widest;
        update_scroll_bars();
    }
}

bool text_view::event(QEvent* event) {
    const bool done = QAbstractScrollArea::event(event);
    follow_focus(*this, *event);
    return done;
}

void text_view::resizeEvent(QResizeEvent*) {
    update_scroll_bars();
}

void text_view::timerEvent(QTimerEvent* event) {
    if (event->timerId() != finder_.timerId()) return QAbstractScrollArea::timerEvent(event);
    if (!lines_.find_more()) finder_.stop();
    update_scroll_bars();
    viewport()->update();
}

void text_view::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || lines_.count() == 0) return;
    const std::int64_t line = line_at(static_cast<int>(event->position().y()));
    if (!(event->modifiers() & Qt::ShiftModifier) || anchor_ < 0) anchor_ = line;
    select_to(line);
}

void text_view::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton) || anchor_ < 0) return;
    const auto y = static_cast<int>(event->position().y());
    if (y < 0) verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepSub);
    if (y > viewport()->height()) verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    select_to(line_at(std::clamp(y, 0, viewport()->height() - 1)));
}

void text_view::select_to(std::int64_t line) {
    current_ = line;
    viewport()->update();
}

void text_view::keyPressEvent(QKeyEvent* event) {
    QScrollBar* down = verticalScrollBar();
    QScrollBar* across = horizontalScrollBar();
    if (event->matches(QKeySequence::Copy)) return copy_selection();
    if (event->matches(QKeySequence::SelectAll) && lines_.count() > 0) {
        anchor_ = 0;
        return select_to(lines_.count() - 1);
    }
    switch (event->key()) {
        case Qt::Key_Up:
            return down->triggerAction(QAbstractSlider::SliderSingleStepSub);
        case Qt::Key_Down:
            return down->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        case Qt::Key_PageUp:
            return down->triggerAction(QAbstractSlider::SliderPageStepSub);
        case Qt::Key_PageDown:
            return down->triggerAction(QAbstractSlider::SliderPageStepAdd);
        case Qt::Key_Home:
            return down->triggerAction(QAbstractSlider::SliderToMinimum);
        case Qt::Key_End:
            return down->triggerAction(QAbstractSlider::SliderToMaximum);
        case Qt::Key_Left:
            return across->triggerAction(QAbstractSlider::SliderSingleStepSub);
        case Qt::Key_Right:
            return across->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

QString text_view::selected_text() const {
    if (anchor_ < 0) return {};
    const std::int64_t low = std::min(anchor_, current_);
    const std::int64_t high = std::min(std::max(anchor_, current_), low + most_copied - 1);
    QString words;
    for (std::int64_t line = low; line <= high; ++line) words += lines_.line(line) + QLatin1Char('\n');
    words.chop(1);
    return words;
}

void text_view::copy_selection() const {
    if (anchor_ >= 0) QGuiApplication::clipboard()->setText(selected_text());
}

void text_view::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    QAction* copy = menu.addAction(own_line("复制(&C)"), this, [this] { copy_selection(); });
    copy->setEnabled(anchor_ >= 0);
    menu.exec(event->globalPos());
}

void text_view::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) update_scroll_bars();
}

}  // namespace corvane
