// What a task asks of the front end: boxes, the pointer, a turn of the event loop, the clock. The Qt front
// end, the console and the tests' scripted double implement it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace corvane {

enum class box_buttons { ok, yes_no };
enum class box_icon { none, information, exclamation, question };
// dismissed: the box was left without an answer (Escape, its close button). Always to be taken as the way
// that does no harm.
enum class box_answer { ok, yes, no, dismissed };

struct message {
    std::string title;
    std::string text;
    box_buttons buttons = box_buttons::ok;
    box_icon icon = box_icon::none;
    int help_context = 1000;
    bool help_button = false;
    // What a question is about, below its words: what is at stake. Empty: nothing more.
    std::string detail;
    // What the buttons of a question do, in words of their own; empty: yes and no. With `cancel_words` there
    // is a third button, which dismisses the box.
    std::string yes_words;
    std::string no_words;
    std::string cancel_words;
    // What Enter answers: yes or no.
    box_answer default_answer = box_answer::yes;
    bool failure = false;  // the program reports that it could not do what was asked
};

struct local_time {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

struct screen_point {
    int x = 0;  // pixels
    int y = 0;
};

struct screen_size {
    int width = 0;  // twips
    int height = 0;
};

class user_interface {
  public:
    virtual ~user_interface() = default;

    virtual box_answer show_message(const message& message) = 0;
    // Nothing when the user dismisses the box.
    virtual std::optional<std::string> ask_text(const std::string& title, const std::string& prompt,
                                                const std::string& initial) = 0;
    virtual std::optional<std::string> choose_file(const std::string& title, const std::string& initial) = 0;
    // A file that is to be written, which may not be there yet; one that stands may be overwritten.
    virtual std::optional<std::string> choose_new_file(const std::string& title,
                                                       const std::string& initial) = 0;
    // Several files of one directory. `filter` is "words|pattern". The answer is the directory and the names,
    // parted by NUL, or one path; nothing when the user dismisses the box.
    virtual std::optional<std::string> choose_files(const std::string& title, const std::string& filter,
                                                    const std::string& directory) = 0;
    // Colours are 0xBBGGRR.
    virtual std::optional<int> choose_colour(const std::string& title, int initial) = 0;

    // Lets waiting events run. Cheap enough to be called once a file.
    virtual void yield() = 0;
    // Carries out `work`, which takes longer than an event may wait, and returns when it is done. A front end
    // with windows lets waiting events run meanwhile, as at a yield, and the work runs beside them: it
    // touches nothing that a handler can reach while the caller's task is locked. What it throws is thrown
    // on.
    virtual void work_aside(const std::function<void()>& work) { work(); }
    // Yields until `seconds` have passed.
    virtual void wait(double seconds) = 0;
    // Copies the models to the screen now.
    virtual void repaint() = 0;

    // Seconds since an arbitrary start, never running backwards.
    virtual double seconds() = 0;
    virtual local_time now() = 0;
    // A moment in seconds since 1970-01-01 UTC, in local time.
    virtual local_time local_date(std::int64_t unix_seconds) = 0;

    // Nothing where the display has no pointer that a program may read or place.
    virtual std::optional<screen_point> pointer() = 0;
    virtual void set_pointer(screen_point place) = 0;
    // The centre of a control on the screen; nothing when it is not on one.
    virtual std::optional<screen_point> centre_of(const std::string& form, const std::string& control) = 0;
    virtual screen_size screen() = 0;

    // From now on every box is dismissed before it appears, and one that stands is dismissed: nobody is there
    // to answer, and what runs is to come to its end. False: boxes appear again.
    virtual void hold_boxes(bool held) = 0;

    // Leaves the event loop: the main form has been unloaded.
    virtual void end_program() = 0;
};

}  // namespace corvane
