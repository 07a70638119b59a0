// The desktop program `corvane`.
#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/program.h"
#include "app/program_place.h"
#include "app/trace.h"
#include "app/version.h"
#include "core/language/translation.h"
#include "core/settings/added_settings.h"
#include "core/settings/data_files.h"
#include "core/text/path_text.h"
#include "forms/fonts.h"
#include "forms/front_end.h"
#include "forms/help_window.h"
#include "forms/icons.h"
#include "forms/own_display.h"
#include "forms/own_words.h"
#include "forms/path_names.h"
#include "forms/qt_shell.h"
#include "forms/qt_user_interface.h"
#include "forms/start_arguments.h"
#include "platform/big_blocks.h"
#include "platform/machine.h"
#include "platform/own_process.h"
#include "platform/standard_streams.h"

namespace {

// By CORVANE_LANGUAGE, else as the options say.
bool speaks_english(corvane::file_system& files, const std::string& program_dir) {
    const char* asked = std::getenv("CORVANE_LANGUAGE");
    if (asked != nullptr && *asked != '\0') return std::string_view(asked).starts_with("en");
    return corvane::read_added_settings(files, program_dir + corvane::data_file::added_settings).english;
}

// What needs no display; true when it was asked for.
bool is_told(const corvane::start_arguments& asked) {
    if (!asked.help && !asked.version) return false;
    const corvane::joined_terminal terminal;
    if (asked.help)
        std::fputs(corvane::start_usage, stdout);
    else
        std::printf("corvane %s\n", corvane::program_version);
    return true;
}

corvane::program_place place_of(corvane::file_system& files, const corvane::start_arguments& given) {
    std::string asked;
    if (!given.program_dir.empty()) asked = corvane::with_separator(given.program_dir, files.separator());
    return corvane::find_program_place(
        files, {asked, corvane::own_folder(), corvane::user_data_home(), corvane::own_user()});
}

}  // namespace

int main(int argc, char** argv) {
    corvane::return_big_blocks();
    corvane::keep_to_own_home();
    // As other programs see them, whatever main's have lost; Qt takes its own options out of them.
    std::vector<std::string> words = corvane::own_arguments(argc, argv);
    std::string program_name = argc > 0 ? argv[0] : "corvane";
    std::vector<char*> arguments{program_name.data()};
    for (std::string& word : words) arguments.push_back(word.data());
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    const auto given_words = [&] {
        return std::span<const char* const>(arguments.data() + 1, static_cast<std::size_t>(count - 1));
    };
    // Before there is a display; Qt's own options, which it takes below, do not count.
    if (is_told(corvane::read_start_arguments(given_words()))) return 0;
    if (!corvane::has_display(given_words())) return 2;
    QApplication application(count, arguments.data());
    const corvane::start_arguments given = corvane::read_start_arguments(given_words());
    if (given.wrong) {
        const corvane::joined_terminal terminal;
        std::fputs(corvane::start_usage, stderr);
        return 2;
    }
    std::optional<corvane::joined_terminal> traced;
    if (corvane::trace_is_asked()) traced.emplace();
    QApplication::setApplicationName(QStringLiteral("Corvane"));
    QApplication::setDesktopFileName(QStringLiteral("corvane"));
    QApplication::setWindowIcon(corvane::application_icon());
    QApplication::setFont(corvane::interface_font(QApplication::font()));
    QApplication::setQuitOnLastWindowClosed(false);

    const std::unique_ptr<corvane::file_system> files = corvane::make_file_system();
    const corvane::program_place place = place_of(*files, given);
    corvane::qt_shell desktop(corvane::make_shell());
    const std::unique_ptr<corvane::power> machine = corvane::make_power();
    corvane::qt_user_interface screen;
    const std::unique_ptr<corvane::text_encoding> encodings = corvane::make_text_encoding();
    const std::unique_ptr<corvane::instance_link> instances = corvane::make_instance_link();
    const std::unique_ptr<corvane::attention> notice = corvane::make_attention();
    const std::unique_ptr<corvane::trash> bin = corvane::make_trash();
    corvane::program program(
        {*files, desktop, *machine, screen, *encodings, instances.get(), notice.get(), bin.get()}, place);
    program.open_with(given.directories);
    std::optional<corvane::translation> table;
    if (speaks_english(*files, place.folder)) {
        corvane::use_translation(&table.emplace(corvane::english()));
        program.main_form().state.speaks_english = true;
    }
    corvane::front_end windows(program, screen);
    corvane::help_window help(corvane::help_folder(corvane::system_path(place.shared)));
    desktop.show_help = [&help](const QString& page) { return help.open(page); };
    // Inside the event loop, so that a program closed while it starts leaves the loop as well.
    QTimer::singleShot(0, &application, [&windows, &program] {
        if (!windows.start()) QApplication::exit(program.passed_on() ? 0 : 1);
    });
    return QApplication::exec();
}
