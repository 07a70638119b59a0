#include "console/option_texts.h"

#include <cctype>
#include <string_view>

#include "app/version.h"
#include "console/option_table.h"

namespace corvane {

namespace {

std::string with_value(const option_entry& option) {
    std::string text = option.name;
    return option.value == option_value::none ? text : text + ' ' + option.value_name;
}

void add_row(std::string& out, std::string name, const char* summary) {
    constexpr std::size_t column = 24;
    name.resize(std::max(name.size() + 2, column), ' ');
    out.append("  ").append(name).append(summary).append("\n");
}

// A word of running text as man(7) takes it. A hyphen inside of a word stays one; others are minus signs.
std::string roff_word(std::string_view word) {
    std::string escaped;
    char before = ' ';
    for (const char unit : word) {
        if (unit == '\\')
            escaped += "\\e";
        else if (unit == '-' && std::isalnum(static_cast<unsigned char>(before)) == 0)
            escaped += "\\-";
        else
            escaped += unit;
        before = unit;
    }
    return escaped;
}

// Running text in lines of at most 78 signs, none of which begins as a command does. A sentence ends its
// line.
std::string roff(std::string_view text) {
    constexpr std::size_t longest_line = 78;
    std::string lines;
    std::string line;
    const auto end_line = [&] {
        if (!line.empty()) lines.append(line).append("\n");
        line.clear();
    };
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        const std::string word = roff_word(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.size() + 1 + word.size() > longest_line) end_line();
        if (!line.empty())
            line += ' ';
        else if (word.starts_with('.') || word.starts_with('\''))
            line += "\\&";
        line += word;
        if (word.ends_with('.')) end_line();
    }
    end_line();
    return lines;
}

void add_heading(std::string& out, const char* name) {
    out.append(".SH ").append(name).append("\n");
}

void add_entry(std::string& out, const std::string& head, std::string_view text) {
    out.append(".TP\n").append(head).append("\n").append(roff(text));
}

std::string option_head(const option_entry& option) {
    std::string name;
    for (const char unit : std::string_view(option.name))
        name += unit == '-' ? std::string("\\-") : std::string(1, unit);
    if (option.value == option_value::none) return ".B " + name;
    return ".BI \"" + name + " \" " + option.value_name;
}

// The summary as a sentence, and what follows it.
std::string sentences(const char* summary, const char* text) {
    std::string whole = summary;
    whole[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(whole[0])));
    whole += '.';
    return *text == '\0' ? whole : whole + ' ' + text;
}

std::string joined_formats() {
    std::string names;
    for (const format_entry& format : format_table())
        names.append(names.empty() ? "" : " ").append(format.name);
    return names;
}

constexpr const char* const statuses[][2] = {
    {"0", "Done, also when no two files are equal."},
    {"1",
     "A failure was told: a directory that is missing, nothing found to compare, or a place that could not "
     "be written "
     "to, be it a file or standard output. What was found is printed all the same. With --script: the "
     "program "
     "showed a message about a failure; that a limit was reached is none."},
    {"2", "Wrong usage, told in one line."},
    {"3", "The program asked a question, which nobody could answer."},
    {"130",
     "Interrupted. A first SIGINT ends the comparison as its cancel button does: what was found is kept and "
     "printed. "
     "Before the comparison there is nothing to print. A second one ends the program at once."},
    {"141", "Standard output was closed early, as head(1) does. Nothing is said about it."},
};

constexpr const char* const notes[] = {
    "Equal means every byte, not a checksum alone; of files of one name and time that are shorter than 64 "
    "KiB the CRC-32 "
    "decides, and of members of archives always.",
    "Standard error has one closing sentence such as \"200000 files, 53836 equal ones, 344 MB, 2.1 s\". "
    "Files are those that "
    "the search listed, members of archives among them. Equal ones are the files that could go: all but one "
    "of each group. "
    "The size is what those hold, in units of 1000. In json these are files, equal and bytes.",
    "In pairs and groups a path is the program's own form of it: a control byte or an asterisk of a name "
    "stands there as the "
    "character U+F000 plus its number, so that a path is always one line; all other bytes are those of the "
    "disk. In json, csv "
    "and null a path is the bytes of the disk. A member of an archive is the path of the archive, an "
    "asterisk and the name "
    "inside.",
    "An option holds for the run alone. The directories are kept as the program's selection, and the results "
    "in its folder, "
    "as if they had been chosen in a window.",
};

}  // namespace

