// What the program asks of the desktop: the recycle bin, opening documents and directories, property sheets,
// processes, the clipboard, help topics. platform/desktop does it; the console prints it.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace corvane {

struct shell_result {
    bool done = false;
    std::string reason;    // the system's words when not done
    bool lacking = false;  // not done because the desktop has nothing that does it

    static shell_result success() { return {true, {}}; }
    static shell_result failure(std::string why) { return {false, std::move(why)}; }
    static shell_result lack(std::string why) { return {false, std::move(why), true}; }
};

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
    virtual shell_result recycle(const std::string& path) = 0;
    // Opens a document or a directory with the program that is associated with it.
    virtual shell_result open_document(const std::string& path) = 0;
    // Opens the file manager with the path selected.
    virtual shell_result show_in_file_manager(const std::string& path) = 0;
    virtual shell_result show_properties(const std::string& path) = 0;
    // The full path of a program that is started by its bare name; empty when there is none.
    virtual std::string find_program(const std::string& name) = 0;
    // Starts a program, the first argument, without waiting for it. It has no input and no terminal, what it
    // prints is dropped, and the files that it makes are the user's alone. Null when it cannot be started,
    // with the system's words in `reason`.
    virtual std::unique_ptr<started_process> start_process(const std::vector<std::string>& arguments,
                                                           std::string& reason) = 0;
    virtual shell_result set_clipboard(const std::string& text) = 0;
    // Types keys into the window that has the focus: "{F3}", "^V" (Ctrl+V), "{ENTER}".
    virtual shell_result send_keys(const std::string& keys) = 0;
    // Opens one page of the help file.
    virtual shell_result open_help_topic(const std::string& help_file, const std::string& topic) = 0;
};

}  // namespace corvane
