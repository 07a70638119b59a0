// A screen that shows nothing: records boxes, gives prepared answers, runs acts at chosen yields, and has a
// clock that moves only when a test moves it.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/attention.h"
#include "platform/instance_link.h"
#include "platform/power.h"
#include "platform/shell.h"
#include "platform/user_interface.h"

namespace corvane {

class scripted_interface : public user_interface {
  public:
    std::vector<message> messages;
    std::function<void(const message&)> on_message;       // while a box is up
    std::function<box_answer()> on_question;              // answers what has no prepared answer
    std::function<std::optional<std::string>()> on_text;  // the same for input boxes
    std::function<void()> on_yield;
    std::deque<box_answer> answers;
    struct question {
        std::string title, prompt, initial;
    };
    std::vector<question> questions;                     // of input boxes and colour dialogs
    std::deque<std::string> texts;                       // their answers; a box without one is dismissed
    std::deque<std::optional<int>> colours;              // answers of the colour dialogs
    std::map<std::int64_t, std::function<void()>> acts;  // by number of the yield, from 1
    std::int64_t yields = 0;
    double clock = 1000;
    double seconds_per_yield = 0;
    local_time date{2026, 3, 4, 5, 6, 7};
    std::optional<screen_point> pointer_place;
    std::vector<screen_point> pointer_path;
    double waited = 0;
    int repaints = 0;
    bool ended = false;
    bool boxes_held = false;

    box_answer show_message(const message& shown) override {
        if (boxes_held) return shown.buttons == box_buttons::ok ? box_answer::ok : box_answer::dismissed;
        messages.push_back(shown);
        if (on_message) on_message(shown);
        if (shown.buttons == box_buttons::ok) return box_answer::ok;
        if (answers.empty() && on_question) return on_question();
        if (answers.empty()) return box_answer::dismissed;
        const box_answer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<std::string> ask_text(const std::string& title, const std::string& prompt,
                                        const std::string& initial) override {
        if (boxes_held) return {};
        questions.push_back({title, prompt, initial});
        if (texts.empty() && on_text) return on_text();
        if (texts.empty()) return {};
        const std::string text = texts.front();
        texts.pop_front();
        return text;
    }
    std::optional<std::string> choose_file(const std::string& title, const std::string& initial) override {
        return ask_text(title, "", initial);
    }
    std::optional<std::string> choose_new_file(const std::string& title,
                                               const std::string& initial) override {
        return ask_text(title, "", initial);
    }
    std::optional<std::string> choose_files(const std::string& title, const std::string& filter,
                                            const std::string& directory) override {
        return ask_text(title, filter, directory);
    }
    std::optional<int> choose_colour(const std::string& title, int initial) override {
        questions.push_back({title, std::to_string(initial), {}});
        if (colours.empty()) return {};
        const std::optional<int> colour = colours.front();
        colours.pop_front();
        return colour;
    }
    void yield() override {
        ++yields;
        clock += seconds_per_yield;
        const auto due = acts.find(yields);
        if (due != acts.end()) due->second();
        if (on_yield) on_yield();
    }
    // Events come before the work is done: what they leave is what it stands on.
    void work_aside(const std::function<void()>& work) override {
        yield();
        work();
    }
    void wait(double seconds) override { waited += seconds; }
    void repaint() override { ++repaints; }
    double seconds() override { return clock; }
    local_time now() override { return date; }
    local_time local_date(std::int64_t unix_seconds) override {
        local_time time;
        time.second = static_cast<int>(unix_seconds % 60);
        time.minute = static_cast<int>(unix_seconds / 60 % 60);
        time.hour = static_cast<int>(unix_seconds / 3600 % 24);
        return time;
    }
    std::optional<screen_point> pointer() override { return pointer_place; }
    void set_pointer(screen_point place) override { pointer_path.push_back(place); }
    std::optional<screen_point> centre_of(const std::string&, const std::string&) override {
        return screen_point{400, 80};
    }
    screen_size screen() override { return {15360, 11520}; }
    void hold_boxes(bool held) override { boxes_held = held; }
    void end_program() override { ended = true; }
};

// Another start of the program that a test speaks for.
class scripted_instances : public instance_link {
  public:
    std::string served;              // the folder
    std::function<bool()> on_raise;  // what the program does when it is asked
    std::function<reception(const std::vector<std::string>&)> on_take;
    bool other_comes_to_front = false;
    reception other_receives = reception::none;
    std::vector<std::string> asked;        // folders
    std::vector<std::string> handed_over;  // directories

