// A stored result for a program to read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/test_program.h"

namespace corvane {

struct stored_row {
    std::int64_t length;
    std::string path1;
    std::string path2;
};

inline void store(test_program& p, const std::vector<stored_row>& rows) {
    std::string text = "内容相同文件清单            \r\n " + std::to_string(rows.size()) + " \r\n";
    for (const stored_row& row : rows)
        text += " " + std::to_string(row.length) + " \r\n" + row.path1 + "\r\n" + row.path2 + "\r\n";
    p.files.add_file("/prog/相同文件.txt", text);
}

}  // namespace corvane
