#include "forms/screen_text.h"

#include "core/text/shown_text.h"

namespace corvane {

QString screen_text(std::string_view text) {
    const std::string shown = shown_text(text);
    return QString::fromUtf8(shown.data(), static_cast<qsizetype>(shown.size()));
}

QString screen_lines(std::string_view text) {
    return screen_text(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

QString screen_line(std::string_view text) {
    QString shown = screen_text(text);
    for (qsizetype at = 0; at < shown.size(); ++at)
        if (shown.at(at).unicode() < 0x20) shown[at] = QLatin1Char(' ');
    return shown;
}

}  // namespace corvane
