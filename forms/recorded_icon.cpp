#include "forms/recorded_icon.h"

#include <QImage>
#include <QPainter>
#include <QPicture>
#include <QTransform>

namespace corvane {

namespace {

// Red and green of a pixel are what the two tones have in it, one above the other as they were drawn.
void recolour(QImage& image, const QColor& stroke, const QColor& second_tone) {
    const QRgb first = qPremultiply(stroke.rgba());
    const QRgb second = qPremultiply(second_tone.rgba());
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int of_first = qRed(line[x]);
            const int of_second = qGreen(line[x]);
            const auto mixed = [&](int a, int b) { return (a * of_first + b * of_second + 127) / 255; };
            line[x] = qRgba(mixed(qRed(first), qRed(second)), mixed(qGreen(first), qGreen(second)),
                            mixed(qBlue(first), qBlue(second)), mixed(qAlpha(first), qAlpha(second)));
        }
    }
}

}  // namespace

void paint_recorded(QPainter& painter, const QByteArray& recording, const QRectF& place) {
    QPicture strokes;
    strokes.setData(recording.constData(), static_cast<uint>(recording.size()));
    painter.save();
    painter.translate(place.topLeft());
    painter.scale(place.width() / recorded_size, place.height() / recorded_size);
    strokes.play(&painter);
    painter.restore();
}

void paint_recorded(QPainter& painter, const QByteArray& recording, const QRectF& place, const QColor& stroke,
                    const QColor& second_tone) {
    // In the pixels of the device, so that nothing is scaled afterwards.
    const QTransform to_device = painter.deviceTransform();
    const QRectF exact = to_device.mapRect(place);
    const QRect pixels = exact.toAlignedRect();
    if (pixels.isEmpty()) return;
    QImage image(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter player(&image);
    player.setRenderHints(painter.renderHints());
    paint_recorded(player, recording, exact.translated(-pixels.topLeft()));
    player.end();
    recolour(image, stroke, second_tone);
    painter.save();
    painter.setTransform(to_device.inverted(), true);
    painter.drawImage(pixels.topLeft(), image);
    painter.restore();
}

}  // namespace corvane
