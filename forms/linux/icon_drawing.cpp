#include "forms/icon_drawing.h"

#include <QSvgRenderer>

#include "forms/recorded_icon.h"

namespace corvane {

const char drawing_suffix[] = ".svg";

void paint_drawing(QPainter& painter, const QByteArray& drawing, const QRectF& place) {
    QSvgRenderer(drawing).render(&painter, place);
}

void paint_drawing(QPainter& painter, const QByteArray& drawing, const QRectF& place, const QColor& stroke,
                   const QColor& second_tone) {
    QByteArray recoloured = drawing;
    recoloured.replace(drawn_stroke, stroke.name().toLatin1());
    recoloured.replace(drawn_second_tone, second_tone.name().toLatin1());
    paint_drawing(painter, recoloured, place);
}

}  // namespace corvane
