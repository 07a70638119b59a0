// File times as the program keeps them: 100 ns units since 1601-01-01 UTC, in two signed halves. Used by what
// reads them from the disk and by what shows them.
#pragma once

#include <cstdint>

namespace corvane {

struct file_time {
    std::int32_t high = 0;
    std::int32_t low = 0;
};

constexpr std::int64_t seconds_1601_to_1970 = 11'644'473'600;
constexpr std::int64_t file_time_units_per_second = 10'000'000;

constexpr file_time to_file_time(std::int64_t unix_seconds, std::int64_t nanoseconds) {
    const auto units = static_cast<std::uint64_t>(
        (unix_seconds + seconds_1601_to_1970) * file_time_units_per_second + nanoseconds / 100);
    return {static_cast<std::int32_t>(static_cast<std::uint32_t>(units >> 32)),
            static_cast<std::int32_t>(static_cast<std::uint32_t>(units))};
}

// Whole seconds since 1970-01-01 UTC.
constexpr std::int64_t to_unix_seconds(file_time time) {
    const std::uint64_t units =
        std::uint64_t{static_cast<std::uint32_t>(time.high)} << 32 | static_cast<std::uint32_t>(time.low);
    return static_cast<std::int64_t>(units / file_time_units_per_second) - seconds_1601_to_1970;
}

}  // namespace corvane
