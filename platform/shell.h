// What the program asks of the desktop: the recycle bin, opening documents and directories, property sheets,
// processes, the clipboard, help topics. platform/desktop does it; the console prints it.
#pragma once

#include <span>
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
    virtual shell_result start_process(const std::vector<std::string>& arguments) = 0;
    virtual shell_result set_clipboard(const std::string& text) = 0;
    // Types keys into the window that has the focus: "{F3}", "^V" (Ctrl+V), "{ENTER}".
    virtual shell_result send_keys(const std::string& keys) = 0;
    // Opens one page of the help file.
    virtual shell_result open_help_topic(const std::string& help_file, const std::string& topic) = 0;
};

}  // namespace corvane
