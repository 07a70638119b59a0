#include "forms/row_panel_frame.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "core/main_form.h"
#include "forms/shown_text.h"

namespace corvane {

row_panel_frame::row_panel_frame(Tavrel& form, std::function<void(const std::string&)> act,
                                 const QWidget* area, QWidget* parent)
    : QFrame(parent), form_(form), area_(area) {
    setObjectName(QString::fromStdString(form.Frame4.name()));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Window);
    setCursor(Qt::SizeAllCursor);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(6);
    auto* head = new QHBoxLayout;
    caption_ = new QLabel(this);
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("Frame4_Close"));
    close->setText(QStringLiteral("✕"));
    close->setToolTip(QStringLiteral("关闭"));
    close->setAutoRaise(true);
    close->setCursor(Qt::ArrowCursor);
    head->addWidget(caption_);
    head->addStretch();
    head->addWidget(close);
    layout->addLayout(head);
    for (QLineEdit** box : {&first_, &second_}) {
        *box = new QLineEdit(this);
        (*box)->setReadOnly(true);
        (*box)->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        layout->addWidget(*box);
    }
    first_->setObjectName(QString::fromStdString(form.samefile_disp1.name()));
    second_->setObjectName(QString::fromStdString(form.samefile_disp2.name()));
    connect(close, &QToolButton::clicked, this, [act] { act("Frame4_Close"); });
    hide();
}

void row_panel_frame::sync() {
    if (!form_.Frame4.visible) {
        hide();
        return;
    }
    caption_->setText(shown_text(form_.Frame4.caption));
    int longest = 0;
    for (const auto& [box, model] :
         {std::pair{first_, &form_.samefile_disp1}, std::pair{second_, &form_.samefile_disp2}}) {
        const QString text = shown_text(model->text).replace(QLatin1Char('\t'), QLatin1String("    "));
        if (box->text() != text) {
            box->setText(text);
            box->setCursorPosition(0);
        }
        box->setToolTip(shown_text(model->tooltip));
        longest = std::max(longest, box->fontMetrics().horizontalAdvance(text));
    }
    const int width = std::clamp(longest + 60, 360, std::max(parentWidget()->width() - 32, 360));
    if (width != this->width() || height() != sizeHint().height()) resize(width, sizeHint().height());
    if (!placed_) {
        const QRect over(area_->mapTo(parentWidget(), QPoint(0, 0)), area_->size());
        move(over.left() + (over.width() - width) / 2, over.bottom() - height() - 24);
        placed_ = true;
    }
    keep_inside();
    if (!isVisible()) {
        show();
        raise();
    }
}

void row_panel_frame::keep_inside() {
    const QPoint inside(std::clamp(x(), 0, std::max(parentWidget()->width() - width(), 0)),
                        std::clamp(y(), 0, std::max(parentWidget()->height() - height(), 0)));
    if (inside != pos()) move(inside);
}

void row_panel_frame::mousePressEvent(QMouseEvent* event) {
    grip_ = event->position().toPoint();
}

void row_panel_frame::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    move(mapToParent(event->position().toPoint() - grip_));
    keep_inside();
    form_.Frame4.place.left = twips(x());
    form_.Frame4.place.top = twips(y());
}

}  // namespace corvane
