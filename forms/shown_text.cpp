#include "forms/shown_text.h"

#include "core/list_view.h"

namespace corvane {

QString shown_text(std::string_view text) {
    QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (text.find('\xEF') == std::string_view::npos) return shown;
    for (QChar& character : shown) {
        const ushort code = character.unicode();
        if (code == 0xF02A)
            character = QChar(u'*');
        else if (code > 0xF000 && code < 0xF020)
            character = QChar(static_cast<ushort>(0x2400 + (code - 0xF000)));
        else if (code == 0xF07F)
            character = QChar(static_cast<ushort>(0x2421));
    }
    return shown;
}

QColor colour_of(std::int32_t colour) {
    return QColor(colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

bool is_dark(const QPalette& palette) {
    return palette.color(QPalette::Base).lightness() < 128;
}

QColor cell_text_colour(std::uint32_t colour, const QPalette& palette) {
    if (colour == cell_colour::colour_text || colour == cell_colour::window_text)
        return palette.color(QPalette::Text);
    const bool dark = is_dark(palette);
    if (colour == cell_colour::colour_gray) return dark ? QColor(150, 150, 150) : QColor(118, 118, 118);
    const QColor stated = colour_of(static_cast<std::int32_t>(colour));
    // The stated colours are made for white; on dark ground they are lifted until they read.
    if (dark)
        return QColor::fromHsl(stated.hslHue(), stated.hslSaturation(), std::max(stated.lightness(), 192));
    return stated;
}

}  // namespace corvane
