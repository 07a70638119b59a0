// What a reader sees of a text of the program. Names from the disk hold no control characters and no `*` but
// characters U+F000 + byte in their place; on the screen each is a sign again. Used by the windows and by
// whatever takes a text that was typed after the screen.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// Appends `text`, in which a mapped `*` or another printable byte is the character itself and a mapped
// control byte its picture. All else is taken over, also what is no UTF-8.
void append_shown_text(std::string& out, std::string_view text);
std::string shown_text(std::string_view text);

// The same of a text that was typed or pasted, in which the control bytes themselves may stand.
std::string typed_as_shown(std::string_view typed);

}  // namespace corvane
