// Opening help topics, and the help mode in which a click on a task opens its topic.
#pragma once

namespace corvane {

class Tavrel;

// Opens the page of a topic, 1 to 99, of the help file in program_dir.
void open_topic(Tavrel& form, int topic);

// In help mode opens the topic and returns true: the task must not run. The first step of every task entry.
bool help_mode_opens(Tavrel& form, int topic);

}  // namespace corvane
