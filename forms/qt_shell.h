// The desktop's services with the clipboard and the help viewer that only a program with windows has. Made by
// main.
#pragma once

#include <QClipboard>
#include <QGuiApplication>
#include <QString>
#include <functional>

#include "platform/desktop/desktop_shell.h"

namespace corvane {

class qt_shell : public desktop_shell {
  public:
    // Shows a page of the help by the name of its file.
    std::function<outcome(const QString& page)> show_help;

    outcome set_clipboard(const std::string& text) override {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        return outcome::success();
    }
    outcome open_help_topic(const std::string& help_file, const std::string& topic) override {
        if (show_help) return show_help(QString::fromStdString(topic));
        return desktop_shell::open_help_topic(help_file, topic);
    }
};

}  // namespace corvane
