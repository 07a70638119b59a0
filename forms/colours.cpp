#include "forms/colours.h"

#include <algorithm>
#include <cmath>

#include "core/model/list_view.h"

namespace corvane {

namespace {

int mixed(int base, int over, double share) {
    return static_cast<int>(std::lround(base + (over - base) * share));
}

// A part of a colour as the guidelines weigh it.
double linear(double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

bool is_dark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < palette.color(QPalette::Text).lightness();
}

QColor blend(const QColor& base, const QColor& over, double share) {
    return QColor(mixed(base.red(), over.red(), share), mixed(base.green(), over.green(), share),
                  mixed(base.blue(), over.blue(), share));
}

QColor quiet_text(const QPalette& palette) {
    return blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.7);
}

QColor separator_line(const QPalette& palette) {
    return blend(palette.color(QPalette::Window), palette.color(QPalette::WindowText), 0.18);
}

QColor accent(const QPalette& palette) {
    return is_dark(palette) ? QColor(104, 184, 240) : QColor(18, 110, 176);
}

QColor cell_text_colour(std::uint32_t cell, const QPalette& palette) {
    const bool dark = is_dark(palette);
    switch (cell) {
        case cell_colour::colour_archive:
            return dark ? QColor(196, 146, 255) : QColor(138, 43, 226);
        case cell_colour::colour_gray:
            return blend(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.58);
        case cell_colour::mark_red:
            return dark ? QColor(255, 118, 110) : QColor(206, 0, 0);
        case cell_colour::mark_blue:
            return dark ? QColor(122, 170, 255) : QColor(0, 0, 225);
        case cell_colour::colour_found:
            return dark ? QColor(255, 128, 255) : QColor(190, 0, 190);
        default:
            return palette.color(QPalette::Text);
    }
}

QColor row_background(const QPalette& palette, bool selected, bool second, bool keys_here) {
    const QColor base = palette.color(QPalette::Base);
    if (selected && !keys_here) return blend(base, palette.color(QPalette::Text), 0.14);
    // A tint in place of the full highlight: the mark colours must stay readable on it.
    if (selected) return blend(base, palette.color(QPalette::Highlight), is_dark(palette) ? 0.34 : 0.2);
    return second ? blend(base, palette.color(QPalette::Text), 0.03) : base;
}

double contrast(const QColor& a, const QColor& b) {
    const double light = std::max(luminance(a), luminance(b));
    const double dark = std::min(luminance(a), luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

QColor readable_on(const QColor& text, const QColor& background) {
    constexpr double step = 0.04;
    const QColor far = luminance(background) < 0.18 ? QColor(Qt::white) : QColor(Qt::black);
    for (double share = 0; share < 1; share += step)
        if (const QColor tried = blend(text, far, share); contrast(tried, background) >= readable_contrast)
            return tried;
    return far;
}

QColor muted_bar(const QColor& stated, const QPalette& palette) {
    return blend(palette.color(QPalette::Window), stated, 0.2);
}

QColor from_blue_green_red(std::int32_t colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

std::int32_t to_blue_green_red(const QColor& colour) {
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

}  // namespace corvane
