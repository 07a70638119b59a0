// The program's drawings, recoloured by the palette. Used by the task column, the start page and the windows.
#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>

class QPainter;

namespace corvane {

// `name` is a file of icons/ without its suffix.
void paint_icon(QPainter& painter, const char* name, const QRectF& place, const QColor& stroke,
                const QColor& second_tone);

QIcon application_icon();

}  // namespace corvane
