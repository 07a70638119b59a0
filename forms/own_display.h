// Whether there is a display to open windows on. Asked by main before Qt, which would end the process;
// written twice, in linux/ and windows/.
#pragma once

#include <span>

namespace corvane {

// False, with a word on standard error, where neither the environment nor `arguments` name one.
bool has_display(std::span<const char* const> arguments);

}  // namespace corvane
