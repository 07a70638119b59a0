// Which topic of the help belongs to what: the table of topics, the words of the status bar, the help
// contexts of windows and controls. Used by the clicks on the status bar, by F1 and by the help's own tests.
#pragma once

#include <span>
#include <string_view>

#include "core/model/handlers.h"

namespace corvane {

// Topics that the program has names for. Every topic is a page "auxNN_Corvane帮助_Link.htm".
namespace topic {
constexpr int start = 1;
constexpr int messages = 6;
constexpr int panels = 4;
constexpr int left_list = 8;
constexpr int file_search = 11;
constexpr int options = 22;
constexpr int tree = 50;
constexpr int support = 62;
constexpr int versions = 63;
}  // namespace topic

// Every topic that has a page, in the order of their numbers.
std::span<const int> help_topics();

// The topic of a text of panel 7, by exact comparison; topic::panels for a text that the table does not know.
int topic_of_panel(std::string_view words);

// The topic of a help context, 1000 to 1099: that of its last two digits where it has a page, else that of
// the window it belongs to. topic::start for everything else.
int topic_of_context(int context);

handler_table help_handlers();

}  // namespace corvane
