// A stored result over a disk in memory, and what the reports make of it.
#pragma once

#include <string>
#include <vector>

#include "reports/result_formats.h"
#include "tests/support/memory_file_system.h"

namespace corvane {

struct result_case {
    struct pair {
        long long length;
        std::string first, second;
    };
    static constexpr char store[] = "/prog/相同文件.txt";
    static constexpr char output[] = "/out";

    void keep(const std::vector<pair>& pairs) {
        std::string text = "内容相同文件清单            \r\n " + std::to_string(pairs.size()) + " \r\n";
        for (const pair& each : pairs) {
            text += " " + std::to_string(each.length) + " \r\n";
            text.append(each.first).append("\r\n").append(each.second).append("\r\n");
        }
        files.add_file(store, std::move(text));
    }
    result_groups read() { return read_result_groups(files, store); }
    // Each group as "length: path path".
    std::vector<std::string> groups(const result_groups& result) {
        std::vector<std::string> lines;
        for (const equal_group& group : result.groups) {
            std::string line = std::to_string(group.length) + ":";
            for (std::int32_t i = group.first; i < group.first + group.count; ++i)
                line.append(" ").append(result.paths[i]);
            lines.push_back(std::move(line));
        }
        return lines;
    }
    std::vector<std::string> groups() { return groups(read()); }
    // What `write` writes.
    template <class Write>
    std::string written(Write write) {
        line_writer out(files, output);
        write(out);
        if (!out.finish()) return "failed: " + out.error();
        return files.content_of(output);
    }

    memory_file_system files;
    // A disk that has another byte where the program has a plus.
    result_facts facts{"9.8.7", {"/d"}, 12, [](std::string_view path) {
                           std::string name(path);
                           for (char& unit : name)
                               if (unit == '+') unit = '\n';
                           return name;
                       }};
};

}  // namespace corvane
