// corvane-console: the program without windows, for scripts, servers, tests and measurements.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/program.h"
#include "app/version.h"
#include "console/console_interface.h"
#include "console/directory_run.h"
#include "console/option_table.h"
#include "console/option_texts.h"
#include "console/plain_interface.h"
#include "console/plain_shell.h"
#include "console/plain_words.h"
#include "console/printing_shell.h"
#include "console/records.h"
#include "console/script.h"
#include "console/stream_writer.h"
#include "core/text/path_text.h"
#include "platform/big_blocks.h"
#include "platform/machine.h"
#include "platform/name_mapping.h"
#include "platform/own_process.h"
#include "platform/standard_streams.h"
#include "platform/typed_path.h"

namespace corvane {

namespace {

program_place place_of(file_system& files, const command_line& given) {
    std::string asked;
    if (!given.program_dir.empty())
        asked = with_separator(to_text(*absolute_raw_path(given.program_dir)), files.separator());
    return find_program_place(files, {asked, own_folder(), user_data_home(), own_user()});
}

// To standard output; the exit status.
int print(const std::string& text, plain_words& words) {
    keep_closed_pipes_as_errors();
    bool nobody_reads = false;
    line_writer out(outcome_with<file_writer>(std::make_unique<stream_writer>(
        stdout, [] { return false; }, nobody_reads)));
    out.add(text);
    if (out.finish()) return status_done;
    if (nobody_reads) return status_closed_pipe;
    words.say_failure("standard output: " + out.error());
    return status_failed;
}

int run_directories(const command_line& given, plain_words& words) {
    keep_closed_pipes_as_errors();
    record_output records(stderr);
    plain_interface screen(records, words);
    const std::unique_ptr<file_system> files = make_file_system();
    const std::unique_ptr<text_encoding> encodings = make_text_encoding();
    const std::unique_ptr<corvane::shell> desktop = make_shell();
    plain_shell shell(words, *desktop);
    program corvane({*files, shell, shell, screen, *encodings}, place_of(*files, given));
    corvane.ask_nothing();
    if (!corvane.start()) return status_failed;
    const std::unique_ptr<attention> notice = make_attention();
    const std::unique_ptr<kept_awake> awake = notice->keep_awake("正在运行: corvane-console");
    return directory_run(corvane, screen, words, given, stdout).run();
}

int run_script(const command_line& given, plain_words& words) {
    std::ifstream script_file;
    if (*given.script != "-") {
        script_file.open(std::filesystem::path(*given.script), std::ios::binary);
        if (!script_file) {
            words.say_failure(*given.script + ": " + std::strerror(errno));
            return status_usage;
        }
    }
    record_output output(stdout);
    console_interface screen(output);
    const std::unique_ptr<file_system> files = make_file_system();
    const std::unique_ptr<text_encoding> encodings = make_text_encoding();
    const std::unique_ptr<corvane::shell> desktop = make_shell();
    // A dry run does not even have it.
    const std::unique_ptr<power> machine = given.dry_shell ? nullptr : make_power();
    // A dry run moves nothing to the bin, and brings nothing back.
    const std::unique_ptr<trash> bin = given.dry_shell ? nullptr : make_trash();
    printing_shell shell(output, *desktop, machine.get());
    ports outside{*files, shell, shell, screen, *encodings};
    outside.bin = bin.get();
    program corvane(outside, place_of(*files, given));
    corvane.ask_nothing();
    if (!corvane.start()) return status_failed;
    script_runner runner(corvane, screen, output);
    const int status = runner.run(*given.script == "-" ? std::cin : script_file);
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
    words.say_failure("standard output could not be written");
    return status == status_done ? status_failed : status;
}

}  // namespace

int console_main(const std::vector<std::string>& given_arguments) {
    std::vector<const char*> arguments;
    arguments.reserve(given_arguments.size());
    for (const std::string& each : given_arguments) arguments.push_back(each.c_str());
    hold_standard_streams();
    keep_to_own_home();
    return_big_blocks();
    command_line given;
    const std::string wrong = read_command_line(arguments, given);
    plain_words words(stderr, given.quiet);
    if (!wrong.empty()) {
        words.say_failure(wrong + "; see corvane-console --help");
        return status_usage;
    }
    if (!given.program_dir.empty() && !absolute_raw_path(given.program_dir)) {
        words.say_failure(given.program_dir + ": the working directory has gone");
        return status_usage;
    }
    if (given.help) return print(help_text(), words);
    if (given.version) return print(std::string("corvane-console ") + program_version + "\n", words);
    return given.script ? run_script(given, words) : run_directories(given, words);
}

}  // namespace corvane

int main(int count, char** arguments) {
    return corvane::console_main(corvane::own_arguments(count, arguments));
}
