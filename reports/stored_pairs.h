// The pairs of the stored same-file result, one after the other. Used by all that reports it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/text/text_file.h"

namespace corvane {

struct stored_pair {
    std::int64_t length = 0;  // bytes of each of the two
    std::string_view first;   // valid until the next one is read
    std::string_view second;
};

class stored_pair_reader {
  public:
    // A store that is missing has no pairs: that is how a result without one is kept.
    stored_pair_reader(file_system& files, const std::string& store);

    // False at the end. A pair that is cut off is none.
    bool next(stored_pair& pair);

  private:
    line_reader lines_;
    std::string first_;
};

}  // namespace corvane
