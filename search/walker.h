// The directory walk: selected directories in, file_list out. Breadth-first through dir_queue; links to
// directories come last, each place once.
#pragma once

namespace corvane {

class Tavrel;

// Saves the selection, walks, sorts. After it file_count is valid, unless quit_requested was set: then it
// stays 0.
void list_files(Tavrel& form);

// The walk itself: fills dir_queue, file_list and walk_count, and writes the archive error report. One that
// cannot be written is told and stops nothing.
void walk_directories(Tavrel& form);

}  // namespace corvane
