// Puts the program together: state, form models, handlers, ports. Both front ends make one of these.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/held_folder.h"
#include "app/program_place.h"
#include "cleanup/restore_form.h"
#include "core/model/main_form.h"
#include "platform/instance_link.h"
#include "power/shutdown.h"
#include "power/sleep_form.h"
#include "power/warning_form.h"
#include "reports/tree_form.h"
#include "search/directory_form.h"
#include "search/options_form.h"
#include "ui_text/interface_text.h"

namespace corvane {

class program {
  public:
    // The ports outlive the program.
    program(ports outside, program_place place);

    Tavrel& main_form() { return main_; }
    directory_form& directory_window() { return directory_; }
    options_form& options_window() { return options_; }
    tree_form& tree_window() { return tree_; }
    sleep_form& sleep_window() { return sleep_; }
    warning_form& warning_window() { return warning_; }
    interface_text& texts() { return texts_; }
    restore_form& restore_window() { return restore_; }
    // The main form for an empty name, else the window of that name; null when there is none.
    form_model* find_form(std::string_view name);

    // Nobody is there to answer: the start asks nothing.
    void ask_nothing() { may_ask_ = false; }

    // Directories that the start is to select in place of the stored ones; absolute paths. Another instance
    // on this folder is asked to take them.
    void open_with(std::vector<std::string> directories) { asked_ = std::move(directories); }
    // True when another instance has taken them: the process that ends has done what it was asked for.
    bool passed_on() const { return passed_on_; }
    // What another start hands over. While a handler runs nothing changes: they wait, those of several starts
    // together, and are taken when the outermost handler has returned. What is no directory is left out.
    reception receive(const std::vector<std::string>& directories);

    // What the main form's load handler does, in its order. Shows the main form. False when the program runs
    // already: the user has been told, sees the window of one that is about to end, or that of one that has
    // taken the directories; no file has been written, and the process is to end.
    bool start();
    // What the unload handler does: asks running tasks to end, writes what must survive, closes the other
    // windows. While a handler still runs, the main form stays and says so; with its return the program ends.
    void close();
    // True from the end of `close` on.
    bool is_closing() const { return closing_ == stage::waits || closing_ == stage::ended; }
    // One second has passed: the running time in the title.
    void tick();

  private:
    // Makes the folder what the start needs: there, claimed by the caller, told of where it cannot be
    // written, with the files of earlier places and the lists that ship.
    void prepare_folder();
    // The tables of all folders on the main form.
    void join_handlers();
    // To the user, who has started the program once more: what the one that runs does with it.
    void speak_with_other();
    // Those of the directories that there are; tells in one box what is none.
    std::vector<std::string> existing(const std::vector<std::string>& directories);
    void take_waiting();
    // Directories that the user drops or pastes on the main form, in the lines of Text_given. They wait as
    // those of `receive` do.
    void take_given(bool joins);
    // The end, unless something still runs.
    void end_when_idle();

    held_folder files_;
    const program_place place_;
    bool may_ask_ = true;
    std::vector<std::string> asked_, waiting_;
    bool waiting_joins_ = true;  // the waiting ones join the selection; false: they take its place
    bool passed_on_ = false;
    Tavrel main_;
    control& Text_given_;
    directory_form directory_;
    options_form options_;
    tree_form tree_;
    shutdown shutdown_;
    warning_form warning_;
    sleep_form sleep_;
    interface_text texts_;
    restore_form restore_;
    enum class stage { open, closes, waits, ended };
    stage closing_ = stage::open;
};

}  // namespace corvane
