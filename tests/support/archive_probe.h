// Reads any bytes as an archive and holds what is listed against what must be true of every archive. Used by
// the fuzz targets and by the tests of hostile archives.
#pragma once

#include <cstddef>
#include <string>

#include "tests/support/test_program.h"

namespace corvane {

class archive_probe {
  public:
    // `type` is "zip" or "rar".
    explicit archive_probe(const std::string& type);

    // What is wrong with the list or the report; empty when all is right.
    std::string read(std::string bytes);
    // Of the last archive.
    std::int32_t members() const { return program_.state.walk_count; }
    // Over the bytes of its names.
    unsigned name_sum() const { return name_sum_; }

  private:
    test_program program_;
    std::string path_;
    unsigned name_sum_ = 0;
    std::size_t least_member_;  // bytes of an archive that one member takes at least
};

}  // namespace corvane
