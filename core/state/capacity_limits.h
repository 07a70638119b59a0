// Limits of the lists. At a limit a task stops adding, says so once, and goes on with what it has.
#pragma once

#include <cstdint>

namespace corvane {

struct capacity_limits {
    std::int32_t files = 4'000'000;
    std::int32_t directories = 200'000;
    std::int32_t selected_directories = 2'000;
    std::int32_t empty_directories = 400'000;
    std::int32_t result_rows = 1'000'000;
    std::int32_t excluded_directories = 100;
    std::int32_t file_types = 200;  // of each of the two lists
};

}  // namespace corvane
