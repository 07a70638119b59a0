// The starts of the files that are going to be read next: read many at once, held until they are asked for.
// Used by group.h, which says what is going to be read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

class read_ahead {
  public:
    // At most so many files and, but for the first one, bytes are held.
    static constexpr std::size_t most_files = 512;
    static constexpr std::size_t most_bytes = std::size_t{2} << 20;

    struct wanted_start {
        std::string_view path;  // its text stays where it is for as long as the start is held
        std::size_t length;     // of the start
        bool whole;             // the file is to end behind it: one byte more is asked for
    };
    struct start {
        std::int64_t count = -1;  // bytes read, one too many for a file that has grown; -1: unreadable
        std::span<const std::byte> bytes;
    };

    // Files are known by where the text of their path stands: their numbers change when a group is ordered.
    bool holds(std::string_view path) { return find(path) != nullptr; }
    // Reads as many of them as fit and time allows, at least the first. What was held is dropped. Quickest
    // when they are taken in the same order. While the disk has answered none, `keep_going` lets events run;
    // when that answers false, none is held.
    void read(file_system& disk, std::span<const wanted_start> wanted,
              const std::function<bool()>& keep_going);
    // Of a file that is held; else unreadable. Valid until the next reading.
    start take(std::string_view path);
    // What has been read no longer counts.
    void drop() { held_.clear(); }

  private:
    struct held_start {
        const char* path;
        start content;
    };

    const held_start* find(std::string_view path);

    std::vector<std::byte> bytes_;
    std::vector<start_request> requests_;
    std::vector<held_start> held_;
    std::size_t next_ = 0;  // what is looked at first
};

}  // namespace corvane
