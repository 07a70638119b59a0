// Dates and times as text: the short date form year-month-day, and back.
#pragma once

#include <string>
#include <string_view>

#include "platform/user_interface.h"

namespace corvane {

// `days` since 1899-12-30; the fraction is dropped. The zero date is "0:00:00".
std::string date_text(double days);
// Takes year-month-day, parted by '-', '/' or '.', years 100 to 9999, and the zero date. False for any other
// text: `days` is left alone.
bool parse_date(std::string_view text, double& days);

// 2026-03-04 and 05:06:07.
std::string date_text(const local_time& moment);
std::string time_text(const local_time& moment);

// Appends both, parted by a blank; without an allocation of its own, for a million lines.
void append_date_time(std::string& out, const local_time& moment);
// Days since 1899-12-30, the time as their fraction.
double days_of(const local_time& moment);

}  // namespace corvane
