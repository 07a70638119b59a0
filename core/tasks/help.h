// Opening help topics, and the help mode in which a click on a task opens its topic.
#pragma once

#include <string>

namespace corvane {

class Tavrel;

// Opens a file or folder beside the program by its association; empty: the folder itself.
void open_beside_program(Tavrel& form, const std::string& name);
// "备记": the user's free notes, made empty when there are none yet.
void open_notes(Tavrel& form);
// "帮助原稿": the manuscript of the help.
void open_manual(Tavrel& form);

// Opens the page of a topic, 1 to 99, of the help file in shared_dir.
void open_topic(Tavrel& form, int topic);

// In help mode opens the topic and returns true: the task must not run. The first step of every task entry.
bool help_mode_opens(Tavrel& form, int topic);

}  // namespace corvane
