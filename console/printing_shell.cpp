#include "console/printing_shell.h"

namespace corvane {

namespace {

class process_never_started : public started_process {
  public:
    bool has_ended(double) override { return true; }
};

}  // namespace

outcome printing_shell::recycle(const std::string& path) {
    output_.record({"shell", "recycle", path});
    return dry_ ? outcome::success() : desktop_.recycle(path);
}

outcome printing_shell::open_document(const std::string& path) {
    output_.record({"shell", "open", path});
    return dry_ ? outcome::success() : desktop_.open_document(path);
}

outcome printing_shell::show_in_file_manager(const std::string& path) {
    output_.record({"shell", "select", path});
    return dry_ ? outcome::success() : desktop_.show_in_file_manager(path);
}

outcome printing_shell::show_properties(const std::string& path) {
    output_.record({"shell", "properties", path});
    return dry_ ? outcome::success() : desktop_.show_properties(path);
}

outcome printing_shell::open_power_settings() {
    output_.record({"shell", "power_settings"});
    return dry_ ? outcome::success() : desktop_.open_power_settings();
}

outcome_with<started_process> printing_shell::start_process(const std::vector<std::string>& arguments) {
    std::string line = "shell\tstart";
    for (const std::string& argument : arguments) append_field(line += '\t', argument);
    output_.line(line);
    if (dry_) return std::make_unique<process_never_started>();
    return desktop_.start_process(arguments);
}

outcome printing_shell::set_clipboard(const std::string& text) {
    output_.record({"shell", "clipboard", text});
    return dry_ ? outcome::success() : desktop_.set_clipboard(text);
}

outcome printing_shell::send_keys(const std::string& keys) {
    output_.record({"shell", "keys", keys});
    return dry_ ? outcome::success() : desktop_.send_keys(keys);
}

outcome printing_shell::open_help_topic(const std::string& help_file, const std::string& topic) {
    output_.record({"shell", "help", topic});
    return dry_ ? outcome::success() : desktop_.open_help_topic(help_file, topic);
}

outcome printing_shell::log_off() {
    output_.record({"shell", "log_off"});
    return dry_ ? outcome::success() : machine_->log_off();
}

outcome printing_shell::reboot() {
    output_.record({"shell", "reboot"});
    return dry_ ? outcome::success() : machine_->reboot();
}

outcome printing_shell::power_off() {
    output_.record({"shell", "power_off"});
    return dry_ ? outcome::success() : machine_->power_off();
}

}  // namespace corvane
