// What the desktop gets to know of a task: the machine stays awake while it runs, the launcher shows how far
// it has come, and its end is told when the user is elsewhere. Fed by front_end after each copy of the
// models.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "core/model/main_form.h"
#include "platform/attention.h"

namespace corvane {

class long_run {
  public:
    // Told from this length on, in seconds.
    static constexpr double told_from = 30;

    // All outlive the object. Without `notice` it does nothing. `clock` gives seconds that never run
    // backwards and stand still while the machine is asleep.
    long_run(Tavrel& main, attention* notice, QWidget& window, std::function<double()> clock);

    // Looks at the models. Between two steps of one task the tasks are unlocked for a moment; it has ended
    // when they still are a second later.
    void follow();
    // What that second's timer does.
    void settle();
    // The program ends: nothing is shown or held any more.
    void end();

    // Whether the user looks at the program; a test has its own answer.
    std::function<bool()> in_front;

  private:
    void begin();
    void show_progress();
    void tell();

    Tavrel& main_;
    attention* notice_;
    QWidget& window_;
    std::function<double()> clock_;
    QTimer settling_;
    std::unique_ptr<kept_awake> awake_;
    bool runs_ = false;
    double since_ = 0;
    double until_ = 0;
    int shown_percent_ = -1;
};

}  // namespace corvane
