// One program and the archives of its directory /d: what the tests of the archive readers stand on.
#pragma once

#include <string>
#include <vector>

#include "tests/support/test_program.h"

namespace corvane {

struct archive_case : test_program {
    archive_case() { state.scan_archives = 1; }

    // Puts one archive on the disk, searches, and gives what is listed of it.
    std::vector<std::string> members_of(const std::string& name, std::string bytes) {
        files.add_file("/d/" + name, std::move(bytes));
        search({"/d"});
        return members("/d/" + name);
    }
    // The listed members of an archive, without its path and the "*" behind it, in code order.
    std::vector<std::string> members(const std::string& path) const {
        std::vector<std::string> found;
        for (const std::string& entry : listed())
            if (entry.starts_with(path + "*")) found.push_back(entry.substr(path.size() + 1));
        return found;
    }
    // The lines of the report between its header and the advice.
    std::vector<std::string> problems() const {
        std::vector<std::string> lines = stored_lines("err.txt");
        if (!lines.empty()) lines.erase(lines.begin());
        const auto advice = std::find(lines.begin(), lines.end(), "");
        lines.erase(advice, lines.end());
        return lines;
    }
};

}  // namespace corvane
