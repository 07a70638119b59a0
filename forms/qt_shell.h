// The desktop's services with the clipboard and the help viewer that only a program with windows has. Made by
// main.
#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "platform/shell.h"

namespace corvane {

class qt_shell : public shell {
  public:
    // `desktop` does all else; never null.
    explicit qt_shell(std::unique_ptr<shell> desktop) : desktop_(std::move(desktop)) {}

    // Shows a page of the help by the name of its file.
    std::function<outcome(const QString& page)> show_help;

    outcome set_clipboard(const std::string& text) override;
    outcome open_help_topic(const std::string& help_file, const std::string& topic) override;

    outcome recycle(const std::string& path) override { return desktop_->recycle(path); }
    outcome open_document(const std::string& path) override { return desktop_->open_document(path); }
    outcome show_in_file_manager(const std::string& path) override {
        return desktop_->show_in_file_manager(path);
    }
    outcome show_properties(const std::string& path) override { return desktop_->show_properties(path); }
    outcome open_power_settings() override { return desktop_->open_power_settings(); }
    std::string find_program(const std::string& name) override { return desktop_->find_program(name); }
    outcome_with<started_process> start_process(const std::vector<std::string>& arguments) override {
        return desktop_->start_process(arguments);
    }
    outcome send_keys(const std::string& keys) override { return desktop_->send_keys(keys); }

  private:
    std::unique_ptr<shell> desktop_;
};

}  // namespace corvane
