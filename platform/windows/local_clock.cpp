#include "platform/local_clock.h"

#include <windows.h>

#include "platform/file_time.h"

namespace corvane {

local_time local_time_of(std::int64_t unix_seconds) {
    const std::int64_t units = (unix_seconds + seconds_1601_to_1970) * file_time_units_per_second;
    FILETIME moment;
    moment.dwLowDateTime = static_cast<DWORD>(units);
    moment.dwHighDateTime = static_cast<DWORD>(units >> 32);
    SYSTEMTIME universal, local;
    TIME_ZONE_INFORMATION zone;
    // By the rules of the moment's own year, as a clock on the wall showed it.
    if (units < 0 || !FileTimeToSystemTime(&moment, &universal) ||
        !GetTimeZoneInformationForYear(universal.wYear, nullptr, &zone) ||
        !SystemTimeToTzSpecificLocalTime(&zone, &universal, &local))
        return {};
    return {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond};
}

}  // namespace corvane
