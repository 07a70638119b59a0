// Runs console scripts: one command a line against a program, output as records.
#pragma once

#include <istream>
#include <string>
#include <string_view>

#include "app/program.h"
#include "console/console_interface.h"
#include "console/records.h"
#include "console/script_input.h"

namespace corvane {

// Exit statuses of the console.
enum console_status {
    status_done = 0,
    status_failed = 1,
    status_usage = 2,
    status_unanswered = 3,
    status_interrupted = 130,
    status_closed_pipe = 141
};

class script_runner {
  public:
    // All outlive the runner.
    script_runner(program& corvane, console_interface& screen, record_output& output)
        : program_(corvane), screen_(screen), output_(output), input_(corvane) {}

    // Runs every line, or up to the first that cannot be run or that ends the program; closes the form at the
    // end. Returns the exit status.
    int run(std::istream& lines);

  private:
    // False: the command, handler or control is unknown; said on standard error.
    bool run_line(std::string_view line, int number);
    bool complain(int number, std::string_view what, std::string_view name);
    bool select(std::string_view path);
    bool set(std::string_view name, std::string_view value);
    bool show(std::string_view name);
    void show_control(std::string_view name, const control& shown);
    void show_list_box(const list_box& list);
    void show_list_view(const list_view& list);
    void property(std::string_view name, std::string_view key, std::string_view value);

    program& program_;
    console_interface& screen_;
    record_output& output_;
    script_input input_;
    int status_ = status_done;
};

}  // namespace corvane
