// The last-write time of a file in local time. Used by the views that show it.
#pragma once

#include "platform/file_system.h"
#include "platform/user_interface.h"

namespace corvane {

class Tavrel;

local_time file_date(Tavrel& form, const file_facts& facts);

}  // namespace corvane
