// The handlers of the main form that belong to no task: lock, settings, error trail, help.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

handler_table core_handlers();

}  // namespace corvane
