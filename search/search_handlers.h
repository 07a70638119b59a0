// The handlers of the file search and of its stored list.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

handler_table search_handlers();

}  // namespace corvane
