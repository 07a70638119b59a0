// The desktop program `corvane`.
#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "app/program.h"
#include "app/program_place.h"
#include "app/version.h"
#include "core/language/translation.h"
#include "core/settings/added_settings.h"
#include "core/settings/data_files.h"
#include "forms/fonts.h"
#include "forms/front_end.h"
#include "forms/help_window.h"
#include "forms/icons.h"
#include "forms/own_words.h"
#include "forms/qt_shell.h"
#include "forms/qt_user_interface.h"
#include "forms/start_arguments.h"
#include "platform/big_blocks.h"
#include "platform/desktop/desktop_attention.h"
#include "platform/desktop/desktop_instance_link.h"
#include "platform/desktop/desktop_power.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_text_encoding.h"
#include "platform/linux/linux_trash.h"
#include "platform/name_mapping.h"
#include "platform/own_process.h"

namespace {

bool is_set(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

bool asks_for_platform(int count, char** arguments) {
    for (int i = 1; i < count; ++i)
        if (!std::strcmp(arguments[i], "-platform") || !std::strcmp(arguments[i], "--platform")) return true;
    return false;
}

// By CORVANE_LANGUAGE, else as the options say.
bool speaks_english(corvane::file_system& files, const std::string& program_dir) {
    if (is_set("CORVANE_LANGUAGE"))
        return std::string_view(std::getenv("CORVANE_LANGUAGE")).starts_with("en");
    return corvane::read_added_settings(files, program_dir + corvane::data_file::added_settings).english;
}

// What needs no display; true when it was asked for.
bool is_told(const corvane::start_arguments& asked) {
    if (asked.help)
        std::fputs(corvane::start_usage, stdout);
    else if (asked.version)
        std::printf("corvane %s\n", corvane::program_version);
    return asked.help || asked.version;
}

}  // namespace

int main(int argc, char** argv) {
    corvane::return_big_blocks();
    corvane::keep_to_own_home();
    // Before there is a display; Qt's own options, which it takes below, do not count.
    if (is_told(corvane::read_start_arguments({argv + 1, static_cast<std::size_t>(std::max(argc - 1, 0))})))
        return 0;
    if (!is_set("DISPLAY") && !is_set("WAYLAND_DISPLAY") && !is_set("QT_QPA_PLATFORM") &&
        !asks_for_platform(argc, argv)) {
        std::fputs("corvane: 没有可用的显示 (DISPLAY 和 WAYLAND_DISPLAY 都未设置)\n", stderr);
        return 2;
    }
    QApplication application(argc, argv);
    const corvane::start_arguments given =
        corvane::read_start_arguments({argv + 1, static_cast<std::size_t>(argc - 1)});
    if (given.wrong) {
        std::fputs(corvane::start_usage, stderr);
        return 2;
    }
    QApplication::setApplicationName(QStringLiteral("Corvane"));
    QApplication::setDesktopFileName(QStringLiteral("corvane"));
    QApplication::setWindowIcon(corvane::application_icon());
    QApplication::setFont(corvane::interface_font(QApplication::font()));
    QApplication::setQuitOnLastWindowClosed(false);

    corvane::linux_file_system files;
    const corvane::program_place place = corvane::find_program_place(
        files, {given.program_dir, corvane::own_folder(), corvane::user_data_home(), corvane::own_user()});
    corvane::qt_shell desktop;
    corvane::desktop_power machine;
    corvane::qt_user_interface screen;
    corvane::linux_text_encoding encodings;
    corvane::desktop_instance_link instances;
    corvane::desktop_attention notice;
    corvane::linux_trash bin;
    corvane::program program({files, desktop, machine, screen, encodings, &instances, &notice, &bin}, place);
    program.open_with(given.directories);
    std::optional<corvane::translation> table;
    if (speaks_english(files, place.folder)) {
        corvane::use_translation(&table.emplace(corvane::english()));
        program.main_form().state.speaks_english = true;
    }
    corvane::front_end windows(program, screen);
    corvane::help_window help(corvane::help_folder(QString::fromStdString(corvane::to_raw(place.shared))));
    desktop.show_help = [&help](const QString& page) { return help.open(page); };
    // Inside the event loop, so that a program closed while it starts leaves the loop as well.
    QTimer::singleShot(0, &application, [&windows, &program] {
        if (!windows.start()) QApplication::exit(program.passed_on() ? 0 : 1);
    });
    return QApplication::exec();
}
