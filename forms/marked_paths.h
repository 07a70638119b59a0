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
    // Takes the marks as they are now, in one walk over the colours; at once done when there are none.
    void renew(const list_view& list);
    bool holds(std::string_view path) const;

  private:
    std::size_t place_of(std::uint64_t key) const;

    // Open addressing over hashes of 64 bits, 0 for a free place: this is for the eye alone, and texts would
    // not outlive their list.
    std::vector<std::uint64_t> keys_;
};

}  // namespace corvane
