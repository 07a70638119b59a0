// Shows a text file in a plain viewer, whatever its suffix says. Used by the spreadsheet export.
#pragma once

#include <string>

namespace corvane {

class Tavrel;

// Forgets the viewer of the last export. It stays open.
void forget_viewer(Tavrel& form);

// Starts a text viewer on the file and records it. Where the machine has none, the file is opened by its
// association. A failure is told.
void show_in_viewer(Tavrel& form, const std::string& path);

}  // namespace corvane
