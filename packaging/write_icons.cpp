// Draws the program's icon in the sizes that a desktop looks for, below a folder with the layout of the icon
// theme "hicolor". Run by the build.
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("usage: corvane_icon_files DRAWING FOLDER\n", stderr);
        return 2;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(arguments[1]));
    if (!drawing.isValid()) {
        std::fprintf(stderr, "%s is no drawing\n", arguments[1]);
        return 1;
    }
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QImage image(size, size, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawing.render(&painter, QRectF(0, 0, size, size));
        painter.end();
        const QString folder =
            QStringLiteral("%1/hicolor/%2x%2/apps").arg(QString::fromLocal8Bit(arguments[2])).arg(size);
        if (QDir().mkpath(folder) && image.save(folder + QStringLiteral("/corvane.png"))) continue;
        std::fprintf(stderr, "%s cannot be written\n", folder.toLocal8Bit().constData());
        return 1;
    }
    return 0;
}
