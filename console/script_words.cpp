#include "console/script_words.h"

#include <algorithm>

namespace corvane {

std::string_view take_word(std::string_view& rest) {
    const auto skip_blanks = [&rest] {
        while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t')) rest.remove_prefix(1);
    };
    skip_blanks();
    const std::size_t end = std::min(rest.find_first_of(" \t"), rest.size());
    const std::string_view word = rest.substr(0, end);
    rest.remove_prefix(end);
    skip_blanks();
    return word;
}

}  // namespace corvane
