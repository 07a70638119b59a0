// What a selection says of directories that lie in others of it and so are searched with them. Shown by the
// directory window.
#pragma once

#include <string>
#include <vector>

#include "core/model/controls.h"

namespace corvane {

// One line, empty where no row lies in another one. A checked row is there for its protection and is not
// spoken of.
std::string nested_line(const std::vector<list_box::row>& rows, char separator);

}  // namespace corvane
