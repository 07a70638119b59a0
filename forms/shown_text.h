// The program's text as the screen shows it, and colours and lengths in the toolkit's units. Used by every
// window.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <cstdint>
#include <string_view>

namespace corvane {

// Bytes that are no UTF-8 become replacement marks; characters that stand for control bytes and "*" become
// visible ones. Only for showing: acts use the bytes.
QString shown_text(std::string_view text);

// 15 twips are a pixel at 96 dots an inch; the toolkit scales pixels.
constexpr int twips_per_pixel = 15;
constexpr int pixels(int twips) {
    return twips / twips_per_pixel;
}
constexpr int twips(int device_pixels) {
    return device_pixels * twips_per_pixel;
}

// 0xBBGGRR.
QColor colour_of(std::int32_t colour);

// The colour of a cell's text on the palette's background, readable on dark ones too.
QColor cell_text_colour(std::uint32_t colour, const QPalette& palette);
bool is_dark(const QPalette& palette);

}  // namespace corvane
