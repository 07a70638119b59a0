// A program with a stored list of files, for the exports and the tree.
#pragma once

#include <gtest/gtest.h>

#include "platform/file_time.h"
#include "tests/support/test_program.h"

namespace corvane {

using texts = std::vector<std::string>;

struct report_program : test_program {
    using test_program::test_program;

    // Makes the files that a path of a list is to have, each of so many bytes.
    void add(const std::string& path, std::int64_t bytes = 1) { files.add_file(path).stated_length = bytes; }
    // The stored list, as another run has left it; nothing of it needs to exist.
    void store(const texts& entries) {
        std::string lines;
        for (const std::string& entry : entries) lines += entry + "\r\n";
        files.add_file(program_dir + "文件清单.txt").content = lines;
    }
    // The list is read back.
    void list(const texts& entries) {
        store(entries);
        form.run("Command21_Click");
        screen.messages.clear();
    }
    // Files of these paths, and the list of them.
    void list_files(const texts& entries) {
        for (const std::string& entry : entries) add(entry);
        list(entries);
    }
    void written_at(const std::string& path, std::int64_t unix_seconds) {
        const file_time time = to_file_time(unix_seconds, 0);
        files.add_file(path).date_high = time.high;
        files.add_file(path).date_low = time.low;
    }
    texts messages() const {
        texts found;
        for (const message& each : screen.messages) found.push_back(each.title + "|" + each.text);
        return found;
    }
};

}  // namespace corvane
