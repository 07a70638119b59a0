// The frames of the main form from which lists leave the program. Frame5, the tools, is reached by menus and
// by the names of its buttons; Frame6, the parameters of an export, opens over the work area.
#pragma once

namespace corvane {

class Tavrel;

// Adds the controls of both frames that the form has no member for, and gives all of them their words.
void add_export_frames(Tavrel& form);

}  // namespace corvane
