#include "forms/qt_shell.h"

#include <QClipboard>
#include <QGuiApplication>

namespace corvane {

outcome qt_shell::set_clipboard(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    return outcome::success();
}

outcome qt_shell::open_help_topic(const std::string& help_file, const std::string& topic) {
    if (show_help) return show_help(QString::fromStdString(topic));
    return desktop_->open_help_topic(help_file, topic);
}

}  // namespace corvane
