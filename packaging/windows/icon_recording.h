// A drawing of forms/icons as what paint_recorded plays. Used by record_icons and its test.
#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QPainter>
#include <QPicture>
#include <QSvgRenderer>

#include "forms/recorded_icon.h"

namespace corvane {

// Empty where `drawing` is no SVG.
inline QByteArray record_icon(QByteArray drawing) {
    drawing.replace(drawn_stroke, recorded_stroke).replace(drawn_second_tone, recorded_second_tone);
    QSvgRenderer renderer(drawing);
    if (!renderer.isValid()) return {};
    QPicture strokes;
    QPainter painter(&strokes);
    renderer.render(&painter, QRectF(0, 0, recorded_size, recorded_size));
    painter.end();
    return QByteArray(strokes.data(), static_cast<qsizetype>(strokes.size()));
}

}  // namespace corvane
