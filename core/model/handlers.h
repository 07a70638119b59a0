// Handlers by name: what a click, a key, a menu entry or a script runs. Each folder exports a table of its
// own; the program joins them on the main form.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace corvane {

class Tavrel;

struct handler {
    std::string name;
    std::function<void(Tavrel&)> procedure;
    // A task: it does not start while another one runs, whichever way it is asked for.
    bool starts_task = false;
};

using handler_table = std::vector<handler>;

constexpr bool starts_task = true;

// A handler that one folder reaches in another one.
struct handler_name {
    const char* text;
};

namespace handlers {

inline constexpr handler_name choose_directories{"Picture1_Click"};
inline constexpr handler_name search_files{"picture2_Click"};
inline constexpr handler_name read_file_list{"Command21_Click"};
inline constexpr handler_name find_same_files{"Picture3_Click"};
inline constexpr handler_name search_and_compare{"search_check_m_Click"};
inline constexpr handler_name show_same_files{"load_same_view"};
inline constexpr handler_name lay_out_list{"layout_list"};
inline constexpr handler_name find_in_list{"search_in_result"};
inline constexpr handler_name find_again{"again_search"};
inline constexpr handler_name show_empty_directories{"Picture7_Click"};
inline constexpr handler_name delete_marked_files{"delete_marked_recycle"};
inline constexpr handler_name delete_empty_directories{"Picture8_Click"};
inline constexpr handler_name unmark_protected{"unmark_protected"};
inline constexpr handler_name store_marks{"store_marks"};
inline constexpr handler_name start_shutdown{"start_shutdown"};
inline constexpr handler_name tooltips_on{"tooltiphelp_true"};
inline constexpr handler_name tooltips_off{"tooltiphelp_false"};

// All of the above; a test holds them against the tables.
inline constexpr handler_name all[] = {choose_directories,  search_files,
                                       read_file_list,      find_same_files,
                                       search_and_compare,  show_same_files,
                                       lay_out_list,        find_in_list,
                                       find_again,          show_empty_directories,
                                       delete_marked_files, delete_empty_directories,
                                       unmark_protected,    store_marks,
                                       start_shutdown,      tooltips_on,
                                       tooltips_off};

}  // namespace handlers

}  // namespace corvane
