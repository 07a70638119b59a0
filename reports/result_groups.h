// Groups of equal files, put together from the pairs of the stored result. What the console's formats and the
// page are written from.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/text/column.h"
#include "core/text/text_column.h"

namespace corvane {

class file_system;

struct equal_group {
    std::int64_t length = 0;     // bytes of each file
    std::int64_t checksum = -1;  // CRC-32 of the content; below 0 when it is not known
    std::int32_t first = 0;      // of result_groups::paths
    std::int32_t count = 0;      // at least 2

    // What could go: all but one.
    std::int64_t spare_bytes() const { return length * (count - 1); }
};

struct result_groups {
    std::vector<equal_group> groups;  // in the order in which the store speaks of them
    text_column paths;                // those of one group in a row, ascending

    // Files that could go: all but one of each group. Their bytes.
    std::int64_t spare_count() const;
    std::int64_t spare_bytes() const;
};

// Pairs that share a path belong to one group, in whatever order they stand. A path stands in its group once.
// Left out are a pair of one path with itself, a blank path, and a pair of another length than an earlier one
// that has a path in common with it: no comparison writes such.
//
// `checksums`: of the n-th pair, -1 where it is not known; may be shorter than the store. `keeps`, if set, is
// asked of each path once; a group of which fewer than two are kept is left out. `carry_out`, if set, is
// handed what takes long beside that, piece by piece: each has been done when it returns.
result_groups read_result_groups(
    file_system& files, const std::string& store, const column<std::int64_t>& checksums = {},
    const std::function<bool(std::string_view)>& keeps = {},
    const std::function<void(const std::function<void()>&)>& carry_out =
        [](const std::function<void()>& work) { work(); });

}  // namespace corvane
