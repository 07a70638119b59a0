#include "forms/fonts.h"

#include <QFontDatabase>
#include <QStringList>
#include <algorithm>

namespace corvane {

namespace {

constexpr double smallest_size = 10;  // points; Chinese below it is hard to read

QStringList with_chinese(QStringList families, std::initializer_list<const char*> chinese) {
    const QStringList there = QFontDatabase::families(QFontDatabase::SimplifiedChinese);
    for (const char* family : chinese) {
        const QString name = QString::fromUtf8(family);
        if (there.contains(name) && !families.contains(name)) families.append(name);
    }
    return families;
}

}  // namespace

QFont interface_font(QFont desktop_font) {
    desktop_font.setFamilies(
        with_chinese({desktop_font.family()},
                     {"Noto Sans CJK SC", "Noto Sans SC", "Source Han Sans SC", "Microsoft YaHei UI",
                      "Microsoft YaHei", "WenQuanYi Micro Hei", "WenQuanYi Zen Hei"}));
    if (desktop_font.pointSizeF() > 0)
        desktop_font.setPointSizeF(std::max(desktop_font.pointSizeF(), smallest_size));
    return desktop_font;
}

QFont even_font() {
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFamilies(
        with_chinese({font.family()}, {"Noto Sans Mono CJK SC", "WenQuanYi Micro Hei Mono",
                                       "WenQuanYi Zen Hei Mono", "NSimSun", "Noto Sans CJK SC"}));
    font.setPointSizeF(std::max(font.pointSizeF(), smallest_size));
    font.setStyleHint(QFont::Monospace);
    return font;
}

}  // namespace corvane
