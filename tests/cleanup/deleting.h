// A program over a disk in memory whose recycle bin takes files away, for the tests of deletion.
#pragma once

#include <set>
#include <span>
#include <string>
#include <vector>

#include "core/archives/checksum.h"
#include "tests/browser/list_program.h"
#include "tests/support/archive_images.h"

namespace corvane {

struct deleting : list_program {
    deleting() {
        desktop.on_recycle = [this](const std::string& path) {
            if (refused.count(path) != 0 || !files.has(path)) return outcome::failure("no trash here");
            files.erase(path);
            recycled.push_back(path);
            return outcome::success();
        };
    }
    // Shows the pairs and puts a file of the row's length behind each path that is not in an archive.
    void show_files(const std::vector<pair>& pairs) {
        for (const pair& each : pairs)
            for (const std::string& path : {each.path1, each.path2})
                if (path.find('*') == std::string::npos)
                    files.add_file(path, std::string(static_cast<std::size_t>(each.length), 'x'));
        show(pairs);
    }
    // A member of a ZIP with the content that show_files gives a file of that length.
    static zip_member stored(const std::string& name, std::size_t length) {
        zip_member member{.name = name, .size = static_cast<std::uint32_t>(length)};
        member.data.assign(length, 'x');
        member.crc = checksum(std::as_bytes(std::span(member.data)));
        return member;
    }
    void add_zip(const std::string& path, const std::vector<zip_member>& members) {
        files.add_file(path, zip_image(members));
    }
    void mark(std::int32_t row, int column) { list().set_colour(row, column, cell_colour::mark_red); }
    // Answers of the boxes that ask, in order.
    void run_recycle(std::vector<box_answer> answers = {box_answer::yes}) {
        screen.answers.assign(answers.begin(), answers.end());
        form.run("Picture5_Click");
    }
    void run_direct(std::vector<box_answer> answers = {}) {
        screen.answers.assign(answers.begin(), answers.end());
        form.run("Command45_Click");
    }

    std::vector<std::string> recycled;
    std::set<std::string> refused;  // stay on the disk
};

}  // namespace corvane
