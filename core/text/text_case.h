// Texts in upper or lower case, letter by letter and independent of any locale. Used to compare names,
// extensions and texts of the user without regard to case.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// The upper case of one letter after Unicode's simple mapping, which makes one letter of one; any other value
// is returned as it is. A letter whose upper case is several letters, like the sharp s, stays.
char32_t upper_case(char32_t letter);

// The same for each letter of a text. Bytes that are no valid UTF-8 stay. The result may be longer or shorter
// than the text.
std::string upper_case(std::string_view utf8);
// The same to the lower case.
char32_t lower_case(char32_t letter);
std::string lower_case(std::string_view utf8);
void append_lower_case(std::string& out, std::string_view utf8);

// Appends upper_case(utf8) to `out`; `utf8` must not lie in `out`.
void append_upper_case(std::string& out, std::string_view utf8);

}  // namespace corvane
