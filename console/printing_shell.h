// Prints what the desktop and the power service are asked to do, and hands it on unless it is a dry run.
#pragma once

#include "console/records.h"
#include "platform/power.h"
#include "platform/shell.h"

namespace corvane {

class printing_shell : public shell, public power {
  public:
    // All outlive the object. A dry run is one without a machine: everything is printed and nothing done.
    printing_shell(record_output& output, shell& desktop, power* machine)
        : output_(output), desktop_(desktop), machine_(machine), dry_(machine == nullptr) {}

    outcome recycle(const std::string& path) override;
    outcome open_document(const std::string& path) override;
    outcome show_in_file_manager(const std::string& path) override;
    outcome show_properties(const std::string& path) override;
    outcome open_power_settings() override;
    // Looking is no act: not printed, and done in a dry run, too.
    std::string find_program(const std::string& name) override { return desktop_.find_program(name); }
    outcome_with<started_process> start_process(const std::vector<std::string>& arguments) override;
    outcome set_clipboard(const std::string& text) override;
    outcome send_keys(const std::string& keys) override;
    outcome open_help_topic(const std::string& help_file, const std::string& topic) override;
    outcome log_off() override;
    outcome reboot() override;
    outcome power_off() override;

  private:
    record_output& output_;
    shell& desktop_;
    power* machine_;
    bool dry_;
};

}  // namespace corvane
