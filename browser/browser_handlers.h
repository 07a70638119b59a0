// The handlers of the list of pairs.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

handler_table browser_handlers();

}  // namespace corvane
