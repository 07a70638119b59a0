#include "forms/icons.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>

#include "forms/icon_drawing.h"

namespace corvane {

namespace {

QByteArray drawing(const char* name) {
    QFile file(QStringLiteral(":/icons/%1%2").arg(QLatin1String(name), QLatin1String(drawing_suffix)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

void paint_icon(QPainter& painter, const char* name, const QRectF& place, const QColor& stroke,
                const QColor& second_tone) {
    paint_drawing(painter, drawing(name), place, stroke, second_tone);
}

QIcon application_icon() {
    const QByteArray own = drawing("corvane");
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap image(size, size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint_drawing(painter, own, QRectF(0, 0, size, size));
        icon.addPixmap(image);
    }
    return icon;
}

}  // namespace corvane
