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

}  // namespace corvane
