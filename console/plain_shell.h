// The desktop of a run over directories: nothing is asked of it. What the program would open is named in a
// sentence.
#pragma once

#include "console/plain_words.h"
#include "platform/power.h"
#include "platform/shell.h"

namespace corvane {

class plain_shell : public shell, public power {
  public:
    // Both outlive the object.
    plain_shell(plain_words& words, shell& desktop) : words_(words), desktop_(desktop) {}

    outcome recycle(const std::string&) override { return refused(); }
    outcome open_document(const std::string& path) override {
        words_.say("see " + path);
        return outcome::success();
    }
    outcome show_in_file_manager(const std::string&) override { return refused(); }
    outcome show_properties(const std::string&) override { return refused(); }
    outcome open_power_settings() override { return refused(); }
    // Looking is no act.
    std::string find_program(const std::string& name) override { return desktop_.find_program(name); }
    outcome_with<started_process> start_process(const std::vector<std::string>&) override {
        return refused();
    }
    outcome set_clipboard(const std::string&) override { return refused(); }
    outcome send_keys(const std::string&) override { return refused(); }
    outcome open_help_topic(const std::string&, const std::string&) override { return refused(); }
    outcome log_off() override { return refused(); }
    outcome reboot() override { return refused(); }
    outcome power_off() override { return refused(); }

  private:
    static outcome refused() { return outcome::lack("no desktop"); }

    plain_words& words_;
    shell& desktop_;
};

}  // namespace corvane
