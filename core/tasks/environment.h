// What survives a restart: the settings in 'Tavrel环境.txt' and the selected directories in
// '比较文件_目录清单.txt', both beside the program.
#pragma once

#include <cstdint>
#include <string_view>

namespace corvane {

class form_model;
class Tavrel;
struct run_state;
struct settings;

// What an end of the session does, in words, by shut_action; null for none, which keeps the words there were.
const char* end_action_words(int shut_action);

// Collects what lives in windows, then writes both files whole. False, after one message, when it cannot;
// says nothing more in a program folder of which start-up has said that it cannot be written.
bool 写Tavrel环境文件(Tavrel& form);

// Copies into the settings what lives in windows: places, the time of this write, boxes and check marks.
void collect_environment(Tavrel& form);

// A place in twips as its line keeps it: at the limit of the line's type when it is beyond.
std::int16_t stored_place(int twips);
// Takes the place of the options window, unless it is minimised or maximised.
void keep_options_place(settings& values, const form_model& options);

// Gives a numeric setting a value that holds for this run alone: the file keeps what it had. Throws
// std::logic_error for a name that environment_table does not know.
void set_for_this_run(run_state& state, std::string_view setting, std::int32_t number);

// Reads both files and mends what needs it. A missing settings file is written and announced. One that cannot
// be read to its end is deleted without a word; what was read up to there stays in force.
void read_environment(Tavrel& form);

}  // namespace corvane
