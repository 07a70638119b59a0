#include "forms/floating_frame.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

#include "forms/mirror.h"

namespace corvane {

floating_frame::floating_frame(const control& model, std::function<void(const std::string&)> act,
                               const char* double_click, const char* escape, QWidget* parent)
    : QFrame(parent), act_(std::move(act)), double_click_(double_click), escape_(escape) {
    name_after(this, model);
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Raised);
    setAutoFillBackground(true);
    hide();
}

void floating_frame::show_at(QPoint corner) {
    adjustSize();
    move_inside(corner);
    show();
    raise();
}

void floating_frame::move_inside(QPoint corner) {
    move(std::clamp(corner.x(), 0, std::max(0, parentWidget()->width() - width())),
         std::clamp(corner.y(), 0, std::max(0, parentWidget()->height() - height())));
}

void floating_frame::mouseDoubleClickEvent(QMouseEvent*) {
    act_(double_click_);
}

void floating_frame::mousePressEvent(QMouseEvent* event) {
    grip_ = event->position().toPoint();
}

void floating_frame::mouseMoveEvent(QMouseEvent* event) {
    move_inside(pos() + event->position().toPoint() - grip_);
}

void floating_frame::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        act_(escape_);
    else
        QFrame::keyPressEvent(event);
}

}  // namespace corvane
