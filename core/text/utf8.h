// The letters of UTF-8 texts. Used by the case tables and by all that reads or writes names of archives.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

// A letter and the number of its bytes; 0 bytes when there is no valid one.
struct utf8_letter {
    char32_t letter;
    std::size_t length;
};

// The first letter of a text that is not empty.
utf8_letter decode_utf8(std::string_view utf8);

void append_utf8(std::string& out, char32_t letter);

// True when every byte belongs to a valid letter.
bool is_utf8(std::string_view text);

}  // namespace corvane