    void serve(const std::string& program_dir, instance_services services) override {
        served = program_dir;
        on_raise = std::move(services.raise);
        on_take = std::move(services.take);
    }
    reception hand_over(const std::string&, const std::vector<std::string>& directories) override {
        handed_over.insert(handed_over.end(), directories.begin(), directories.end());
        return other_receives;
    }
    bool raise_other(const std::string& program_dir) override {
        asked.push_back(program_dir);
        return other_comes_to_front;
    }
};

// A desktop that writes down what a long run asks of it.
class scripted_attention : public attention {
  public:
    int awake = 0;  // how many hold the machine awake now
    std::vector<std::string> calls;
    std::function<void()> click;  // of the last notification

    std::unique_ptr<kept_awake> keep_awake(const std::string& reason) override {
        calls.push_back("awake " + reason);
        return std::make_unique<hold>(awake);
    }
    void show_progress(double share) override {
        calls.push_back("progress " + std::to_string(static_cast<int>(share * 100)));
    }
    void hide_progress() override { calls.emplace_back("no progress"); }
    void notify(const std::string& title, const std::string& text, std::function<void()> on_click) override {
        calls.push_back("notify " + title + "|" + text);
        click = std::move(on_click);
    }

  private:
    class hold : public kept_awake {
      public:
        explicit hold(int& count) : count_(count) { ++count_; }
        ~hold() override { --count_; }
        hold(const hold&) = delete;
        hold& operator=(const hold&) = delete;

      private:
        int& count_;
    };
};

class scripted_process : public started_process {
  public:
    explicit scripted_process(int waits) : waits_(waits) {}
    bool has_ended(double) override { return waits_-- <= 0; }

  private:
    int waits_;
};

class recording_shell : public shell, public power {
  public:
    std::vector<std::string> calls;
    outcome answer = outcome::success();  // of every call

    std::function<outcome(const std::string&)> on_recycle;  // what the recycle bin does; nothing without it

    outcome recycle(const std::string& path) override {
        const outcome noted = note("recycle " + path);
        return on_recycle ? on_recycle(path) : noted;
    }
    outcome open_document(const std::string& path) override { return note("open " + path); }
    outcome show_in_file_manager(const std::string& path) override { return note("select " + path); }
    outcome show_properties(const std::string& path) override { return note("properties " + path); }
    outcome open_power_settings() override { return note("power_settings"); }
    std::map<std::string, std::string> programs;  // installed ones: bare name and full path
    // What a started process does at its start; false: it cannot be started. Without it, nothing.
    std::function<bool(const std::vector<std::string>&)> on_start;
    std::vector<std::vector<std::string>> started;  // the arguments of each
    int waits_for_process = 0;  // how often a process is asked for its end before it has come

    std::string find_program(const std::string& name) override {
        const auto found = programs.find(name);
        return found == programs.end() ? std::string() : found->second;
    }
    outcome_with<started_process> start_process(const std::vector<std::string>& arguments) override {
        started.push_back(arguments);
        if (!on_start || on_start(arguments)) return std::make_unique<scripted_process>(waits_for_process);
        return outcome::failure("cannot be started");
    }
    outcome set_clipboard(const std::string& text) override { return note("clipboard " + text); }
    outcome send_keys(const std::string& keys) override { return note("keys " + keys); }
    outcome open_help_topic(const std::string&, const std::string& topic) override {
        return note("help " + topic);
    }
    outcome log_off() override { return note("log_off"); }
    outcome reboot() override { return note("reboot"); }
    outcome power_off() override { return note("power_off"); }

  private:
    outcome note(std::string call) {
        calls.push_back(std::move(call));
        return answer;
    }
};

}  // namespace corvane
