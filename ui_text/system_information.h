// The desktop's own window about the machine, for the button of the about box.
#pragma once

namespace corvane {

class Tavrel;

// Starts the first tool of a table that the machine has. Where there is none, or it cannot be started, a box
// says so and nothing starts.
void StartSysInfo(Tavrel& form);

}  // namespace corvane
