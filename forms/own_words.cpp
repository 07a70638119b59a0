#include "forms/own_words.h"

#include <QCoreApplication>
#include <QVariant>
#include <string>

#include "core/language/translation.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {

constexpr char property[] = "corvane_translation";

std::string in_own_words(std::string_view text) {
    const translation* table = translation_in_use();
    return table != nullptr ? table->translated(text) : std::string(text);
}

}  // namespace

void use_translation(const translation* table) {
    QCoreApplication::instance()->setProperty(
        property, QVariant::fromValue(static_cast<void*>(const_cast<translation*>(table))));
}

const translation* translation_in_use() {
    const QCoreApplication* application = QCoreApplication::instance();
    return application ? static_cast<const translation*>(application->property(property).value<void*>())
                       : nullptr;
}

QString own_text(std::string_view text) {
    return screen_text(in_own_words(text));
}

QString own_lines(std::string_view text) {
    return screen_lines(in_own_words(text));
}

QString own_line(std::string_view text) {
    return screen_line(in_own_words(text));
}

QString own_caption(std::string_view caption, char letter) {
    if (letter == 0) return own_line(caption);
    return own_line(std::string(caption) + "(&" + letter + ")");
}

}  // namespace corvane
