// The program's own words in the user's language: captions, tips, headings, messages. Names from the disk go
// through forms/screen_text.h instead, which leaves them as they are.
#pragma once

#include <QString>
#include <string_view>

namespace corvane {

class translation;

// From now on; null is the language of the program itself. The table outlives the application. Windows that
// were made before keep their captions.
void use_translation(const translation* table);
const translation* translation_in_use();

// As screen_text, screen_lines and screen_line, translated before.
QString own_text(std::string_view text);
QString own_lines(std::string_view text);
QString own_line(std::string_view text);
// A caption with the letter that the keyboard reaches it by; 0: none.
QString own_caption(std::string_view caption, char letter);

}  // namespace corvane
