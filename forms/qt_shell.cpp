#include "forms/qt_shell.h"

#include <QClipboard>
#include <QGuiApplication>

namespace corvane {

shell_result qt_shell::set_clipboard(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    return shell_result::success();
}

}  // namespace corvane
