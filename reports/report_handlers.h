// The handlers of the exports under their names.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

handler_table report_handlers();

}  // namespace corvane
