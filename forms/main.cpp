// corvane: the desktop program.
#include <QApplication>
#include <QIcon>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "app/program.h"
#include "forms/main_window.h"
#include "forms/qt_shell.h"
#include "forms/qt_user_interface.h"
#include "platform/desktop/desktop_power.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/name_mapping.h"

namespace {

bool has_display() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && *value != '\0') return true;
    }
    return false;
}

// The folder of the data files: that of the executable, or the one after --program-dir.
std::string program_directory(int count, char** arguments) {
    std::error_code error;
    std::string directory = std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string();
    for (int i = 1; i + 1 < count; ++i)
        if (std::strcmp(arguments[i], "--program-dir") == 0)
            directory = std::filesystem::absolute(arguments[i + 1], error).lexically_normal().string();
    if (directory.empty() || directory.back() != '/') directory += '/';
    return corvane::to_text(directory);
}

}  // namespace

int main(int count, char** arguments) {
    if (!has_display()) {
        std::fputs("corvane: no display. corvane-console works without one.\n", stderr);
        return 2;
    }
    const std::string program_dir = program_directory(count, arguments);
    QApplication application(count, arguments);
    QApplication::setApplicationName(QStringLiteral("Corvane"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/corvane.svg")));
    QApplication::setQuitOnLastWindowClosed(false);

    corvane::linux_file_system files;
    corvane::qt_shell desktop;
    corvane::desktop_power machine;
    corvane::qt_user_interface screen;
    corvane::program program({files, desktop, machine, screen}, program_dir);
    corvane::main_window window(program, screen);
    if (!program.start()) return 1;
    window.sync();
    if (screen.ended()) return 0;
    return QApplication::exec();
}
