// The real windows over a program in a temporary folder.
#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <string>

#include "app/program.h"
#include "forms/main_window.h"
#include "forms/qt_user_interface.h"
#include "platform/linux/linux_file_system.h"
#include "tests/support/scripted_interface.h"

namespace corvane {

// Answers boxes at once in place of showing them; everything else is the real screen.
class quiet_interface : public qt_user_interface {
  public:
    std::vector<message> messages;
    box_answer show_message(const message& shown) override {
        messages.push_back(shown);
        return shown.buttons == box_buttons::ok ? box_answer::ok : box_answer::no;
    }
};

struct window_fixture {
    // `directories` are selected at start; without any the directory window opens.
    explicit window_fixture(const std::vector<std::string>& directories = {"data"});

    // Writes a file below the temporary folder.
    std::string add_file(const std::string& name, const std::string& content);
    std::string path(const std::string& name) const { return folder.path().toStdString() + "/" + name; }
    template <class Widget>
    Widget* widget(const char* name) const {
        return window.findChild<Widget*>(QString::fromUtf8(name));
    }

    QTemporaryDir folder;
    linux_file_system files;
    recording_shell desktop;
    quiet_interface screen;
    program corvane;
    Tavrel& form;
    main_window window;
};

}  // namespace corvane
