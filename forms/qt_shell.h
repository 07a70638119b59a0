// The desktop's services with the clipboard that only a program with windows has. Made by main.
#pragma once

#include <QClipboard>
#include <QGuiApplication>
#include <QString>

#include "platform/desktop/desktop_shell.h"

namespace corvane {

class qt_shell : public desktop_shell {
  public:
    outcome set_clipboard(const std::string& text) override {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        return outcome::success();
    }
};

}  // namespace corvane
