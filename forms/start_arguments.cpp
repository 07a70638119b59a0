#include "forms/start_arguments.h"

#include <string_view>

#include "platform/name_mapping.h"
#include "platform/typed_path.h"

namespace corvane {

namespace {

// The absolute path in the program's text. What has none is wrong usage.
std::string absolute_text(std::string_view typed, start_arguments& read) {
    const std::optional<std::string> path = absolute_raw_path(typed);
    if (!path) read.wrong = true;
    return to_text(path.value_or(""));
}

}  // namespace

const char start_usage[] =
    "Usage: corvane [--program-dir DIR] [DIRECTORY...]\n"
    "       corvane --help | --version\n";

start_arguments read_start_arguments(std::span<const char* const> arguments) {
    constexpr std::string_view program_dir = "--program-dir";
    constexpr std::string_view with_value = "--program-dir=";
    start_arguments read;
    bool only_directories = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        const bool names_folder =
            !only_directories && (argument == program_dir || argument.starts_with(with_value));
        if (names_folder && argument == program_dir && i + 1 < arguments.size())
            read.program_dir = arguments[++i];
        else if (names_folder && argument.starts_with(with_value))
            read.program_dir = argument.substr(with_value.size());
        else if (!argument.empty() && (only_directories || argument.front() != '-'))
            read.directories.push_back(absolute_text(argument, read));
        else if (argument == "--")
            only_directories = true;
        else if (argument == "--help")
            read.help = true;
        else if (argument == "--version")
            read.version = true;
        else
            read.wrong = true;
        if (names_folder && read.program_dir.empty()) read.wrong = true;
    }
    if (!read.program_dir.empty()) read.program_dir = absolute_text(read.program_dir, read);
    return read;
}

}  // namespace corvane
