// Names that menus, controls and constants speak of and that have no handler yet, and those that never get
// one. Everything else must be in a table of handlers.
#pragma once

#include <span>

namespace corvane {

// Handlers of tasks that are still to come. Empty when the program is complete.
std::span<const char* const> handlers_to_come();

// Entries and buttons without an effect: they stand there for their words alone.
std::span<const char* const> names_without_effect();

}  // namespace corvane
