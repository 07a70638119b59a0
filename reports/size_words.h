// Figures as a reader takes them in at a glance. Used by the page and by the console's closing sentence.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

// Three digits and a decimal unit: "532 B", "1.23 kB", "344 MB". Exact below 1000 bytes.
std::string size_words(std::int64_t bytes);

// Digits in groups of three, also for 0.
std::string grouped_number(std::int64_t number);

}  // namespace corvane
