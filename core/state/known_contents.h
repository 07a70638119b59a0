// What comparisons have found out about contents, this one and those before it. A slice of the run state.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "core/text/column.h"

namespace corvane {

// Every file of a reading, which compares contents side by side, has a number: of one reading, equal numbers
// are equal contents, and different ones different contents. Numbers of two readings say nothing.
struct known_contents {
    // Index as file_list; 0: not known. Empty where nothing is to be kept.
    column<std::int32_t> numbers;
    std::vector<std::int32_t> firsts;  // the first number of each reading, ascending
    std::int32_t next = 1;             // greater than all of them
    // What the stored ones were: how many files, and `next`.
    std::size_t stored_files = 0;
    std::int32_t stored_next = 1;

    std::int32_t of(std::int32_t file) const { return numbers.empty() ? 0 : numbers[file]; }

    // The first number of a new reading with so many contents.
    std::int32_t begin_reading(std::int32_t contents) {
        firsts.push_back(next);
        next += contents;
        return firsts.back();
    }

    // The reading of a number: its first one, and the one behind its last. Of 0 none at all.
    std::pair<std::int32_t, std::int32_t> reading_of(std::int32_t number) const {
        const auto behind = std::upper_bound(firsts.begin(), firsts.end(), number);
        if (behind == firsts.begin()) return {0, 0};
        return {*(behind - 1), behind == firsts.end() ? next : *behind};
    }
};

}  // namespace corvane
