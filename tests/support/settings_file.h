// The settings file as its description has it, written down a second time: by line, its type and a fresh
// value. Tests hold the program's own table against this.
#pragma once

#include <string>
#include <vector>

namespace corvane {

// 't' text, 's' int16, 'l' int32, 'd' date. Lines count from 1.
inline char settings_line_type(int line) {
    for (const int text : {1, 13, 14, 15, 19, 20, 21, 22, 38, 39, 56})
        if (line == text) return 't';
    if (line >= 94) return 't';
    if (line == 34 || line == 35) return 'd';
    const int longs[][2] = {{16, 18}, {23, 28}, {32, 33}, {40, 40}, {43, 43},
                            {46, 46}, {51, 53}, {57, 80}, {83, 93}};
    for (const auto& range : longs)
        if (line >= range[0] && line <= range[1]) return 'l';
    return 's';
}

// Lines 1 to 122 from index 0.
inline std::vector<std::string> fresh_settings_lines() {
    std::vector<std::string> lines;
    for (int line = 1; line <= 122; ++line) {
        const char type = settings_line_type(line);
        lines.push_back(type == 't' ? "" : type == 'd' ? "0:00:00" : " 0 ");
    }
    return lines;
}

inline std::string with_line_ends(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

}  // namespace corvane
