// The decision that two files are the same: walks the ordered columns and fills same_pair.
#pragma once

#include <cstdint>
#include <functional>

namespace corvane {

class Tavrel;

enum class comparison_end { finished, cancelled, quit };

struct comparison_outcome {
    comparison_end end = comparison_end::finished;
    std::int32_t files_checked = 0;
};

// Compares the files of the prepared columns. Groups of equal files become stars: the first file of a group
// is paired with each other one. `keeps_contents` is called when what is known of contents is complete and
// confirmed; it is given up then.
comparison_outcome compare_files(Tavrel& form, const std::function<void()>& keeps_contents);

}  // namespace corvane
