// Contents as they are now, read for the deletion: whether two files are equal, and what a file's checksum
// is. Used by the gate before anything leaves the disk.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "platform/file_system.h"

namespace corvane {

class content_check {
  public:
    // `turn` lets waiting events run; false when the program is closing. It is called at least once for each
    // MiB that is read.
    content_check(file_system& files, std::function<bool()> turn) : files_(files), turn_(std::move(turn)) {}

    // True when both files have exactly `length` bytes, the same ones. False also for what cannot be read,
    // and when the program is closing.
    bool same(std::string_view a, std::string_view b, std::int64_t length);
    // The CRC-32 of a file of exactly `length` bytes. Nothing when it cannot be read or is of another length,
    // or the program is closing.
    std::optional<std::uint32_t> checksum(std::string_view path, std::int64_t length);

  private:
    bool take_turn(std::int64_t bytes);

    file_system& files_;
    std::function<bool()> turn_;
    std::int64_t read_since_turn_ = 0;
};

}  // namespace corvane
