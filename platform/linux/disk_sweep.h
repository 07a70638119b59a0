// Reads the starts of many files in the order in which they lie on the disk: what a device with one arm
// wants, and what many threads cannot give it. Used by linux_file_system.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/file_system.h"
#include "platform/request_pool.h"

namespace corvane {

class disk_sweep {
  public:
    // Where a file begins on its disk, in whatever unit.
    using place_of = std::function<std::uint64_t(std::string_view path)>;
    // Fills a request's buffer and count.
    using reader = std::function<void(start_request& request)>;
    using clock = std::function<double()>;  // seconds

    disk_sweep(place_of place, reader read, clock seconds);

    // Whether the next starts are read by a sweep: where threads, as many as are best, get so little from
    // the disk that it may have an arm, one is tried, and kept while it gets more. What answers from memory
    // is left to the threads again, which are measured anew.
    bool is_wanted(request_pace& pace);
    // As file_system::read_starts. What stands in the list behind a start that has not been reached is read
    // all the same: the system's memory holds it until it is asked for again.
    std::size_t read(std::span<start_request> requests);

    static constexpr double slow_rate = 2000;     // starts a second; an arm gets some hundred
    static constexpr double memory_rate = 10000;  // no arm gets so many
    static constexpr std::size_t measured_starts = 256;
    static constexpr int rest_calls = 64;  // after a trial that gained nothing

  private:
    enum class state { rests, is_tried, is_kept };
    struct known_file {
        std::uint64_t place = 0;
        bool is_read = false;
    };

    bool find_places(std::span<const start_request> requests, double end);
    void sweep(std::span<start_request> requests, double end);
    std::size_t answer(std::span<start_request> requests);
    void judge(request_pace& pace);

    place_of place_;
    reader read_;
    clock seconds_;
    state state_ = state::rests;
    int rest_ = 0;
    std::size_t starts_ = 0;                             // read since the last judgement
    double time_ = 0;                                    // that they took
    std::uint64_t arm_ = 0;                              // where the last one lay
    std::unordered_map<std::string, known_file> known_;  // not answered yet
    std::vector<char> is_answered_;                      // of the requests of this call
};

// By the first extent of the file, else by its inode number, which mostly ascends with the place.
std::uint64_t place_on_disk(std::string_view path);

}  // namespace corvane
