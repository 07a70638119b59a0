// The same-file result for other programs: groups of lines, JSON, CSV, and pairs parted by NUL bytes. Used by
// the console.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/text/text_file.h"
#include "reports/result_groups.h"

namespace corvane {

// What is told about a run beside its groups, and how its paths are named on the disk.
struct result_facts {
    std::string version;
    std::vector<std::string> directories;  // searched, as the program has them
    std::int64_t files = 0;                // examined: those that the search listed
    // The bytes that the disk has for a path of the program.
    std::function<std::string(std::string_view)> disk_name;
};

// One path a line as the program has it, an empty line after each group. No path holds a line break.
void write_group_lines(line_writer& out, const result_groups& result);

// One object: version, directories, totals, groups. The form is described in the manual page.
void write_json(line_writer& out, file_system& files, const result_groups& result, const result_facts& facts);

// A heading and a row a file: group, length, checksum, modified, path, member.
void write_csv(line_writer& out, file_system& files, const result_groups& result, const result_facts& facts);

// The two paths of each pair of the store, each closed by a NUL byte. A pair with a member of an archive is
// left out: it is no path of the disk, and what takes the list may open or remove a file of that name. So is
// a pair of one path with itself. Returns the number of pairs left out.
std::int64_t write_null_pairs(line_writer& out, file_system& files, const std::string& store,
                              const result_facts& facts);

}  // namespace corvane
