#include "cleanup/archive_tool.h"

#include <algorithm>

#include "core/model/main_form.h"
#include "core/text/text_case.h"
#include "core/text/utf8.h"

namespace corvane {

namespace {

constexpr char registered_name[] = "winrar.exe";
constexpr const char* default_paths[] = {"d:\\Program Files\\WinRAR\\WinRAR.exe",
                                         "c:\\Program Files\\WinRAR\\WinRAR.exe"};
constexpr const char* programs[] = {"7zz", "7z", "7za", "rar"};
constexpr char rar_program[] = "rar";

constexpr bool is_separator(char unit) {
    return unit == '/' || unit == '\\';
}

// Letters that tools use for bytes they cannot read, and that stand for bytes in our own texts.
constexpr bool is_stand_in(char32_t letter) {
    return letter == 0xFFFD || (letter >= 0xE000 && letter <= 0xF8FF);
}

constexpr bool is_control(char32_t letter) {
    return letter < 0x20 || letter == 0x7F;
}

// Calls take(part) for each part between separators, empty ones included.
template <class taker>
void for_each_part(std::string_view name, const taker& take) {
    for (std::size_t start = 0;;) {
        std::size_t end = start;
        while (end < name.size() && !is_separator(name[end])) ++end;
        take(name.substr(start, end - start));
        if (end == name.size()) return;
        start = end + 1;
    }
}

// True for a name that every tool takes as it stands: it is cut at no end, no part of it leads elsewhere, and
// no letter of it stands for something else.
bool is_literal(std::string_view name) {
    constexpr std::string_view order_mark = "\uFEFF";
    if (name.empty() || name.front() == ' ' || name.back() == ' ' || name.front() == '"' ||
        name.back() == '"' || name.starts_with(order_mark))
        return false;
    bool plain = true;
    for_each_part(
        name, [&](std::string_view part) { plain = plain && !part.empty() && part != "." && part != ".."; });
    for (std::string_view rest = name; plain && !rest.empty();) {
        const utf8_letter letter = decode_utf8(rest);
        plain = letter.length > 0 && !is_stand_in(letter.letter) && !is_control(letter.letter);
        rest.remove_prefix(letter.length);
    }
    return plain;
}

}  // namespace

void find_rar_tool(Tavrel& form, const std::string& default_path, const std::string& program_name,
                   std::string& result) {
    result.clear();
    if (form.outside.files.separator() == '\\') {
        result = form.outside.desktop.find_program(program_name);
        if (result.empty() && form.outside.files.facts(default_path).exists) result = default_path;
        return;
    }
    for (const char* name : programs) {
        result = form.outside.desktop.find_program(name);
        if (!result.empty()) return;
    }
}

void look_for_rar_tool(Tavrel& form) {
    std::string& path = form.state.rar_tool_path;
    for (const char* default_path : default_paths) {
        find_rar_tool(form, default_path, registered_name, path);
        if (!path.empty()) return;
    }
}

tool_family family_of(Tavrel& form, std::string_view tool) {
    const std::size_t cut = tool.rfind(form.outside.files.separator());
    const std::string_view program = tool.substr(cut == std::string_view::npos ? 0 : cut + 1);
    return upper_case(program).starts_with("7Z") ? tool_family::seven_zip : tool_family::rar;
}

std::string tool_for_archive(Tavrel& form, std::string_view archive) {
    const std::string& tool = form.state.rar_tool_path;
    if (tool.find(form.outside.files.separator()) == std::string::npos) return {};
    if (!is_rar_archive(archive) || family_of(form, tool) == tool_family::rar) return tool;
    return form.outside.desktop.find_program(rar_program);
}

std::vector<std::string> tool_command(Tavrel& form, const std::string& tool, const std::string& archive,
                                      const std::string& list_path) {
    std::vector<std::string> command{tool, "d"};
    if (family_of(form, tool) == tool_family::seven_zip) command.push_back("-spd");
    command.push_back(archive);
    command.push_back("@" + list_path);
    return command;
}

tool_names::tool_names(Tavrel& form, tool_family family, const archive_contents& contents)
    : family_(family), ignores_case_(form.outside.files.ignores_case()), complete_(contents.is_whole()) {
    for (const archive_member& member : contents.members()) {
        if (member.raw_name.empty()) complete_ = false;
        const std::string name = met_as(family_ == tool_family::rar ? member.name : member.raw_name);
        ++counts_[name];
        note_folders(name);
    }
}

// Without what a tool may drop: blanks around it, empty parts and dots, the case where files have none, the
// kind of separator.
std::string tool_names::met_as(std::string_view name) const {
    while (!name.empty() && name.front() == ' ') name.remove_prefix(1);
    while (!name.empty() && name.back() == ' ') name.remove_suffix(1);
    std::string met;
    for_each_part(name, [&](std::string_view part) {
        if (part.empty() || part == ".") return;
        if (!met.empty()) met += '/';
        met += part;
    });
    return ignores_case_ ? upper_case(met) : met;
}

void tool_names::note_folders(const std::string& name) {
    // From the inside out: a folder that is known has its own folders known.
    for (std::size_t cut = name.rfind('/'); cut != std::string::npos && cut > 0;
         cut = name.rfind('/', cut - 1))
        if (!folders_.insert(name.substr(0, cut)).second) return;
}

std::optional<std::string> tool_names::line_for(const archive_member& member) const {
    const std::string& name = family_ == tool_family::rar ? member.name : member.raw_name;
    if (!complete_ || !is_literal(name)) return {};
    // A rar knows no way to take these literally.
    if (family_ == tool_family::rar && name.find_first_of("*?") != std::string::npos) return {};
    const std::string met = met_as(name);
    const auto count = counts_.find(met);
    if (count == counts_.end() || count->second != 1 || folders_.count(met) != 0) return {};
    return name;
}

}  // namespace corvane
