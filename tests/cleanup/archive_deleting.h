// A program with marked entries of archives and a tool for them, for the tests of the deletion inside
// archives.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/cleanup/deleting.h"

namespace corvane {

// A program with a tool that writes down its lists and takes the members out of ZIP archives of stored files.
struct archive_deleting : deleting {
    archive_deleting() {
        state.rar_tool_path = "/usr/bin/7zz";
        desktop.on_start = [this](const std::vector<std::string>& arguments) {
            lists.push_back(stored_lines("delrarfile.txt"));
            const std::string archive = arguments[arguments.size() - 2];
            for (const std::string& line : lists.back())
                if (tool_works)
                    std::erase_if(archives[archive],
                                  [&](const zip_member& each) { return each.name == line; });
            if (tool_works) add_zip(archive, archives[archive]);
            return true;
        };
    }
    void put_zip(const std::string& path, const std::vector<zip_member>& members) {
        archives[path] = members;
        add_zip(path, members);
    }
    // A pair of a file on the disk and an entry, for each entry that is given, all marked.
    void show_entries(const std::vector<std::string>& entries) {
        std::vector<pair> pairs;
        for (const std::string& entry : entries)
            pairs.push_back({9, "/disk/" + std::to_string(pairs.size() + 1), entry});
        show_files(pairs);
        for (std::size_t row = 1; row <= entries.size(); ++row) mark(static_cast<std::int32_t>(row), 4);
    }
    // Marks the one entry `name` of an archive of these names, and deletes.
    void delete_one(const std::string& name, const std::vector<zip_member>& members) {
        put_zip("/z.zip", members);
        show_entries({"/z.zip*" + name});
        run_recycle();
    }
    std::vector<std::string> command(const std::string& archive) {
        return {"/usr/bin/7zz", "d", "-spd", archive, "@/prog/delrarfile.txt"};
    }

    std::map<std::string, std::vector<zip_member>> archives;
    std::vector<std::vector<std::string>> lists;  // of each run
    bool tool_works = true;
};

// A member as long as the files of show_entries, and equal to them.
inline zip_member nine(const std::string& name) {
    return deleting::stored(name, 9);
}

}  // namespace corvane
