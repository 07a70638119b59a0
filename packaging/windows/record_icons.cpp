// record_icons FOLDER DRAWING...: records each drawing into the folder, as NAME.strokes. Runs where the
// program for Windows is built, for there is no QtSvg in it.
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <cstdio>

#include "packaging/windows/icon_recording.h"

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    for (int i = 2; i < argc; ++i) {
        const QString name = QFile::decodeName(argv[i]);
        QFile drawing(name);
        const QByteArray strokes =
            drawing.open(QIODevice::ReadOnly) ? corvane::record_icon(drawing.readAll()) : QByteArray();
        QFile recording(
            QStringLiteral("%1/%2.strokes").arg(QFile::decodeName(argv[1]), QFileInfo(name).baseName()));
        if (strokes.isEmpty() || !recording.open(QIODevice::WriteOnly) ||
            recording.write(strokes) != strokes.size()) {
            std::fprintf(stderr, "%s: not recorded\n", argv[i]);
            return 1;
        }
    }
    return 0;
}
