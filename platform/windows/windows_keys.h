// Clipboard and typed keys on Windows. Used by windows_shell.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/outcome.h"

namespace corvane {

// The whole text, or nothing.
outcome put_into_clipboard(const std::wstring& text);

struct key_stroke {
    unsigned short code = 0;  // the system's number of the key
    bool released = false;
    bool operator==(const key_stroke&) const = default;
};
// "^V", "{F3}", "{ENTER}": braces hold the name of a key; +, ^ and % before a key hold shift, control and
// alt. Empty for what names no key.
std::vector<key_stroke> strokes_of(std::string_view keys);
// Types them into the window that has the focus.
outcome type_keys(std::string_view keys);

}  // namespace corvane
