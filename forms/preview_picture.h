// Pictures for the preview: decoding within bounds, and two views that show the same part at the same zoom.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QString>
#include <QWidget>
#include <functional>

namespace corvane {

struct decoded_picture {
    QImage image;     // turned as its file says, at most a few thousand pixels wide and high; null on failure
    QSize full_size;  // of the picture itself, turned
};

// `format` is one of picture_format. A picture that says it is larger than can be decoded in a moment gives
// none, and so does one that is damaged, takes longer than `milliseconds`, or is not wanted any more when
// `given_up` says so. May be called on any thread.
decoded_picture decode_picture(
    const QByteArray& bytes, const char* format, const std::function<bool()>& given_up = [] { return false; },
    int milliseconds = 8000);

// Which part of a picture is seen, in shares of its size.
struct picture_part {
    double zoom = 1;  // 1: the whole picture fits
    QPointF centre{0.5, 0.5};
};

class picture_view : public QWidget {
  public:
    explicit picture_view(QWidget* parent);

    void show_picture(const QImage& image);
    void show_part(const picture_part& part);
    const picture_part& part() const { return part_; }
    const QImage& image() const { return image_; }

    // The user has chosen another part: with the wheel, by dragging, by a double click (all of it), with +
    // and -.
    std::function<void(const picture_part& part)> changed;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // Pixels of the view that one pixel of the image takes.
    double scale() const;
    void choose(picture_part part);

    QImage image_;
    picture_part part_;
    QPointF grip_;
};

}  // namespace corvane
