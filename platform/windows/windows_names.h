// Names between the UTF-16 of the Windows calls and the program's text, in which a control character would
// end a line and `*` marks archive entries. Used by platform/windows wherever a name comes in or goes out.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// In text, U+0001 to U+001F, U+007F and `*` are the characters U+F000 + code; a unit U+D800 to U+DFFF that is
// no half of a pair is U+F100 + what it is above U+D800; a character U+F000 to U+F8FF of the name follows a
// U+F000. All else is UTF-8. Different names always make different texts, and units_of(text_of(units)) is
// units.
void append_text_of(std::string& out, std::wstring_view units);
std::string text_of(std::wstring_view units);
// False: no name makes this text (it is no UTF-8), and `units` is empty.
bool units_of(std::string_view text, std::wstring& units);

// Texts that are no names: UTF-8 both ways, U+FFFD for what is none.
std::wstring wide(std::string_view utf8);
std::string narrow(std::wstring_view units);

}  // namespace corvane
