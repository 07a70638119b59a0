// Colours of the front end, all derived from the palette, so that every window reads well in light and dark.
// Used by everything that paints by itself.
#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

namespace corvane {

bool is_dark(const QPalette& palette);

// `share` of `over` (0 to 1) laid over `base`.
QColor blend(const QColor& base, const QColor& over, double share);

// Text of lesser weight that still reads easily on the window's background.
QColor quiet_text(const QPalette& palette);
// Thin lines between areas.
QColor separator_line(const QPalette& palette);
// The colour that marks the next step, the focus and the second tone of the icons.
QColor accent(const QPalette& palette);

// The text colour of a cell for one of the values in cell_colour.
QColor cell_text_colour(std::uint32_t cell, const QPalette& palette);

// What stands behind the cells of a row: the base, a shade of it in every second row, a tint of the highlight
// in a selected one, which is gray while the keys go elsewhere.
QColor row_background(const QPalette& palette, bool selected, bool second, bool keys_here = true);

// Of the Web Content Accessibility Guidelines: 1 to 21; texts need 4.5.
double contrast(const QColor& a, const QColor& b);
constexpr double readable_contrast = 4.5;
// The colour itself where it reads easily on the background, else the nearest of its kind that does.
QColor readable_on(const QColor& text, const QColor& background);

// What is not done yet of a bar: its stated colour may be a bright one, which would be taken for an alarm.
QColor muted_bar(const QColor& stated, const QPalette& palette);

// From 0xBBGGRR.
QColor from_blue_green_red(std::int32_t colour);
std::int32_t to_blue_green_red(const QColor& colour);

}  // namespace corvane
