// How a drawing of the program is held in it and painted; written twice, in linux/ and windows/. Used by
// icons.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QRectF>

class QPainter;

namespace corvane {

// Of the drawings among the resources, with its dot.
extern const char drawing_suffix[];

// Nothing is painted where `drawing` is none.
void paint_drawing(QPainter& painter, const QByteArray& drawing, const QRectF& place);
// With its two tones in these colours.
void paint_drawing(QPainter& painter, const QByteArray& drawing, const QRectF& place, const QColor& stroke,
                   const QColor& second_tone);

}  // namespace corvane
