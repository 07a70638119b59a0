// Where the walk and the archive readers put what they find: file_list, up to its limit, and the report of
// archive errors, which is looked at while it grows.
#pragma once

#include <string>
#include <string_view>

#include "core/archives/archive_entry.h"
#include "core/archives/archive_sink.h"
#include "core/model/run_state.h"
#include "core/text/text_file.h"

namespace corvane {

class walk_output : public archive_sink {
  public:
    // Both outlive the output.
    walk_output(run_state& state, line_writer& report) : state_(state), report_(report) {}

    // Appends an entry to file_list. False at the limit, which full() remembers.
    bool add(std::string_view entry) {
        if (state_.walk_count >= state_.limits.files) {
            full_ = true;
            return false;
        }
        ++state_.walk_count;
        state_.file_list.push_back(entry);
        return true;
    }
    bool full() const { return full_; }

    // Appends a file inside the archive at current_path.
    bool take(const archive_record& record) override {
        if (record.directory) return true;
        entry_.clear();
        append_archive_entry(entry_, state_.current_path, record.name, record.crc_text, record.length);
        return add(entry_);
    }
    // Adds a line to the report and counts it in archive_error_count.
    void report(std::string_view line) override {
        report_.line(line);
        ++state_.archive_error_count;
    }
    // Makes the lines so far visible to other programs.
    void show_report() { report_.flush(); }

  private:
    run_state& state_;
    line_writer& report_;
    std::string entry_;
    bool full_ = false;
};

}  // namespace corvane
