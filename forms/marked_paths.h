// The paths that are marked for deletion, to be found by their text: a path that stands in many rows is
// marked in one of them. Used by list_model.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "core/model/list_view.h"

namespace corvane {

class marked_paths {
  public:
    // Takes over the marks in a walk over the colours, looking at up to `most` cells in a call; the next call
    // goes on there, or begins anew where the list has changed since. What was known holds until then, but
    // not for other rows. At once done when there are no marks.
    walk_progress renew(const list_view& list, std::int64_t most);
    bool holds(std::string_view path) const;

  private:
    // Open addressing over hashes of 64 bits, 0 for a free place: this is for the eye alone, and texts would
    // not outlive their list.
    using hashes = std::vector<std::uint64_t>;
    static std::size_t place_of(const hashes& keys, std::uint64_t key);

    list_revisions taken_;
    hashes keys_;
    list_revisions of_;  // the list whose marks are on their way
    int column_ = 1;     // the next cell
    std::int32_t row_ = 1;
    std::int64_t left_ = 0;  // marks not met yet
    hashes coming_;
};

}  // namespace corvane
