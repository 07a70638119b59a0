#include "forms/screen_text.h"

namespace corvane {

namespace {

constexpr char16_t first_mapped = 0xF001;
constexpr char16_t last_mapped = 0xF0FF;

// The sign that stands for a mapped byte: '*' and other print as they are, control bytes as their pictures.
char16_t visible_sign(char16_t mapped) {
    const auto byte = static_cast<char16_t>(mapped & 0xFF);
    if (byte < 0x20) return static_cast<char16_t>(0x2400 + byte);
    if (byte == 0x7F) return 0x2421;
    return byte < 0x7F ? byte : mapped;
}

}  // namespace

QString screen_text(std::string_view text) {
    QString shown = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    for (qsizetype at = 0; at < shown.size(); ++at) {
        const char16_t unit = shown.at(at).unicode();
        if (unit >= first_mapped && unit <= last_mapped) shown[at] = QChar(visible_sign(unit));
    }
    return shown;
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
