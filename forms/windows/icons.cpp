#include "forms/icons.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>

#include "forms/recorded_icon.h"

namespace corvane {

namespace {

QByteArray recording(const char* name) {
    QFile file(QStringLiteral(":/icons/%1.strokes").arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

void paint_icon(QPainter& painter, const char* name, const QRectF& place, const QColor& stroke,
                const QColor& second_tone) {
    paint_recorded(painter, recording(name), place, stroke, second_tone);
}

QIcon application_icon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap image(size, size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paint_recorded(painter, recording("corvane"), QRectF(0, 0, size, size));
        icon.addPixmap(image);
    }
    return icon;
}

}  // namespace corvane
