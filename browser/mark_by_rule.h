// The menu "标记": in every group a rule keeps one copy and marks the others, asked beforehand; inverting and
// clearing marks. Used by the table of handlers.
#pragma once

#include "core/model/handlers.h"

namespace corvane {

// A handler for each rule, and those of the menu that are none. No act leaves a group without an unmarked
// member, counting the rows that a filter hides; none marks a gray cell, a row with a blank cell or a
// protected path.
handler_table mark_handlers();

}  // namespace corvane
