// Prints what the desktop and the power service are asked to do, and hands it on unless it is a dry run.
#pragma once

#include "console/records.h"
#include "platform/power.h"
#include "platform/shell.h"

namespace corvane {

class printing_shell : public shell, public power {
  public:
    // With null pointers everything is printed and nothing done. All outlive the object.
    printing_shell(record_output& output, shell* desktop, power* machine)
        : output_(output), desktop_(desktop), machine_(machine) {}

    shell_result recycle(const std::string& path) override;
    shell_result open_document(const std::string& path) override;
    shell_result show_in_file_manager(const std::string& path) override;
    shell_result show_properties(const std::string& path) override;
    shell_result start_process(const std::vector<std::string>& arguments) override;
    shell_result set_clipboard(const std::string& text) override;
    shell_result send_keys(const std::string& keys) override;
    shell_result open_help_topic(const std::string& help_file, const std::string& topic) override;
    shell_result log_off() override;
    shell_result reboot() override;
    shell_result power_off() override;

  private:
    record_output& output_;
    shell* desktop_;
    power* machine_;
};

}  // namespace corvane
