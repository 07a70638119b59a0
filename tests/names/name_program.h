// A program whose list shows the pairs of a name check.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "names/name_view.h"
#include "tests/browser/list_program.h"

namespace corvane {

using name_pairs = std::vector<std::pair<std::string, std::string>>;

struct name_program : list_program {
    explicit name_program(const std::vector<std::string>& files_on_disk = {}) {
        for (const std::string& path : files_on_disk) files.add_file(path);
        form.ListView1.place.width = 12000;
    }

    void check(const std::string& handler, const std::vector<std::string>& directories) {
        select(directories);
        form.run(handler);
    }
    // The rows as pairs of the two path cells.
    name_pairs rows() {
        const int first = state.list_mode == 4 ? 2 : 3;
        name_pairs found;
        for (std::int32_t row = 1; row <= list().row_count(); ++row)
            found.emplace_back(list().cell(row, first), list().cell(row, first + 1));
        return found;
    }
    std::vector<std::string> headers() {
        std::vector<std::string> found;
        for (const list_column& column : list().columns()) found.push_back(column.header);
        return found;
    }
    std::vector<std::string> said() const {
        std::vector<std::string> words;
        for (const message& box : screen.messages) words.push_back(box.title + "|" + box.text);
        return words;
    }
    // Puts pairs of an earlier check into the result columns.
    void hold(const name_pairs& pairs) {
        state.result_file1.clear();
        state.result_file2.clear_and_share(state.result_file1);
        for (const auto& [first, second] : pairs) {
            state.result_file1.push_back(first);
            state.result_file2.push_back(second);
        }
        state.result_count = static_cast<std::int32_t>(pairs.size());
    }
};

}  // namespace corvane
