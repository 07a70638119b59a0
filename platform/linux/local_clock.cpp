#include "platform/local_clock.h"

#include <ctime>

namespace corvane {

local_time local_time_of(std::int64_t unix_seconds) {
    const auto moment = static_cast<std::time_t>(unix_seconds);
    std::tm parts{};
    if (localtime_r(&moment, &parts) == nullptr) return {};
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec};
}

}  // namespace corvane
