#include "forms/text_pane_widget.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cstring>

#include "forms/shown_text.h"
#include "platform/linux/name_mapping.h"

namespace corvane {

namespace {
constexpr int side_margin = 10;
constexpr qint64 index_block = 1 << 20;
constexpr qint64 shown_line_bytes = 20'000;  // of a longer line the start is shown
}  // namespace

text_pane_widget::text_pane_widget(const text_pane& model, QWidget* parent)
    : QAbstractScrollArea(parent), model_(model) {
    setObjectName(QString::fromStdString(model.name()));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setBackgroundRole(QPalette::Base);
}

void text_pane_widget::sync() {
    if (shown_revision_ == model_.revision()) return;
    shown_revision_ = model_.revision();
    load();
}

void text_pane_widget::load() {
    file_.close();
    marks_.clear();
    lines_ = longest_ = 0;
    anchor_ = current_ = -1;
    file_.setFileName(QString());
    const std::string raw = to_raw(model_.path());
    file_.setFileName(QFile::decodeName(QByteArray::fromStdString(raw)));
    if (!raw.empty() && file_.open(QIODevice::ReadOnly)) {
        std::vector<char> block(static_cast<std::size_t>(index_block));
        qint64 offset = 0, line_start = 0;
        for (qint64 count; (count = file_.read(block.data(), index_block)) > 0; offset += count) {
            const char* at = block.data();
            const char* const end = at + count;
            while (at < end) {
                const auto* found =
                    static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
                if (found == nullptr) break;
                if (lines_++ % lines_per_mark == 0) marks_.push_back(line_start);
                const qint64 next = offset + (found - block.data()) + 1;
                longest_ = std::max(longest_, next - line_start);
                line_start = next;
                at = found + 1;
            }
        }
        if (offset > line_start) {
            if (lines_++ % lines_per_mark == 0) marks_.push_back(line_start);
            longest_ = std::max(longest_, offset - line_start);
        }
    }
    verticalScrollBar()->setValue(0);
    horizontalScrollBar()->setValue(0);
    set_scroll_range();
    viewport()->update();
}

QString text_pane_widget::line(qint64 number) {
    if (number < 0 || number >= lines_) return {};
    if (!file_.seek(marks_[static_cast<std::size_t>(number / lines_per_mark)])) return {};
    for (qint64 skip = number % lines_per_mark; skip > 0; --skip) file_.readLine();
    QByteArray bytes = file_.readLine(shown_line_bytes);
    while (bytes.endsWith('\n') || bytes.endsWith('\r')) bytes.chop(1);
    return shown_text({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

int text_pane_widget::row_height() const {
    return fontMetrics().height() + 4;
}

qint64 text_pane_widget::line_at(int y) const {
    return std::clamp<qint64>(verticalScrollBar()->value() + y / row_height(), 0,
                              std::max<qint64>(lines_ - 1, 0));
}

void text_pane_widget::set_scroll_range() {
    const int page = std::max(viewport()->height() / row_height(), 1);
    verticalScrollBar()->setPageStep(page);
    verticalScrollBar()->setRange(0, static_cast<int>(std::max<qint64>(lines_ - page, 0)));
    const int longest = static_cast<int>(std::min<qint64>(longest_, shown_line_bytes)) *
                            fontMetrics().horizontalAdvance(QLatin1Char('n')) +
                        2 * side_margin;
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(fontMetrics().averageCharWidth() * 4);
    horizontalScrollBar()->setRange(0, std::max(longest - viewport()->width(), 0));
}

void text_pane_widget::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    const int height = row_height();
    const qint64 first = verticalScrollBar()->value();
    const qint64 low = std::min(anchor_, current_), high = std::max(anchor_, current_);
    for (qint64 row = first; row < lines_ && (row - first) * height < viewport()->height(); ++row) {
        const QRect place(0, static_cast<int>(row - first) * height, viewport()->width(), height);
        const bool selected = anchor_ >= 0 && row >= low && row <= high;
        if (selected) painter.fillRect(place, palette().color(QPalette::Highlight));
        painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
        painter.drawText(place.adjusted(side_margin - horizontalScrollBar()->value(), 0, 1'000'000, 0),
                         Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, line(row));
    }
}

void text_pane_widget::select_all() {
    anchor_ = lines_ > 0 ? 0 : -1;
    current_ = lines_ - 1;
    viewport()->update();
}

QString text_pane_widget::selected_text() {
    QStringList parts;
    if (anchor_ >= 0)
        for (qint64 row = std::min(anchor_, current_); row <= std::max(anchor_, current_); ++row)
            parts << line(row);
    return parts.join(QLatin1Char('\n'));
}

void text_pane_widget::resizeEvent(QResizeEvent*) {
    set_scroll_range();
}

void text_pane_widget::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) set_scroll_range();
    QAbstractScrollArea::changeEvent(event);
}

void text_pane_widget::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        QApplication::clipboard()->setText(selected_text());
    else if (event->matches(QKeySequence::SelectAll))
        select_all();
    else if (event->key() == Qt::Key_Home)
        verticalScrollBar()->setValue(0);
    else if (event->key() == Qt::Key_End)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    else
        QAbstractScrollArea::keyPressEvent(event);
}

void text_pane_widget::mousePressEvent(QMouseEvent* event) {
    current_ = line_at(event->position().toPoint().y());
    if (!(event->modifiers() & Qt::ShiftModifier) || anchor_ < 0) anchor_ = current_;
    viewport()->update();
}

void text_pane_widget::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton) || anchor_ < 0) return;
    current_ = line_at(event->position().toPoint().y());
    viewport()->update();
}

}  // namespace corvane
