#include "forms/preview_picture.h"

#include <QDeadlineTimer>
#include <QIODevice>
#include <QImageReader>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <cstring>

namespace corvane {

namespace {

constexpr int widest = 2400;  // of what is kept of a picture
// A decoder that goes line by line needs little memory, but time. One that comes back to all lines again and
// again holds the whole picture.
constexpr double most_pixels = 60e6;
constexpr double most_pixels_reduced = 110e6;
constexpr double most_pixels_held = 30e6;
constexpr double largest_zoom = 16;
constexpr double wheel_step = 1.25;

// The bytes of a picture, which end early when its decoder has had its time: a small file can ask for hours
// of work.
class timed_source : public QIODevice {
  public:
    timed_source(const QByteArray& bytes, const std::function<bool()>& given_up, int milliseconds)
        : bytes_(bytes), given_up_(given_up), end_(milliseconds) {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    qint64 size() const override { return bytes_.size(); }
    bool seek(qint64 place) override {
        at_ = place;
        return QIODevice::seek(place);
    }
    bool ran_out() const { return ran_out_; }

  protected:
    qint64 readData(char* out, qint64 most) override {
        ran_out_ = ran_out_ || end_.hasExpired() || given_up_();
        if (ran_out_) return -1;
        const qint64 count = std::clamp<qint64>(bytes_.size() - at_, 0, most);
        std::memcpy(out, bytes_.constData() + at_, static_cast<std::size_t>(count));
        at_ += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    const QByteArray& bytes_;
    const std::function<bool()>& given_up_;
    QDeadlineTimer end_;
    qint64 at_ = 0;
    bool ran_out_ = false;
};

// A JPEG whose parts each go over the whole picture.
bool is_progressive(const QByteArray& jpeg) {
    const auto byte = [&jpeg](qsizetype place) { return static_cast<unsigned char>(jpeg.at(place)); };
    for (qsizetype at = 2; at + 4 <= jpeg.size() && byte(at) == 0xFF;) {
        const unsigned mark = byte(at + 1);
        if (mark == 0xC2 || mark == 0xC6 || mark == 0xCA || mark == 0xCE) return true;
        if (mark == 0xDA) return false;
        at += mark == 0xFF ? 1 : 2 + (byte(at + 2) << 8 | byte(at + 3));
    }
    return false;
}

double bound_of(const QByteArray& bytes, const char* format) {
    if (std::strcmp(format, "jpeg") != 0) return most_pixels;
    return is_progressive(bytes) ? most_pixels_held : most_pixels_reduced;
}

}  // namespace

decoded_picture decode_picture(const QByteArray& bytes, const char* format,
                               const std::function<bool()>& given_up, int milliseconds) {
    timed_source source(bytes, given_up, milliseconds);
    QImageReader reader(&source, format);
    // What the first bytes say is what decodes it: no other decoder gets a try.
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    reader.setAutoTransform(true);
    const QSize stored = reader.size();
    const double pixels = static_cast<double>(stored.width()) * stored.height();
    if (!stored.isValid() || stored.isEmpty() || pixels > bound_of(bytes, format)) return {};
    if (stored.width() > widest || stored.height() > widest)
        reader.setScaledSize(stored.scaled(widest, widest, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    const bool turned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    decoded_picture decoded;
    decoded.full_size = turned ? stored.transposed() : stored;
    decoded.image = reader.read();
    // What has come before the end is no picture of the file.
    if (source.ran_out()) decoded.image = {};
    return decoded;
}

picture_view::picture_view(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::ClickFocus);
    setMinimumSize(60, 40);
}

void picture_view::show_picture(const QImage& image) {
    image_ = image;
    update();
}

void picture_view::show_part(const picture_part& part) {
    part_ = part;
    update();
}

double picture_view::scale() const {
    const double fit = std::min(static_cast<double>(width()) / std::max(image_.width(), 1),
                                static_cast<double>(height()) / std::max(image_.height(), 1));
    return fit * part_.zoom;
}

void picture_view::choose(picture_part part) {
    part.zoom = std::clamp(part.zoom, 1.0, largest_zoom);
    const double half = 0.5 / part.zoom;
    part.centre =
        QPointF(std::clamp(part.centre.x(), half, 1 - half), std::clamp(part.centre.y(), half, 1 - half));
    show_part(part);
    if (changed) changed(part);
}

void picture_view::paintEvent(QPaintEvent*) {
    if (image_.isNull()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const double pixel = scale();
    const QSizeF size(image_.width() * pixel, image_.height() * pixel);
    const QPointF corner(width() / 2.0 - size.width() * part_.centre.x(),
                         height() / 2.0 - size.height() * part_.centre.y());
    painter.drawImage(QRectF(corner, size), image_);
}

void picture_view::wheelEvent(QWheelEvent* event) {
    picture_part part = part_;
    part.zoom *= std::pow(wheel_step, event->angleDelta().y() / 120.0);
    choose(part);
    event->accept();
}

void picture_view::mousePressEvent(QMouseEvent* event) {
    QWidget::mousePressEvent(event);
    grip_ = event->position();
    event->accept();
}

void picture_view::mouseMoveEvent(QMouseEvent* event) {
    if (image_.isNull() || !event->buttons().testFlag(Qt::LeftButton)) return;
    const QPointF moved = event->position() - grip_;
    grip_ = event->position();
    picture_part part = part_;
    part.centre -= QPointF(moved.x() / (image_.width() * scale()), moved.y() / (image_.height() * scale()));
    choose(part);
}

void picture_view::mouseDoubleClickEvent(QMouseEvent*) {
    choose({});
}

void picture_view::keyPressEvent(QKeyEvent* event) {
    picture_part part = part_;
    if (event->key() == Qt::Key_Plus)
        part.zoom *= wheel_step;
    else if (event->key() == Qt::Key_Minus)
        part.zoom /= wheel_step;
    else
        return QWidget::keyPressEvent(event);
    choose(part);
}

}  // namespace corvane
