// The trace switch: with CORVANE_TRACE=1 in the environment every handler that the user or a script runs is
// told on standard error, with its duration and the yields meanwhile.
#pragma once

namespace corvane {

class Tavrel;

bool trace_is_asked();

// One line a handler: "trace" TAB name TAB seconds TAB yields. Does nothing where the switch is off.
void trace_if_asked(Tavrel& form);

}  // namespace corvane
