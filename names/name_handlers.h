// The handlers of the name checks.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

handler_table name_handlers();

}  // namespace corvane
