// The options of the console, in one table: the command line is read by it, and help, manual page and
// completions are made of it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace corvane {

// What the user asks for.
struct command_line {
    std::string program_dir;
    std::string format = "pairs";
    std::vector<std::string> excluded;
    std::vector<std::string> types;  // each with its dot
    std::optional<std::string> script;
    bool search_archives = false;
    bool same_suffix = false;
    bool no_history = false;
    bool progress = false;
    bool quiet = false;
    bool dry_shell = false;
    bool help = false;
    bool version = false;
    std::vector<std::string> directories;
};

// What stands behind an option; tells a completion what to offer.
enum class option_value { none, directory, file, format, types };
// The form of the command that an option belongs to.
enum class option_form { both, directories, script };

using option_target =
    std::variant<bool command_line::*, std::string command_line::*,
                 std::optional<std::string> command_line::*, std::vector<std::string> command_line::*>;

struct option_entry {
    const char* name;  // with its dashes
    option_value value;
    const char* value_name;  // empty without a value
    option_form form;
    option_target target;
    const char* summary;  // for --help and completions: one line
    const char* text;     // for the manual page: what the summary leaves out; may be empty
};

std::span<const option_entry> option_table();

struct format_entry {
    const char* name;
    const char* summary;
    const char* text;
};

std::span<const format_entry> format_table();

// Reads a command line without the program's name. Empty, or in one line what is wrong with it. With --help
// or
// --version, what follows is not looked at.
std::string read_command_line(std::span<const char* const> arguments, command_line& read);

}  // namespace corvane
