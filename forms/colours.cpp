#include "forms/colours.h"

#include <cmath>

#include "core/model/list_view.h"

namespace corvane {

namespace {

int mixed(int base, int over, double share) {
    return static_cast<int>(std::lround(base + (over - base) * share));
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

QColor from_blue_green_red(std::int32_t colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

std::int32_t to_blue_green_red(const QColor& colour) {
    return colour.red() | colour.green() << 8 | colour.blue() << 16;
}

}  // namespace corvane
