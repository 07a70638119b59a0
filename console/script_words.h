// What parts a line of a console script. Used by all that reads one.
#pragma once

#include <string_view>

namespace corvane {

// Cuts the first word off; what is left begins with the next word.
std::string_view take_word(std::string_view& rest);

}  // namespace corvane
