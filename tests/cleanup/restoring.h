// A program whose recycle bin gives back what went there, for the tests of restoring.
#pragma once

#include <string>
#include <vector>

#include "cleanup/restore_form.h"
#include "tests/cleanup/deleting.h"
#include "tests/support/scripted_trash.h"

namespace corvane {

struct restoring_program : deleting {
    restoring_program() : bin(files) {
        form.outside.bin = &bin;
        desktop.on_recycle = [this](const std::string& path) {
            if (refused.count(path) != 0 || !files.has(path)) return outcome::failure("no trash here");
            memory_file file;
            file.content = files.content_of(path);
            const file_facts facts = files.facts(path);
            file.index = facts.identity.index;
            file.modified_ns = facts.modified_ns;
            bin.take(path, file);
            files.erase(path);
            recycled.push_back(path);
            return outcome::success();
        };
    }
    // The three copies of a star and one pair; what is marked goes.
    void delete_cells(const std::vector<std::pair<std::int32_t, int>>& cells) {
        for (const auto& [row, column] : cells) mark(row, column);
        run_recycle();
    }
    restore_form& window() { return corvane.restore_window(); }
    std::string note_path(int number) const {
        return program_dir + "删除记录/2026-03-04 050607 0" + std::to_string(number) + ".txt";
    }
    std::vector<std::string> rows_of(const list_box& list) const {
        std::vector<std::string> rows;
        for (const list_box::row& row : list.rows()) rows.push_back(row.text);
        return rows;
    }
    std::vector<std::string> listed_pairs() {
        std::vector<std::string> pairs;
        for (std::int32_t row = 1; row <= list().row_count(); ++row)
            pairs.push_back(list().cell(row, 3) + " " + list().cell(row, 4));
        return pairs;
    }

    scripted_trash bin;
};

}  // namespace corvane
