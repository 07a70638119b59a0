#include "forms/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace corvane {

namespace {

constexpr qint64 longest_way = 250;  // milliseconds until a window manager has answered or will not

window_state state_of(const QWidget& window) {
    if (window.isMinimized()) return window_state::minimised;
    if (window.isMaximized() || window.isFullScreen()) return window_state::maximised;
    return window_state::normal;
}

}  // namespace

void window_place::keep() {
    form_.window = state_of(window_);
    if (form_.window != window_state::normal) return;
    if (since_asked_.isValid()) {
        const bool arrived = window_.pos() == asked_;
        if (!arrived && since_asked_.elapsed() < longest_way) return;
        since_asked_.invalidate();
        // The model is more exact than whole pixels.
        if (arrived && window_.size() == QSize(kept_.width, kept_.height) / twips_per_pixel) return;
    }
    form_.place = {window_.x() * twips_per_pixel, window_.y() * twips_per_pixel,
                   window_.width() * twips_per_pixel, window_.height() * twips_per_pixel};
    kept_ = form_.place;
}

void window_place::apply() {
    if (form_.place == kept_) return;
    const QRect wanted(form_.place.left / twips_per_pixel, form_.place.top / twips_per_pixel,
                       form_.place.width / twips_per_pixel, form_.place.height / twips_per_pixel);
    bool on_a_screen = false;
    for (const QScreen* screen : QGuiApplication::screens())
        on_a_screen |= screen->availableGeometry().intersects(wanted);
    if (form_.place.width <= 0 || form_.place.height <= 0 || !on_a_screen) {
        keep();
        return;
    }
    kept_ = form_.place;
    if (window_.size() != wanted.size()) window_.resize(wanted.size());
    if (window_.pos() == wanted.topLeft()) return;
    asked_ = wanted.topLeft();
    since_asked_.start();
    window_.move(asked_);
}

}  // namespace corvane
