// The outside program that deletes files inside archives, and what it can be asked for. Used at start-up and
// by the deletion inside archives.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "cleanup/archive_contents.h"

namespace corvane {

// How a tool reads a list of names.
enum class tool_family { seven_zip, rar };

// The full path of the tool: where Windows has `program_name` registered, else at `default_path`; on other
// systems the first of 7zz, 7z, 7za and rar that the user can start. Empty where there is none.
void find_rar_tool(Tavrel& form, const std::string& default_path, const std::string& program_name,
                   std::string& result);
// Sets rar_tool_path, whatever the settings said. Called once they are read.
void look_for_rar_tool(Tavrel& form);

// The tool for one archive: rar_tool_path, but only a rar can change a RAR. Empty where none fits.
std::string tool_for_archive(Tavrel& form, std::string_view archive);
tool_family family_of(Tavrel& form, std::string_view tool);
// TOOL d [-spd] ARCHIVE @LIST. -spd: no name is a pattern.
std::vector<std::string> tool_command(Tavrel& form, const std::string& tool, const std::string& archive,
                                      const std::string& list_path);

// The members of one archive as a tool meets them, for the names that take exactly one of them.
class tool_names {
  public:
    // The contents outlive the object.
    tool_names(Tavrel& form, tool_family family, const archive_contents& contents);

    // The line that makes the tool take this member alone. Nothing where it would read it as something else,
    // take another member of that name as well, or a whole directory.
    std::optional<std::string> line_for(const archive_member& member) const;

  private:
    std::string met_as(std::string_view name) const;
    void note_folders(const std::string& name);

    tool_family family_;
    bool ignores_case_;
    bool complete_;                                // every member's name is known
    std::unordered_map<std::string, int> counts_;  // of the members, by what the tool meets them as
    std::unordered_set<std::string> folders_;      // that members lie in
};

}  // namespace corvane
