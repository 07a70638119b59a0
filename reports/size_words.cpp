#include "reports/size_words.h"

#include <array>
#include <cstdio>

namespace corvane {

std::string size_words(std::int64_t bytes) {
    static constexpr std::array<const char*, 7> units = {"B", "kB", "MB", "GB", "TB", "PB", "EB"};
    if (bytes < 1000) return std::to_string(bytes) + " B";
    auto value = static_cast<double>(bytes);
    std::size_t unit = 0;
    // What would be rounded to 1000 belongs to the next unit.
    for (; value >= 999.5 && unit + 1 < units.size(); ++unit) value /= 1000;
    const int decimals = value < 9.995 ? 2 : value < 99.95 ? 1 : 0;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.*f ", decimals, value);
    return text.data() + std::string(units[unit]);
}

std::string grouped_number(std::int64_t number) {
    std::string text = std::to_string(number);
    const std::size_t first = number < 0 ? 1 : 0;
    for (std::size_t at = text.size(); at > first + 3;) {
        at -= 3;
        text.insert(at, 1, ',');
    }
    return text;
}

}  // namespace corvane
