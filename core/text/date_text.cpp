#include "core/text/date_text.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

#include "core/text/text_format.h"

namespace corvane {

namespace {

constexpr char zero_date[] = "0:00:00";
constexpr std::chrono::sys_days first_day = std::chrono::year(1899) / 12 / 30;

std::string three_numbers(const char* form, int first, int second, int third) {
    std::array<char, 48> text;
    std::snprintf(text.data(), text.size(), form, first, second, third);
    return text.data();
}

bool is_year(int year) {
    return year >= 100 && year <= 9999;
}

}  // namespace

std::string date_text(double days) {
    if (days == 0) return zero_date;
    const std::chrono::year_month_day date(first_day + std::chrono::days(static_cast<int>(std::floor(days))));
    return three_numbers("%04d-%02d-%02d", static_cast<int>(date.year()),
                         static_cast<int>(static_cast<unsigned>(date.month())),
                         static_cast<int>(static_cast<unsigned>(date.day())));
}

bool parse_date(std::string_view text, double& days) {
    text = trimmed(text);
    if (text == zero_date) {
        days = 0;
        return true;
    }
    std::array<int, 3> parts{};
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (part > 0 && (at == end || (*at != '-' && *at != '/' && *at != '.') || ++at == end)) return false;
        if (at == end || *at == '-') return false;
        const auto read = std::from_chars(at, end, parts[part]);
        if (read.ec != std::errc()) return false;
        at = read.ptr;
    }
    if (at != end || !is_year(parts[0])) return false;
    const std::chrono::year_month_day date{std::chrono::year(parts[0]),
                                           std::chrono::month(static_cast<unsigned>(parts[1])),
                                           std::chrono::day(static_cast<unsigned>(parts[2]))};
    if (!date.ok()) return false;
    days = static_cast<double>((std::chrono::sys_days(date) - first_day).count());
    return true;
}

std::string date_text(const local_time& moment) {
    return three_numbers("%04d-%02d-%02d", moment.year, moment.month, moment.day);
}

std::string time_text(const local_time& moment) {
    return three_numbers("%02d:%02d:%02d", moment.hour, moment.minute, moment.second);
}

void append_date_time(std::string& out, const local_time& moment) {
    if (moment.year < 0 || moment.year > 9999) {
        out.append(date_text(moment)).append(1, ' ').append(time_text(moment));
        return;
    }
    char text[] = "0000-00-00 00:00:00";
    const auto put = [&text](std::size_t end, int number) {
        for (; number > 0; number /= 10) text[--end] = static_cast<char>('0' + number % 10);
    };
    put(4, moment.year);
    put(7, moment.month);
    put(10, moment.day);
    put(13, moment.hour);
    put(16, moment.minute);
    put(19, moment.second);
    out.append(text, sizeof text - 1);
}

double days_of(const local_time& moment) {
    const std::chrono::year_month_day date{std::chrono::year(moment.year),
                                           std::chrono::month(static_cast<unsigned>(moment.month)),
                                           std::chrono::day(static_cast<unsigned>(moment.day))};
    const double seconds = moment.hour * 3600.0 + moment.minute * 60.0 + moment.second;
    return static_cast<double>((std::chrono::sys_days(date) - first_day).count()) + seconds / 86400.0;
}

}  // namespace corvane
