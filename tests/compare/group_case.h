// A group over a disk in memory, with nothing of the program around it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "compare/group.h"
#include "compare/preparation.h"
#include "tests/support/memory_file_system.h"

namespace corvane {

struct group_case {
    memory_file_system disk;
    file_columns files;
    result_state result;
    std::vector<std::string> touched;
    int turns = 0;
    int turns_left = 1'000'000;

    void add(const std::string& path, std::string content) { disk.add_file(path, std::move(content)); }
    // Lists the paths, which share a length, and takes their facts.
    void list(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) files.file_list.push_back(path);
        files.file_count = files.file_list.size();
        size_columns(files, result);
        bool members = false;
        refresh_attributes(disk, files, result, members, [](std::int32_t) { return true; });
        if (members) take_member_signatures(files);
    }
    file_group make() {
        return {disk,
                files,
                {[this] { return ++turns, --turns_left > 0; },
                 [this](std::string_view path) { touched.emplace_back(path); }, [](std::string_view) {}}};
    }
};

}  // namespace corvane
