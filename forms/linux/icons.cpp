#include "forms/icons.h"

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace corvane {

namespace {

QByteArray drawing(const char* name) {
    QFile file(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

void paint_icon(QPainter& painter, const char* name, const QRectF& place, const QColor& stroke,
                const QColor& second_tone) {
    QByteArray source = drawing(name);
    source.replace("#303030", stroke.name().toLatin1());
    source.replace("#2080c0", second_tone.name().toLatin1());
    QSvgRenderer(source).render(&painter, place);
}

QIcon application_icon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap image(size, size);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        QSvgRenderer(drawing("corvane")).render(&painter, QRectF(0, 0, size, size));
        icon.addPixmap(image);
    }
    return icon;
}

}  // namespace corvane