std::string help_text() {
    std::string out =
        "Finds files of the same content.\n\n"
        "Usage: corvane-console [OPTION]... DIRECTORY...\n"
        "       corvane-console [--program-dir DIR] [--dry-shell] --script FILE\n\nOptions:\n";
    for (const option_entry& option : option_table()) add_row(out, with_value(option), option.summary);
    out += "\nFormats:\n";
    for (const format_entry& format : format_table()) add_row(out, format.name, format.summary);
    return out +
           "\nStatus: 0 done, 1 failure, 2 wrong usage, 3 unanswered question, 130 interrupted, 141 closed "
           "pipe.\n";
}

std::string manual_page() {
    std::string out = ".\\\" Made from the table of options.\n.TH CORVANE\\-CONSOLE 1 \"\" \"Corvane ";
    out.append(program_version).append("\" \"User Commands\"\n");
    add_heading(out, "NAME");
    out += "corvane\\-console \\- find files of the same content\n";
    add_heading(out, "SYNOPSIS");
    out +=
        ".B corvane\\-console\n.RI [ OPTION ]... \" DIRECTORY\" ...\n.br\n.B corvane\\-console\n"
        ".RB [ \\-\\-program\\-dir\n.IR DIR ]\n.RB [ \\-\\-dry\\-shell ]\n.B \\-\\-script\n.I FILE\n";
    add_heading(out, "DESCRIPTION");
    out += roff(
        "Lists every file under the directories, compares those of one length, and prints which are equal. "
        "It removes "
        "nothing.");
    for (const char* note : notes) out.append(".PP\n").append(roff(note));
    add_heading(out, "OPTIONS");
    for (const option_entry& option : option_table())
        add_entry(out, option_head(option), sentences(option.summary, option.text));
    add_heading(out, "FORMATS");
    for (const format_entry& format : format_table())
        add_entry(out, std::string(".B ") + format.name, sentences(format.summary, format.text));
    add_heading(out, "EXIT STATUS");
    for (const auto& [number, meaning] : statuses) add_entry(out, std::string(".B ") + number, meaning);
    return out;
}

std::string bash_completion() {
    std::string names;
    std::string directories;
    std::string files;
    std::string free;
    const auto add = [](std::string& list, const char* parting, const char* name) {
        list.append(list.empty() ? "" : parting).append(name);
    };
    for (const option_entry& option : option_table()) {
        add(names, " ", option.name);
        if (option.value == option_value::directory) add(directories, "|", option.name);
        if (option.value == option_value::file) add(files, "|", option.name);
        if (option.value == option_value::types) add(free, "|", option.name);
    }
    return "# Made from the table of options.\n"
           "_corvane_console() {\n"
           "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}\n"
           "    COMPREPLY=()\n"
           "    # The shell parts --format=json at the sign.\n"
           "    if [[ $word == = ]]; then word=; elif [[ $before == = ]]; then "
           "before=${COMP_WORDS[COMP_CWORD-2]}; fi\n"
           "    case $before in\n"
           "        --format) mapfile -t COMPREPLY < <(compgen -W '" +
           joined_formats() +
           "' -- \"$word\"); return ;;\n"
           "        " +
           directories +
           ") compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -d -- \"$word\"); return "
           ";;\n"
           "        " +
           files +
           ") compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- \"$word\"); return "
           ";;\n"
           "        " +
           free +
           ") return ;;\n"
           "    esac\n"
           "    if [[ $word == -* ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W '" +
           names +
           "' -- \"$word\")\n"
           "    else\n"
           "        compopt -o filenames 2>/dev/null\n"
           "        mapfile -t COMPREPLY < <(compgen -d -- \"$word\")\n"
           "    fi\n"
           "}\n"
           "complete -F _corvane_console corvane-console\n";
}

std::string zsh_completion() {
    std::string out = "#compdef corvane-console\n# Made from the table of options.\n_arguments -s -S \\\n";
    for (const option_entry& option : option_table()) {
        // Lists may be given again.
        const bool again = std::holds_alternative<std::vector<std::string> command_line::*>(option.target);
        out.append("    '")
            .append(again ? "*" : "")
            .append(option.name)
            .append(option.value != option_value::none ? "=" : "")
            .append("[")
            .append(option.summary)
            .append("]");
        if (option.value != option_value::none) out.append(":").append(option.value_name).append(":");
        if (option.value == option_value::directory) out += "_files -/";
        if (option.value == option_value::file) out += "_files";
        if (option.value == option_value::format) out.append("(").append(joined_formats()).append(")");
        out += "' \\\n";
    }
    return out + "    '*:directory:_files -/'\n";
}

}  // namespace corvane
