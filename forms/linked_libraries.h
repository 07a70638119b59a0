// The libraries of this front end as they run, for the about box. Written twice, in linux/ and windows/.
#pragma once

#include <string>
#include <vector>

#include "ui_text/about_form.h"

namespace corvane {

std::vector<used_library> libraries_in_use();

// How a user puts another version of one in its place, where that is not as the about box says of itself;
// else empty.
std::string replacing_words();

}  // namespace corvane
