// Names and paths between the raw bytes on the disk and the program's text, in which `*` marks archive
// entries and a line break ends an entry of a data file. platform/linux maps wherever a name comes in or goes
// out; on Windows the raw bytes are the UTF-8 of a name as other programs get to see it, and a half of a
// surrogate pair that stands alone is mapped, too.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// In text, the raw bytes 0x01 to 0x1F, 0x7F and `*` are the characters U+F000 + byte. A character U+F000 to
// U+F0FF that is in the raw bytes already follows a U+F000 in text. All else is the same in both, also what
// is no UTF-8. Different raw bytes always make different texts, and to_raw(to_text(raw)) is raw.

// Whether to_text(raw) differs from raw.
bool needs_mapping(std::string_view raw);
std::string to_text(std::string_view raw);
// Appends to_text(raw) to `out`; `raw` must not lie in `out`.
void append_text(std::string& out, std::string_view raw);

// Whether to_raw(text) differs from text.
bool needs_unmapping(std::string_view text);
// Characters U+F000 to U+F0FF that to_text does not make pass through.
std::string to_raw(std::string_view text);

}  // namespace corvane
