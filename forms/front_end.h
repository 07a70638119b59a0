// Ties the program's models to its windows: hands acts to handlers, copies what changed to the screen, ticks
// the clock. Made by main and by the tests.
#pragma once

#include <QTimer>
#include <memory>
#include <string>
#include <vector>

#include "app/program.h"

namespace corvane {

class about_window;
class child_window;
class directory_window;
class help_keys;
class long_run;
class main_window;
class options_window;
class qt_user_interface;
class restore_window;
class sleep_window;
class tree_window;
class warning_window;

class front_end {
  public:
    // Both outlive the front end.
    front_end(program& corvane, qt_user_interface& screen);
    ~front_end();

    // Runs a handler of the main form by its name, then brings the screen up to date.
    void act(const std::string& handler);
    // Copies what changed in the models to the widgets.
    void sync();
    // Starts the program and its clock. False when the program runs already and this process is to end.
    bool start();
    void close();

    main_window& main() { return *main_; }
    directory_window& directory() { return *directory_; }
    options_window& options() { return *options_; }
    tree_window& tree() { return *tree_; }
    sleep_window& sleep() { return *sleep_; }
    warning_window& warning() { return *warning_; }
    about_window& about() { return *about_; }
    restore_window& restoring() { return *restore_; }

  private:
    program& program_;
    qt_user_interface& screen_;
    void follow();
    // What another start of the program gets to see: the window that waits for its end. False when it does
    // not.
    bool raise_while_closing();
    // Takes directories of another start, and comes to the front.
    reception receive(const std::vector<std::string>& directories);

    QTimer clock_;
    QTimer follow_timer_;
    std::unique_ptr<main_window> main_;
    std::unique_ptr<long_run> long_run_;
    std::unique_ptr<directory_window> directory_;
    std::unique_ptr<options_window> options_;
    std::unique_ptr<tree_window> tree_;
    std::unique_ptr<sleep_window> sleep_;
    std::unique_ptr<warning_window> warning_;
    std::unique_ptr<about_window> about_;
    std::unique_ptr<restore_window> restore_;
    std::unique_ptr<help_keys> help_keys_;
    void take_folders(const std::string& text, const char* handler, bool joins);
    std::vector<child_window*> windows_;  // every window beside the main form
    bool syncing_ = false;
};

}  // namespace corvane
