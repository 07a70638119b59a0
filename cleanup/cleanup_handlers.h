// The handlers of the deletion of files and of the empty directories.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

handler_table cleanup_handlers();

}  // namespace corvane
