// One number for a device, however the system hands it over. Used wherever files are told apart.
#pragma once

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cstdint>

namespace corvane {

constexpr std::uint64_t device_of(std::uint64_t major, std::uint64_t minor) {
    return major << 32 | minor;
}

inline std::uint64_t device_of(const struct stat& facts) {
    return device_of(major(facts.st_dev), minor(facts.st_dev));
}

}  // namespace corvane
