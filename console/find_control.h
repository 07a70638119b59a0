// Controls by the names that scripts give them. Used by the script's commands.
#pragma once

#include <string_view>

#include "app/program.h"

namespace corvane {

// "FORM.CONTROL" or "CONTROL" of the main form; null when unknown. `form` receives its window.
control* find_control(program& corvane, std::string_view name, form_model** form);

}  // namespace corvane
