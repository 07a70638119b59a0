#include "core/text/text_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <limits>

namespace corvane {

std::string format_elapsed(double seconds, int mode) {
    if (seconds < 0) seconds += std::ceil(-seconds / 86400.0) * 86400.0;
    const double whole_seconds = std::floor(seconds);
    const auto total = static_cast<std::int64_t>(whole_seconds);
    std::string text = std::to_string(total / 3600);
    const auto add = [&text](char sign, std::int64_t number) {
        text += sign;
        text += std::to_string(number);
    };
    add(':', total / 60 % 60);
    if (mode == 2) return text;
    add(':', total % 60);
    if (mode == 1) return text;
    add('.', static_cast<std::int64_t>((seconds - whole_seconds) * 100));
    return text;
}

std::string scale_size(double& bytes, std::string& size_unit) {
    if (!(bytes > 1)) return {};
    // The small term lifts an exact power of ten into the upper class.
    const double digits = std::log(bytes) / std::log(10.0) + 1e-11;
    size_unit.clear();
    if (digits >= 6 && digits < 9) {
        bytes = std::floor(bytes / 1024.0);
        size_unit = " K";
    } else if (digits >= 9 && digits < 12) {
        bytes = std::floor(bytes / 1048576.0);
        size_unit = " M";
    } else if (digits >= 12) {
        bytes = std::floor(bytes / 1073741824.0);
        size_unit = " G";
    }
    return size_unit;
}

std::string group_digits(double number) {
    const std::int64_t whole = std::llround(number);
    if (whole == 0) return {};
    std::string digits = std::to_string(whole);
    const std::size_t first = digits[0] == '-' ? 1 : 0;
    for (std::size_t at = digits.size(); at > first + 3;) {
        at -= 3;
        digits.insert(at, 1, ',');
    }
    return digits;
}

std::string group_count(double number) {
    std::string digits = group_digits(number);
    return digits.empty() ? "0" : digits;
}

std::string short_size(double bytes) {
    static constexpr const char* units[] = {"字节", "KB", "MB", "GB", "TB"};
    std::size_t unit = 0;
    while (bytes >= 1024 && unit + 1 < std::size(units)) {
        bytes /= 1024;
        ++unit;
    }
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), unit == 0 ? "%.0f %s" : "%.1f %s", bytes, units[unit]);
    return text.data();
}

int split_text(std::string_view text, std::string_view delimiter, std::vector<std::string>& parts) {
    parts.assign(1, {});
    if (text.empty()) return 0;
    std::size_t start = 0;
    while (!delimiter.empty()) {
        const std::size_t found = text.find(delimiter, start);
        if (found == std::string_view::npos) break;
        parts.emplace_back(text.substr(start, found - start));
        start = found + delimiter.size();
    }
    parts.emplace_back(text.substr(start));
    return static_cast<int>(parts.size()) - 1;
}

std::string number_line(std::int64_t number) {
    std::string line = std::to_string(number);
    if (number >= 0) line.insert(0, 1, ' ');
    return line += ' ';
}

namespace {

std::string_view without_leading_blanks(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    return text;
}

}  // namespace

std::int64_t parse_number(std::string_view text) {
    text = without_leading_blanks(text);
    std::int64_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc::result_out_of_range)
        return text.front() == '-' ? std::numeric_limits<std::int64_t>::min()
                                   : std::numeric_limits<std::int64_t>::max();
    return number;
}

double parse_decimal(std::string_view text) {
    text = without_leading_blanks(text);
    double number = 0;
    // from_chars reads "inf" and "nan" as well; a number starts with a digit, a sign or a point.
    const std::size_t first = !text.empty() && text.front() == '-' ? 1 : 0;
    if (text.size() <= first) return 0;
    const char lead = text[first];
    if ((lead < '0' || lead > '9') && lead != '.') return 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec == std::errc::result_out_of_range) {
        // Too large, unless a negative exponent made it too small.
        if (std::string_view(text.data(), static_cast<std::size_t>(read.ptr - text.data())).find("e-") !=
            std::string_view::npos)
            return 0;
        return first == 1 ? -std::numeric_limits<double>::infinity()
                          : std::numeric_limits<double>::infinity();
    }
    return number;
}

std::int32_t whole_number(std::string_view text) {
    using range = std::numeric_limits<std::int32_t>;
    const double number = std::nearbyint(parse_decimal(text));
    if (number <= range::min()) return range::min();
    if (number >= range::max()) return range::max();
    return static_cast<std::int32_t>(number);
}

int code_page_length(std::string_view text) {
    constexpr std::string_view euro = "€";
    int length = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto unit = static_cast<unsigned char>(text[at]);
        if (unit < 0x80)
            ++length;
        else if (unit >= 0xC0)
            length += text.substr(at, euro.size()) == euro ? 1 : 2;
    }
    return length;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

std::string one_line(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char unit) { return unit == '\r' || unit == '\n'; }, ' ');
    return text;
}

bool is_blank(std::string_view text) {
    return text.compare(" ") <= 0;
}

}  // namespace corvane
