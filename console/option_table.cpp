#include "console/option_table.h"

namespace corvane {

std::span<const option_entry> option_table() {
    static constexpr option_entry entries[] = {
        {"--format", option_value::format, "FORMAT", option_form::directories, &command_line::format,
         "print pairs, groups, json, csv, null or html", "The formats are described below."},
        {"--exclude", option_value::directory, "DIR", option_form::directories, &command_line::excluded,
         "leave out a directory and all below it",
         "May be given more than once, and adds to the directories that the program's own list leaves out. "
         "Names that "
         "differ in case only are left out, too."},
        {"--types", option_value::types, "TYPES", option_form::directories, &command_line::types,
         "search only files of these suffixes",
         "A list such as .jpg,.png in either case; the dot may be left out. Takes the place of the program's "
         "own lists of "
         "types. A suffix is what follows the last dot, so .tar.gz is none."},
        {"--same-suffix", option_value::none, "", option_form::directories, &command_line::same_suffix,
         "compare only files of one suffix", ""},
        {"--search-archives", option_value::none, "", option_form::directories,
         &command_line::search_archives, "look into ZIP and RAR archives",
         "A member is taken as equal to a file if length and CRC-32 agree. Damaged archives are listed in "
         "err.txt in the "
         "program folder."},
        {"--no-history", option_value::none, "", option_form::directories, &command_line::no_history,
         "neither use nor keep signatures of earlier runs", ""},
        {"--progress", option_value::none, "", option_form::directories, &command_line::progress,
         "show share, speed and time left",
         "One line on standard error that is written over, if that is a terminal; nothing otherwise."},
        {"--quiet", option_value::none, "", option_form::directories, &command_line::quiet,
         "say nothing on standard error but failures", ""},
        {"--script", option_value::file, "FILE", option_form::script, &command_line::script,
         "drive the program by the lines of a file",
         "FILE may be - for standard input. What happens is told in records on standard output."},
        {"--dry-shell", option_value::none, "", option_form::both, &command_line::dry_shell,
         "print what the desktop is asked for, and do not ask",
         "Without --script the desktop is never asked for anything."},
        {"--program-dir", option_value::directory, "DIR", option_form::both, &command_line::program_dir,
         "keep settings and results in DIR",
         "Else they stand beside the program, where that folder is the user's own, may be written and "
         "belongs to no "
         "package, and otherwise in $XDG_DATA_HOME/corvane (~/.local/share/corvane). Two runs with one "
         "folder "
         "exclude each other."},
        {"--help", option_value::none, "", option_form::both, &command_line::help, "print this help and end",
         ""},
        {"--version", option_value::none, "", option_form::both, &command_line::version,
         "print the version and end", ""},
    };
    return entries;
}

std::span<const format_entry> format_table() {
    static constexpr format_entry entries[] = {
        {"pairs", "length, path and path, parted by tabs",
         "One pair a line: the length in bytes, a tab, a path, a tab, a path. A group of k equal files has k "
         "- 1 pairs, "
         "which share a path. A backslash in a path is written \\\\. This is the default."},
        {"groups", "one path a line, an empty line after each group",
         "The paths of a group in ascending order."},
        {"json", "one object with totals and groups",
         "Members: version; directories, those that were searched; totals with files, equal and bytes; "
         "groups, each "
         "with length, checksum (the CRC-32 of the content in eight digits, where the run came to know it) "
         "and files. A "
         "file has path and modified, in UTC as ISO 8601 has it; modified is null for a member of an archive "
         "and for a "
         "file that has gone since. A path that is no UTF-8 has U+FFFD for each stray byte, and stands once "
         "more in "
         "path_bytes with its exact bytes percent-encoded. A member of an archive has its name there in "
         "member."},
        {"csv", "a row a file, after RFC 4180",
         "A heading and a row a file: group (a number), length, checksum, modified, path, member. Paths are "
         "the bytes of the "
         "disk. member is empty but for members of archives."},
        {"null", "the paths of each pair, each closed by a NUL byte",
         "For xargs -0 -n 2: any name survives. Both files of a pair are named, so never hand the list to "
         "rm. Pairs with a "
         "member of an archive are left out, for it is no path of the disk; standard error says how many."},
        {"html", "a page to look at",
         "One file that needs neither network nor script: totals, bytes by suffix and directory, and of the "
         "hundred groups "
         "that hold the most the first 1,000 paths each."},
    };
    return entries;
}

}  // namespace corvane
