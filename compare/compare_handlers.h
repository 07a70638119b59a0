// The handlers of the comparison.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

handler_table compare_handlers();

}  // namespace corvane
