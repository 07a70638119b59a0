// Paths as text. Used by everything that puts a path together.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// The directory, closed by the disk's separator.
inline std::string with_separator(std::string_view directory, char separator) {
    std::string text(directory);
    if (text.empty() || text.back() != separator) text += separator;
    return text;
}

// Behind the last separator; all of a text without one.
inline std::string_view file_name_of(std::string_view path, char separator) {
    return path.substr(path.rfind(separator) + 1);
}

}  // namespace corvane
