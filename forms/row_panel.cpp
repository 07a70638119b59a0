#include "forms/row_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolButton>
#include <algorithm>

#include "forms/fonts.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {

constexpr int edge = 12;
constexpr int gap = 16;

struct line_words {
    QString path, date, length;
};

// The text of a box taken apart: path, at least four blanks, date, tab, length.
line_words words_of(const std::string& text) {
    const std::size_t tab = text.find('\t');
    const std::string head = text.substr(0, tab);
    const std::size_t blanks = head.rfind("    ");
    const std::size_t path_end =
        blanks == std::string::npos ? head.size() : head.find_last_not_of(' ', blanks) + 1;
    line_words words;
    words.path = screen_line(head.substr(0, path_end));
    words.date = screen_line(head.substr(path_end)).trimmed();
    if (tab != std::string::npos) words.length = screen_line(text.substr(tab + 1));
    return words;
}

}  // namespace

row_panel::row_panel(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent)
    : QFrame(parent), form_(form), act_(std::move(act)), caption_(new QLabel(this)) {
    name_after(this, form.Frame4);
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Raised);
    setAutoFillBackground(true);
    setCursor(Qt::SizeAllCursor);
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("Frame4_Close"));
    close->setText(QStringLiteral("✕"));
    close->setToolTip(own_line("关闭"));
    close->setAutoRaise(true);
    close->setCursor(Qt::ArrowCursor);
    connect(close, &QToolButton::clicked, this, [this] { close_panel(); });
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(edge, 6, edge, edge);
    layout->setVerticalSpacing(6);
    layout->setHorizontalSpacing(gap);
    layout->setColumnStretch(0, 1);
    layout->addWidget(caption_, 0, 0);
    layout->addWidget(close, 0, 2, Qt::AlignRight);
    lines_ = {make_line(form.samefile_disp1, 1), make_line(form.samefile_disp2, 2)};
    parent->installEventFilter(this);
    hide();
}

row_panel::line row_panel::make_line(const control& source, int row) {
    auto* box = new QLineEdit(this);
    name_after(box, source);
    box->setReadOnly(true);
    box->setFont(even_font());
    box->setCursor(Qt::IBeamCursor);
    box->installEventFilter(this);
    const auto fact = [&](const char* what) {
        auto* label = new QLabel(this);
        label->setObjectName(QString::fromStdString(source.name() + what));
        label->setFont(even_font());
        label->setTextFormat(Qt::PlainText);
        return label;
    };
    const line made{box, fact("_date"), fact("_length")};
    auto* layout = static_cast<QGridLayout*>(this->layout());
    layout->addWidget(made.path, row, 0);
    layout->addWidget(made.date, row, 1);
    layout->addWidget(made.length, row, 2, Qt::AlignRight | Qt::AlignVCenter);
    return made;
}

void row_panel::sync_line(const line& shown, const control& source) {
    const line_words words = words_of(source.text);
    if (mirror_text(shown.path, words.path)) shown.path->setCursorPosition(0);
    mirror_text(shown.date, words.date);
    mirror_text(shown.length, words.length);
    mirror_tooltip(shown.path, source.tooltip);
}

int row_panel::wanted_width() const {
    int path = 0, date = 0, length = 0;
    for (const line& shown : lines_) {
        const QFontMetrics metrics(shown.path->font());
        path = std::max(path, metrics.horizontalAdvance(shown.path->text()));
        date = std::max(date, shown.date->sizeHint().width());
        length = std::max(length, shown.length->sizeHint().width());
    }
    return std::max(path + date + length + 2 * (edge + gap) + 24, 360);
}

void row_panel::sync() {
    mirror_text(caption_, own_line(form_.Frame4.caption));
    sync_line(lines_[0], form_.samefile_disp1);
    sync_line(lines_[1], form_.samefile_disp2);
    if (!form_.Frame4.visible) {
        hide();
        return;
    }
    take_room();
    if (isHidden()) {
        show();
        raise();
    }
}

void row_panel::take_room() {
    const QWidget& area = *parentWidget();
    const QSize wanted(std::min(wanted_width(), area.width() - 2 * edge), sizeHint().height());
    if (size() != wanted) resize(wanted);
    // Where the list has a place: before that its area is no guide.
    if (!placed_ && area.isVisible()) {
        placed_ = true;
        move((area.width() - width()) / 2, area.height() - height() - 3 * edge);
    }
    const QPoint inside(std::clamp(x(), 0, std::max(0, area.width() - width())),
                        std::clamp(y(), 0, std::max(0, area.height() - height())));
    if (pos() != inside) move(inside);
}

void row_panel::close_panel() {
    form_.Frame4.visible = false;
    act_("Frame4_Close");
}

void row_panel::mousePressEvent(QMouseEvent* event) {
    dragging_ = event->button() == Qt::LeftButton;
    grip_ = event->position().toPoint();
}

void row_panel::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_) return;
    move(pos() + event->position().toPoint() - grip_);
    take_room();
}

void row_panel::mouseReleaseEvent(QMouseEvent*) {
    dragging_ = false;
}

bool row_panel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget()) {
        if (event->type() == QEvent::Resize && !isHidden()) take_room();
        return false;
    }
    if (event->type() == QEvent::MouseButtonPress) {
        const auto* press = static_cast<QMouseEvent*>(event);
        if (press->button() == Qt::LeftButton && press->modifiers().testFlag(Qt::ControlModifier)) {
            act_(watched->objectName().toStdString() + "_MouseDown");
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

void row_panel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close_panel();
    else
        QFrame::keyPressEvent(event);
}

}  // namespace corvane
