#include "forms/help_browser.h"

#include <QDir>
#include <QEvent>
#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "core/model/list_view.h"
#include "forms/colours.h"

namespace corvane {

namespace {

constexpr double smallest_text = 7;
constexpr double largest_text = 32;
constexpr double page_margin = 18;
constexpr int narrowest_picture = 240;

QString rule(const char* selector, const QColor& colour, const char* more = "") {
    return QStringLiteral("%1 { color: %2; %3 }\n")
        .arg(QLatin1String(selector), colour.name(), QLatin1String(more));
}

}  // namespace

help_browser::help_browser(QString folder, QWidget* parent)
    : QTextBrowser(parent), folder_(std::move(folder)) {
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(page_margin);
    // Always there, so that a page does not grow wider than what is left beside it.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void help_browser::set_text_size(double points) {
    QFont larger = font();
    larger.setPointSizeF(std::clamp(points, smallest_text, largest_text));
    setFont(larger);
}

double help_browser::text_size() const {
    return font().pointSizeF();
}

void help_browser::mark(const QString& word) {
    QList<QTextEdit::ExtraSelection> marks;
    if (!word.isEmpty()) {
        const QColor back = blend(palette().color(QPalette::Base), palette().color(QPalette::Highlight), 0.4);
        for (QTextCursor at = document()->find(word); !at.isNull(); at = document()->find(word, at)) {
            QTextCharFormat marked;
            marked.setBackground(back);
            marks.append({at, marked});
        }
    }
    setExtraSelections(marks);
    if (marks.isEmpty()) return;
    QTextCursor first = marks.front().cursor;
    first.clearSelection();
    setTextCursor(first);
    ensureCursorVisible();
}

// The pages name their classes by meaning; the colours are those that the list paints with.
QString help_browser::style_sheet() const {
    const QPalette& colours = palette();
    const QColor head = blend(colours.color(QPalette::Base), colours.color(QPalette::Text), 0.1);
    const QColor line = blend(colours.color(QPalette::Base), colours.color(QPalette::Text), 0.25);
    QString sheet = rule("a", accent(colours));
    sheet += rule("h1, h2, h3", colours.color(QPalette::Text));
    sheet += rule(".mark_red", cell_text_colour(cell_colour::mark_red, colours), "font-weight: bold;");
    sheet += rule(".mark_blue", cell_text_colour(cell_colour::mark_blue, colours), "font-weight: bold;");
    sheet += rule(".archive", cell_text_colour(cell_colour::colour_archive, colours), "font-weight: bold;");
    sheet += rule(".gray", cell_text_colour(cell_colour::colour_gray, colours), "font-weight: bold;");
    sheet += rule(".found", cell_text_colour(cell_colour::colour_found, colours), "font-weight: bold;");
    sheet += rule(".way", quiet_text(colours));
    sheet += QStringLiteral(
                 "th { background-color: %1; text-align: left; }\n"
                 "th, td { border: 1px solid %2; }\n"
                 "table { border-collapse: collapse; }\n"
                 ".note { background-color: %1; }\n"
                 "code, pre { font-family: monospace; }\n")
                 .arg(head.name(), line.name());
    return sheet;
}

// A page names the picture for light colours; the one for dark ones stands beside it.
QVariant help_browser::picture(const QUrl& name) const {
    QString path =
        name.isRelative() ? QDir::cleanPath(QDir(folder_).filePath(name.path())) : name.toLocalFile();
    if (is_dark(palette())) path.replace(QLatin1String("_light_"), QLatin1String("_dark_"));
    QImage image(path);
    if (image.isNull()) {
        // The words of the page stand alone where no pictures were made.
        image = QImage(1, 1, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
    }
    // Fitted here: the page itself would leave out pixels. On a fine screen more of them are shown.
    const int room = viewport()->width() - 2 * static_cast<int>(page_margin) - 8;
    const int wide = std::min(image.width(), std::max(room, narrowest_picture));
    const double ratio = devicePixelRatioF();
    image = image.scaledToWidth(std::max(1, qRound(wide * ratio)), Qt::SmoothTransformation);
    image.setDevicePixelRatio(ratio);
    return image;
}

QVariant help_browser::loadResource(int type, const QUrl& name) {
    if (type == QTextDocument::StyleSheetResource) return style_sheet();
    if (type == QTextDocument::ImageResource) return picture(name);
    return QTextBrowser::loadResource(type, name);
}

void help_browser::reload_in_place() {
    const int place = verticalScrollBar()->value();
    document()->clear();
    reload();
    verticalScrollBar()->setValue(place);
}

void help_browser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !source().isEmpty()) reload_in_place();
}

}  // namespace corvane
