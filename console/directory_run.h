// A run over directories: search, compare, print what is equal.
#pragma once

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "app/program.h"
#include "console/option_table.h"
#include "console/plain_interface.h"
#include "console/plain_words.h"
#include "console/progress_line.h"
#include "reports/result_formats.h"
#include "reports/result_page.h"

namespace corvane {

class directory_run {
  public:
    // All outlive the run. The program has been started. The result goes to `output`.
    directory_run(program& corvane, plain_interface& screen, plain_words& words, const command_line& asked,
                  std::FILE* output);

    // Returns the exit status. The program is closed then.
    int run();

  private:
    // False: one of the directories does not exist, which has been said.
    bool take_directories();
    void take_options();
    // Passes an interrupt on as a press of the cancel button, once; shows the progress.
    void look_around();
    void interrupt();
    // Prints the result in the format asked for. The exit status of that.
    int print();
    void write(line_writer& out, const result_groups& result);
    page_facts page_facts_of() const;
    // The pairs as lines of fields.
    void write_pairs(line_writer& out);
    void say_totals(const result_groups& result);

    program& program_;
    plain_interface& screen_;
    plain_words& words_;
    const command_line& asked_;
    std::FILE* output_;
    Tavrel& form_;
    run_state& state_;
    progress_line progress_;
    std::vector<std::string> directories_;
    bool shows_progress_;
    bool interrupt_taken_ = false;
    std::int64_t left_out_ = 0;  // pairs that the format cannot hold
    std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
};

}  // namespace corvane
