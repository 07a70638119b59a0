// The rules by which one copy of a group is kept: a table of what menu entries choose by. Used by the marks
// by rule.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// A copy that is not marked yet, as a rule sees it.
struct rule_copy {
    std::int32_t member;
    std::string_view path;
    // Of the last write, in the file system's order of moments; unknown_date where there is none: an archive
    // entry, or a file that is gone.
    std::int64_t date;
    std::int32_t neighbours = 0;  // copies of the whole group in its folder, itself included

    static constexpr std::int64_t unknown_date = INT64_MIN;
};

struct rule_input {
    char separator;
    std::vector<std::string> folders;  // in the order of the user, each closed by the separator
};

struct keep_rule {
    const char* handler;
    const char* words;  // what is kept, before ": "
    bool needs_dates;
    bool asks_folders;
    bool counts_neighbours;
    // Puts the members that stay into `kept`. None: the rule says nothing about this group, all stay.
    void (*keep)(const rule_input& input, std::span<const rule_copy> copies, std::vector<std::int32_t>& kept);
};

std::span<const keep_rule> keep_rules();

// True for the name of a file that its system or its user has made a copy's: "a (1).txt", "a - 副本.txt",
// "Copy of a", "a - Kopie.txt".
bool is_named_as_copy(std::string_view path, char separator);

}  // namespace corvane
