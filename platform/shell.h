// What the program asks of the desktop: the recycle bin, opening documents and directories, property sheets,
// processes, the clipboard, help topics. platform/desktop does it; the console prints it.
#pragma once

#include <string>
#include <vector>

#include "platform/outcome.h"

namespace corvane {

// A process that the program has started. It is on its own: it goes on when this object or the program ends.
class started_process {
  public:
    virtual ~started_process() = default;
    // Waits for its end, at most that long; 0 only asks.
    virtual bool has_ended(double seconds) = 0;
};

class shell {
  public:
    virtual ~shell() = default;

    // Moves one path to the recycle bin; what cannot be moved stays where it is.
    virtual outcome recycle(const std::string& path) = 0;
    // Opens a document, a directory or an address on the web (http:// or https://) with the program that is
    // associated with it.
    virtual outcome open_document(const std::string& path) = 0;
    // Opens the file manager with the path selected.
    virtual outcome show_in_file_manager(const std::string& path) = 0;
    virtual outcome show_properties(const std::string& path) = 0;
    // Opens the system's settings of energy and sleep.
    virtual outcome open_power_settings() = 0;
    // The full path of a program that is started by its bare name; empty when there is none.
    virtual std::string find_program(const std::string& name) = 0;
    // Starts a program, the first argument, without waiting for it. It has no input and no terminal, what it
    // prints is dropped, and the files that it makes are the user's alone.
    virtual outcome_with<started_process> start_process(const std::vector<std::string>& arguments) = 0;
    virtual outcome set_clipboard(const std::string& text) = 0;
    // Types keys into the window that has the focus: "{F3}", "^V" (Ctrl+V), "{ENTER}".
    virtual outcome send_keys(const std::string& keys) = 0;
    // Opens one page of the help, which stands in the folder "help" beside the help file.
    virtual outcome open_help_topic(const std::string& help_file, const std::string& topic) = 0;
};

}  // namespace corvane
