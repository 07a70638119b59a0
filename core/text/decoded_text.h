// The text of a file whose encoding nobody has stated: told by its mark, by what is valid UTF-8, else taken
// as Chinese of code page 936. Used by the preview.
#pragma once

#include <string>
#include <string_view>

#include "platform/text_encoding.h"

namespace corvane {

struct decoded_text {
    bool is_text = false;  // false: the bytes are no text
    std::string utf8;      // line ends as they stand; what cannot be decoded is U+FFFD
    const char* encoding = "";
};

// `head` is the start of a file; `cut` says that the file goes on, so that its last letter may be broken off.
decoded_text decode_text(std::string_view head, bool cut, text_encoding& encodings);

// At most `most_lines` lines of at most `longest` letters each; control characters other than tabs become
// blanks. `shortened` is set when something was left out.
std::string first_lines(std::string_view utf8, int most_lines, int longest, bool& shortened);

// The bytes as lines of sixteen: offset, figures, letters.
std::string hex_lines(std::string_view bytes);

}  // namespace corvane
