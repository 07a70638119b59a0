// Drawings of icons/ as the strokes that QtSvg makes of them, for a system where that library is not linked:
// packaging/windows/record_icons writes them while the program is built, windows/icon_drawing plays them.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QRectF>

class QPainter;

namespace corvane {

// A drawing is recorded in a square of this size.
inline constexpr int recorded_size = 256;
// The colours of icons/, and those that a recording has in their place.
inline constexpr char drawn_stroke[] = "#303030";
inline constexpr char drawn_second_tone[] = "#2080c0";
inline constexpr char recorded_stroke[] = "#ff0000";
inline constexpr char recorded_second_tone[] = "#00ff00";

// Plays a recording of those two colours in these two. Nothing is drawn where `recording` is none.
void paint_recorded(QPainter& painter, const QByteArray& recording, const QRectF& place, const QColor& stroke,
                    const QColor& second_tone);
// Plays a recording as it is.
void paint_recorded(QPainter& painter, const QByteArray& recording, const QRectF& place);

}  // namespace corvane
