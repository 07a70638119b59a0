// The note that lies in a recycle bin beside each entry, as the freedesktop rules say: where the entry came
// from, percent-encoded. Used by linux_trash. All texts are raw bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

constexpr char trash_info_end[] = ".trashinfo";

// The bytes that "%41" and its like stand for. Nothing where a percent sign is not followed by two
// hexadecimal digits, or stands for NUL.
std::optional<std::string> percent_decoded(std::string_view text);

// The path of a note. Nothing where it has none, or none that is one. `top` is the directory that a relative
// path starts from; empty: a relative one is none. A path that climbs ("..") is none.
std::optional<std::string> path_in_info(std::string_view info, std::string_view top);

// The n-th name, from 1 on, that a bin gives to entries of one base name: "a.txt", "a.2.txt", "a.3.txt".
std::string trash_name(std::string_view base, int number);

// The n-th name beside one that is taken: "a (恢复).txt", "a (恢复 2).txt"; never longer than 255 bytes.
std::string name_beside(std::string_view base, int number);

// Without doubled separators, for comparing.
std::string plain_path(std::string_view path);

}  // namespace corvane
