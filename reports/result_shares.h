// How the bytes of equal files are spread: by suffix, and by the directories near the top. Drawn as bars on
// the page.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "reports/result_groups.h"

namespace corvane {

struct byte_share {
    std::string label;
    std::int64_t bytes = 0;
    std::int64_t files = 0;
};

// Both count every file of every group, also the one that stays. Largest first, then by label.

// The suffix with its dot, in lower case; empty for a name without one. A member of an archive counts by its
// own name.
std::vector<byte_share> shares_by_suffix(const result_groups& result, char separator);

// The directories right below the innermost one that holds all files, and that one itself for the files right
// in it, each with its separator. A member of an archive counts where the archive lies.
std::vector<byte_share> shares_by_directory(const result_groups& result, char separator);

}  // namespace corvane
