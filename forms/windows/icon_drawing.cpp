#include "forms/icon_drawing.h"

#include "forms/recorded_icon.h"

namespace corvane {

const char drawing_suffix[] = ".strokes";

void paint_drawing(QPainter& painter, const QByteArray& drawing, const QRectF& place) {
    paint_recorded(painter, drawing, place);
}

void paint_drawing(QPainter& painter, const QByteArray& drawing, const QRectF& place, const QColor& stroke,
                   const QColor& second_tone) {
    paint_recorded(painter, drawing, place, stroke, second_tone);
}

}  // namespace corvane
