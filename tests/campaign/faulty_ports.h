// The ports beside the disk, failing on purpose: desktop, boxes, character sets. Each counts its own calls.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/machine.h"
#include "tests/campaign/fault_counter.h"
#include "tests/support/scripted_interface.h"

namespace corvane {

// What the desktop cannot do it says so; half of the calls say that nothing there does it at all.
class faulty_desktop : public recording_shell {
  public:
    fault_counter faults;

    outcome recycle(const std::string& path) override {
        return faults.fails() ? failure() : recording_shell::recycle(path);
    }
    outcome open_document(const std::string& path) override {
        return faults.fails() ? failure() : recording_shell::open_document(path);
    }
    outcome show_in_file_manager(const std::string& path) override {
        return faults.fails() ? failure() : recording_shell::show_in_file_manager(path);
    }
    outcome show_properties(const std::string& path) override {
        return faults.fails() ? failure() : recording_shell::show_properties(path);
    }
    outcome open_power_settings() override {
        return faults.fails() ? failure() : recording_shell::open_power_settings();
    }
    std::string find_program(const std::string& name) override {
        return faults.fails() ? std::string() : recording_shell::find_program(name);
    }
    outcome_with<started_process> start_process(const std::vector<std::string>& arguments) override {
        if (faults.fails()) return failure();
        return recording_shell::start_process(arguments);
    }
    outcome set_clipboard(const std::string& text) override {
        return faults.fails() ? failure() : recording_shell::set_clipboard(text);
    }
    outcome send_keys(const std::string& keys) override {
        return faults.fails() ? failure() : recording_shell::send_keys(keys);
    }
    outcome open_help_topic(const std::string& file, const std::string& topic) override {
        return faults.fails() ? failure() : recording_shell::open_help_topic(file, topic);
    }

  private:
    outcome failure() const {
        outcome failed = outcome::failure("the desktop failed");
        failed.lacking = faults.calls() % 2 == 0;
        return failed;
    }
};

// A box that fails is one that the user dismissed, or that never came up.
class faulty_screen : public scripted_interface {
  public:
    fault_counter faults;

    box_answer show_message(const message& shown) override {
        const box_answer answer = scripted_interface::show_message(shown);
        if (shown.buttons == box_buttons::ok) return answer;
        return faults.fails() ? box_answer::dismissed : answer;
    }
    std::optional<std::string> ask_text(const std::string& title, const std::string& prompt,
                                        const std::string& initial) override {
        if (faults.fails()) return {};
        return scripted_interface::ask_text(title, prompt, initial);
    }
    std::optional<screen_point> centre_of(const std::string& form, const std::string& control) override {
        if (faults.fails()) return {};
        return scripted_interface::centre_of(form, control);
    }
};

class faulty_encoding : public text_encoding {
  public:
    fault_counter faults;

    char32_t double_byte_936(unsigned char lead, unsigned char trail) override {
        return faults.fails() ? U'\uFFFD' : encodings_.double_byte_936(lead, trail);
    }

  private:
    const std::unique_ptr<text_encoding> own_encodings_ = make_text_encoding();
    text_encoding& encodings_ = *own_encodings_;
};

}  // namespace corvane
