#include "forms/row_panel.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolButton>

#include "forms/fonts.h"
#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {

constexpr int edge = 12;

QLineEdit* new_box(QWidget* parent, const control& source) {
    auto* box = new QLineEdit(parent);
    name_after(box, source);
    box->setReadOnly(true);
    box->setFont(even_font());
    return box;
}

}  // namespace

row_panel::row_panel(Tavrel& form, std::function<void(const std::string&)> act, QWidget* parent)
    : QFrame(parent),
      form_(form),
      act_(std::move(act)),
      caption_(new QLabel(this)),
      first_(new_box(this, form.samefile_disp1)),
      second_(new_box(this, form.samefile_disp2)) {
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
    layout->addWidget(caption_, 0, 0);
    layout->addWidget(close, 0, 1, Qt::AlignRight);
    layout->addWidget(first_, 1, 0, 1, 2);
    layout->addWidget(second_, 2, 0, 1, 2);
    for (QLineEdit* box : {first_, second_}) {
        box->setCursor(Qt::IBeamCursor);
        box->installEventFilter(this);
    }
    hide();
}

void row_panel::sync_box(QLineEdit* box, const control& source) {
    // A tab parts date and length; in a box of one line it is two blanks.
    const QString words = screen_text(source.text).replace(QLatin1Char('\t'), QStringLiteral("  "));
    if (mirror_text(box, words)) box->setCursorPosition(0);
    mirror_tooltip(box, source.tooltip);
}

int row_panel::wanted_width() const {
    const QFontMetrics metrics(first_->font());
    const int longest =
        std::max(metrics.horizontalAdvance(first_->text()), metrics.horizontalAdvance(second_->text()));
    return std::max(longest + 2 * edge + 24, 360);
}

void row_panel::sync() {
    mirror_text(caption_, own_line(form_.Frame4.caption));
    sync_box(first_, form_.samefile_disp1);
    sync_box(second_, form_.samefile_disp2);
    if (!form_.Frame4.visible) {
        hide();
        return;
    }
    const QSize wanted(std::min(wanted_width(), parentWidget()->width() - 2 * edge), sizeHint().height());
    if (size() != wanted) resize(wanted);
    if (!placed_) {
        placed_ = true;
        move((parentWidget()->width() - width()) / 2, parentWidget()->height() - height() - 3 * edge);
    }
    keep_inside();
    if (isHidden()) {
        show();
        raise();
    }
}

void row_panel::keep_inside() {
    const int most_left = std::max(0, parentWidget()->width() - width());
    const int most_top = std::max(0, parentWidget()->height() - height());
    const QPoint inside(std::clamp(x(), 0, most_left), std::clamp(y(), 0, most_top));
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
    keep_inside();
}

void row_panel::mouseReleaseEvent(QMouseEvent*) {
    dragging_ = false;
}

bool row_panel::eventFilter(QObject* watched, QEvent* event) {
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
