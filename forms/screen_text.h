// Program text as the screen shows it: bytes that are no UTF-8 become replacement marks, mapped characters
// become visible ones. Every widget of the front end shows texts through this; acts keep the bytes.
#pragma once

#include <QString>
#include <string_view>

namespace corvane {

QString screen_text(std::string_view text);

// As a box or a tip shows it: every line end is one character.
QString screen_lines(std::string_view text);

// One line: line ends and tabs become blanks.
QString screen_line(std::string_view text);

}  // namespace corvane
