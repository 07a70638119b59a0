#include "forms/tip_box.h"

#include <QEvent>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "forms/mirror.h"
#include "forms/own_words.h"
#include "forms/screen_text.h"
#include "forms/window_place.h"

namespace corvane {

namespace {
// Of several lines each takes 0.7 of the height of one, so one alone has room above and below.
constexpr double line_share = 0.7;
constexpr int frame = 4;  // pixels around the text
}  // namespace

tip_box::tip_box(Tavrel& form, QWidget* parent) : QLabel(parent), form_(form) {
    name_after(this, form.tiptext);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignCenter);
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    // The pointer stays with the picture below.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    measure();
    hide();
}

void tip_box::measure() {
    const QFontMetrics metrics = fontMetrics();
    // The width of one byte: a Chinese character is two.
    const int half = (metrics.horizontalAdvance(QStringLiteral("中")) + 1) / 2;
    form_.hover.tip_char_width = static_cast<std::int16_t>(half * twips_per_pixel);
    form_.hover.tip_line_height =
        static_cast<std::int16_t>(std::ceil((metrics.lineSpacing() + frame) / line_share) * twips_per_pixel);
}

void tip_box::sync() {
    const control& model = form_.tiptext;
    if (!model.visible) return hide();
    setText(own_text(model.text));
    QRect place(model.place.left / twips_per_pixel, model.place.top / twips_per_pixel,
                model.place.width / twips_per_pixel + 2 * frame, model.place.height / twips_per_pixel);
    // The model reckons with forty bytes a line; lines that end before that take more height.
    place.setHeight(std::max(place.height(), heightForWidth(place.width()) + frame));
    place.moveTop(std::clamp(place.top(), 0, std::max(0, parentWidget()->height() - place.height())));
    setGeometry(place);
    show();
    raise();
}

void tip_box::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange) measure();
}

}  // namespace corvane
