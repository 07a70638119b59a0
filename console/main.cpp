// corvane-console: the program without windows, for scripts, servers, tests and measurements.
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "app/program.h"
#include "console/console_interface.h"
#include "console/printing_shell.h"
#include "console/records.h"
#include "console/script.h"
#include "console/typed_path.h"
#include "core/text/text_file.h"
#include "core/text/text_format.h"
#include "core/walk/directory_filter.h"
#include "platform/desktop/desktop_power.h"
#include "platform/desktop/desktop_shell.h"
#include "platform/linux/linux_file_system.h"
#include "platform/linux/linux_text_encoding.h"
#include "platform/linux/name_mapping.h"

namespace corvane {

namespace {

constexpr char usage[] =
    "usage: corvane-console [--program-dir DIR] DIRECTORY...\n"
    "       corvane-console [--program-dir DIR] [--dry-shell] --script FILE\n";

struct options {
    std::string program_dir;
    std::string script;
    bool has_script = false;
    bool dry_shell = false;
    std::vector<std::string> directories;
};

bool parse_options(int count, char** arguments, options& parsed) {
    bool only_directories = false;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const bool has_value = i + 1 < count;
        if (only_directories || argument.empty() || argument[0] != '-')
            parsed.directories.push_back(argument);
        else if (argument == "--")
            only_directories = true;
        else if (argument == "--dry-shell")
            parsed.dry_shell = true;
        else if (argument == "--program-dir" && has_value)
            parsed.program_dir = arguments[++i];
        else if (argument == "--script" && has_value) {
            parsed.script = arguments[++i];
            parsed.has_script = true;
        } else
            return false;
    }
    return parsed.has_script ? parsed.directories.empty() : !parsed.directories.empty();
}

std::string program_directory(const options& given) {
    std::error_code error;
    std::string directory =
        given.program_dir.empty()
            ? std::filesystem::read_symlink("/proc/self/exe", error).parent_path().string()
            : std::filesystem::absolute(given.program_dir, error).lexically_normal().string();
    if (directory.empty() || directory.back() != '/') directory += '/';
    return to_text(directory);
}

// One pair a line, as the result store has them.
void print_pairs(program& corvane) {
    run_state& state = corvane.main_form().state;
    if (state.result_count == 0) return;
    line_reader store(corvane.main_form().outside.files, state.same_file_path);
    record_output output(stdout);
    std::string_view text;
    std::string line;
    store.next(text);
    store.next(text);
    while (store.next(text)) {
        line = std::to_string(parse_number(text));
        for (int path = 0; path < 2 && store.next(text); ++path) append_field(line += '\t', text);
        output.line(line);
    }
    output.flush();
}

int compare_directories(program& corvane, console_interface& screen,
                        const std::vector<std::string>& directories) {
    Tavrel& form = corvane.main_form();
    std::vector<std::string> paths;
    for (const std::string& directory : directories) {
        const std::string path = absolute_path(directory);
        if (!form.outside.files.attributes(path).directory) {
            std::fprintf(stderr, "%s  不存在\n", directory.c_str());
            return status_failed;
        }
        paths.push_back(path);
    }
    screen.set_unanswered([&form] { form.state.quit_requested = -1; });
    form.run("Picture1_Click");
    corvane.directory_window().clear_list();
    corvane.directory_window().add_paths(paths);
    corvane.directory_window().Command34_Click();
    form.run("search_check_m_Click");
    if (screen.question_unanswered()) return status_unanswered;
    if (screen.failure_shown()) return status_failed;
    print_pairs(corvane);
    corvane.close();
    return status_done;
}

}  // namespace

int console_main(int count, char** arguments) {
    options given;
    if (!parse_options(count, arguments, given)) {
        std::fputs(usage, stderr);
        return status_usage;
    }
    std::ifstream script_file;
    if (given.has_script && given.script != "-") {
        script_file.open(given.script, std::ios::binary);
        if (!script_file) {
            std::fprintf(stderr, "%s: %s\n", given.script.c_str(), std::strerror(errno));
            return status_usage;
        }
    }
    record_output output(given.has_script ? stdout : stderr);
    console_interface screen(output);
    linux_file_system files;
    linux_text_encoding encodings;
    desktop_shell desktop;
    desktop_power machine;
    printing_shell shell(output, desktop, machine, given.dry_shell);
    program corvane({files, shell, shell, screen, encodings}, program_directory(given));
    if (!corvane.start()) return status_failed;
    if (!given.has_script) return compare_directories(corvane, screen, given.directories);
    script_runner runner(corvane, screen, output);
    return runner.run(given.script == "-" ? std::cin : script_file);
}

}  // namespace corvane

int main(int count, char** arguments) {
    return corvane::console_main(count, arguments);
}
