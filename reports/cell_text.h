// Texts of the program as other programs read them, in files whose columns are parted by tabs. Used by every
// export.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

// Appends a path or a name as a reader sees it: a `*` is itself again, a tab, a line break or another control
// byte of a name is its picture (U+2400 + byte), so that it breaks no row and no column. Bytes that are no
// UTF-8 stay as they are.
void append_name(std::string& out, std::string_view text);

// The same as the first thing in a column: a text that begins with a quote would be taken for a quoted one,
// so it is quoted.
void append_cell(std::string& out, std::string_view text);

// A length with its unit: below 1024 in "B", from there on in "KB", digits in groups of three. 0 has no
// digits.
struct size_text {
    std::int64_t value;
    const char* unit;
};
// `unit` is taken while `bytes` is below 1024.
size_text scaled_size(std::int64_t bytes, const char* unit);
void append_size(std::string& out, const size_text& size);

}  // namespace corvane
