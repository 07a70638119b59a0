#include "forms/front_end.h"

#include "core/tasks/help.h"
#include "core/tasks/progress.h"
#include "forms/about_window.h"
#include "forms/directory_window.h"
#include "forms/folder_drops.h"
#include "forms/form_parts.h"
#include "forms/help_keys.h"
#include "forms/long_run.h"
#include "forms/main_window.h"
#include "forms/options_window.h"
#include "forms/qt_user_interface.h"
#include "forms/restore_window.h"
#include "forms/sleep_window.h"
#include "forms/tree_window.h"
#include "forms/warning_window.h"

namespace corvane {

front_end::front_end(program& corvane, qt_user_interface& screen) : program_(corvane), screen_(screen) {
    const auto run = [this](const std::string& handler) { act(handler); };
    main_ = std::make_unique<main_window>(program_.main_form(), run, [this] { close(); });
    long_run_ = std::make_unique<long_run>(program_.main_form(), program_.main_form().outside.notice, *main_,
                                           [this] { return screen_.seconds(); });
    directory_ = std::make_unique<directory_window>(program_.main_form(), program_.directory_window(), run,
                                                    main_.get());
    options_ =
        std::make_unique<options_window>(program_.main_form(), program_.options_window(), run, main_.get());
    tree_ = std::make_unique<tree_window>(program_.main_form(), program_.tree_window(), run, main_.get());
    sleep_ = std::make_unique<sleep_window>(program_.main_form(), program_.sleep_window(), run, main_.get());
    warning_ =
        std::make_unique<warning_window>(program_.main_form(), program_.warning_window(), run, main_.get());
    about_ = std::make_unique<about_window>(program_.main_form(), program_.texts().about(), run, main_.get());
    restore_ =
        std::make_unique<restore_window>(program_.main_form(), program_.restore_window(), run, main_.get());
    help_keys_ = std::make_unique<help_keys>(program_, run);
    new folder_drops(
        *main_,
        [this](const std::string& text, bool joins) { take_folders(text, "drop_directories", joins); },
        [this](const std::string& text) { take_folders(text, "paste_directories", true); });
    windows_ = {directory_.get(), options_.get(), tree_.get(),   sleep_.get(),
                warning_.get(),   about_.get(),   restore_.get()};
    screen_.set_sync([this] { sync(); });
    screen_.set_help([this](int topic) { open_topic(program_.main_form(), topic); });
    screen_.set_window_finder([this](const std::string& form) -> QWidget* {
        const form_model* model = program_.find_form(form);
        if (model == &program_.main_form()) return main_.get();
        for (child_window* window : windows_)
            if (model && window->objectName().toStdString() == model->name()) return window;
        return nullptr;
    });
    QObject::connect(&clock_, &QTimer::timeout, &clock_, [this] {
        program_.tick();
        sync();
    });
    QObject::connect(&follow_timer_, &QTimer::timeout, &follow_timer_, [this] {
        program_.main_form().run("Timer2_Timer");
        for (child_window* window : windows_) window->sync_place();
        follow();
    });
}

front_end::~front_end() {
    if (instance_link* const others = program_.main_form().outside.instances)
        others->serve(program_.main_form().state.program_dir, {});
    screen_.set_sync({});
    screen_.set_help({});
    screen_.set_window_finder({});
}

void front_end::act(const std::string& handler) {
    // What still runs at a program's end is waited for, not answered.
    if (program_.is_closing()) return;
    program_.main_form().run(handler);
    sync();
}

void front_end::take_folders(const std::string& text, const char* handler, bool joins) {
    Tavrel& form = program_.main_form();
    form.find("Text_given")->text = text;
    form.list_event = {};
    form.list_event.ctrl = joins;
    act(handler);
}

void front_end::sync() {
    // Showing a window may run handlers that ask for a copy again; the copy under way is enough.
    if (syncing_) return;
    syncing_ = true;
    if (program_.is_closing()) screen_.show_no_more_boxes();
    const bool locked = tasks_locked(program_.main_form());
    main_->sync(locked);
    for (child_window* window : windows_) window->sync(locked);
    follow();
    long_run_->follow();
    syncing_ = false;
}

void front_end::follow() {
    const timer_control& timer = program_.main_form().Timer2;
    if (!timer.enabled || program_.is_closing())
        follow_timer_.stop();
    else if (!follow_timer_.isActive() || follow_timer_.interval() != timer.interval)
        follow_timer_.start(timer.interval);
}

bool front_end::start() {
    if (!program_.start()) return false;
    if (instance_link* const others = program_.main_form().outside.instances)
        others->serve(program_.main_form().state.program_dir,
                      {[this] { return raise_while_closing(); },
                       [this](const std::vector<std::string>& directories) { return receive(directories); }});
    sync();
    if (!screen_.ended()) clock_.start(1000);
    return true;
}

bool front_end::raise_while_closing() {
    if (!program_.is_closing() || !main_->isVisible()) return false;
    bring_to_front(*main_);
    return true;
}

reception front_end::receive(const std::vector<std::string>& directories) {
    const reception what = program_.receive(directories);
    if (main_->isVisible()) bring_to_front(*main_);
    sync();
    return what;
}

void front_end::close() {
    clock_.stop();
    follow_timer_.stop();
    program_.close();
    sync();
    if (screen_.ended()) long_run_->end();
}

}  // namespace corvane
