// The drawings as the program for Windows plays them, held against what QtSvg draws.
#include "forms/recorded_icon.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>

#include "forms/icons.h"
#include "packaging/windows/icon_recording.h"

namespace corvane {
namespace {

constexpr QColor stroke(20, 60, 100);
constexpr QColor second(230, 140, 30);

QByteArray drawing(const QString& name) {
    QFile file(QStringLiteral(":/icons/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What `paint` draws into a square of that many pixels a unit, on a coloured ground.
template <typename Paint>
QImage drawn(double ratio, Paint paint) {
    QImage image(static_cast<int>(48 * ratio), static_cast<int>(48 * ratio), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(QColor(240, 244, 250));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    return image;
}

int greatest_difference(const QImage& a, const QImage& b) {
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb one = a.pixel(x, y), other = b.pixel(x, y);
            for (const int apart :
                 {qRed(one) - qRed(other), qGreen(one) - qGreen(other), qBlue(one) - qBlue(other)})
                greatest = std::max(greatest, std::abs(apart));
        }
    return greatest;
}

TEST(recorded_icon, looks_as_the_drawing_at_every_scale_and_place) {
    const QStringList names = QDir(QStringLiteral(":/icons")).entryList();
    EXPECT_EQ(names.size(), 10);
    for (const QString& name : names) {
        const std::string bare = name.chopped(4).toStdString();
        const QByteArray recording = record_icon(drawing(name));
        ASSERT_FALSE(recording.isEmpty()) << bare;
        for (const double ratio : {1.0, 1.25, 1.5, 2.0})
            for (const QRectF place : {QRectF(4, 4, 24, 24), QRectF(7.5, 6.25, 30, 30)}) {
                const QImage expected = drawn(ratio, [&](QPainter& painter) {
                    paint_icon(painter, bare.c_str(), place, stroke, second);
                });
                const QImage played = drawn(ratio, [&](QPainter& painter) {
                    if (bare == "corvane")
                        paint_recorded(painter, recording, place);
                    else
                        paint_recorded(painter, recording, place, stroke, second);
                });
                EXPECT_LE(greatest_difference(expected, played), 4)
                    << bare << ' ' << ratio << ' ' << place.x();
                EXPECT_GT(greatest_difference(played, drawn(ratio, [](QPainter&) {})), 100) << bare;
            }
    }
}

TEST(recorded_icon, the_second_tone_stays_above_the_first) {
    const QByteArray crossed =
        "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'><rect width='8' height='8' "
        "fill='#303030'/>"
        "<rect x='2' y='2' width='4' height='4' fill='#2080c0'/></svg>";
    const QByteArray recording = record_icon(crossed);
    const QImage image = drawn(1, [&](QPainter& painter) {
        paint_recorded(painter, recording, QRectF(0, 0, 48, 48), stroke, second);
    });
    EXPECT_EQ(image.pixelColor(24, 24), second);
    EXPECT_EQ(image.pixelColor(3, 3), stroke);
}

TEST(recorded_icon, what_is_no_recording_draws_nothing) {
    EXPECT_TRUE(record_icon("no drawing").isEmpty());
    const QImage empty = drawn(1, [](QPainter&) {});
    for (const QByteArray& none : {QByteArray(), QByteArray("QPIC"), QByteArray(400, 'x')})
        EXPECT_EQ(drawn(1,
                        [&](QPainter& painter) {
                            paint_recorded(painter, none, QRectF(0, 0, 24, 24), stroke, second);
                        }),
                  empty);
}

}  // namespace
}  // namespace corvane
