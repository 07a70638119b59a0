// A program with its two windows of the timed end, and a clock that a test turns.
#pragma once

#include <string>

#include "tests/support/test_program.h"

namespace corvane {

struct shutdown_program : test_program {
    shutdown_program() : sleep(corvane.sleep_window()), warning(corvane.warning_window()) {
        screen.date = {2026, 3, 4, 10, 20, 30};
        state.shutdown_action_text = "关闭计算机.";
        state.shut_action = 4;
    }

    void open() { form.run("shut_computer"); }
    void act(const std::string& handler) { form.run("sleep_music." + handler); }
    // The timed form, a delay in minutes, and the start.
    void count_down(int minutes) {
        open();
        act("Option2(2)_Click");
        sleep.Text3.text = std::to_string(minutes);
        act("Text3_KeyPress");
        act("Command1_Click");
    }
    // Seconds pass for both windows, as long as their timers run.
    void pass(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            ++screen.date.second;
            if (sleep.Timer1.enabled) act("Timer1_Timer");
            if (warning.Timer1.enabled) form.run("shut_msg.Timer1_Timer");
        }
    }
    // What the machine was asked for.
    std::vector<std::string> asked() const {
        std::vector<std::string> calls;
        for (const std::string& call : desktop.calls)
            if (call == "power_off" || call == "reboot" || call == "log_off") calls.push_back(call);
        return calls;
    }

    sleep_form& sleep;
    warning_form& warning;
};

}  // namespace corvane
