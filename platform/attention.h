// What a long run asks of the desktop beside its windows: that the machine stays awake, that other programs
// show how far it has come, that the user hears of its end. platform/desktop does it over the buses; where a
// service is missing nothing happens and nothing is said.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace corvane {

// While it lives the machine does not fall asleep. The end of the process ends it, too.
class kept_awake {
  public:
    virtual ~kept_awake() = default;
};

class attention {
  public:
    virtual ~attention() = default;

    // Null where nothing grants it. `reason` is shown by the desktop.
    virtual std::unique_ptr<kept_awake> keep_awake(const std::string& reason) = 0;
    // The share of the run that is done, 0 to 1, for the program's entry in launcher and task bar.
    virtual void show_progress(double share) = 0;
    virtual void hide_progress() = 0;
    // A notification of the desktop. `on_click` runs within the event loop, as long as the object lives; a
    // later notification takes the place of this one.
    virtual void notify(const std::string& title, const std::string& text,
                        std::function<void()> on_click) = 0;
};

}  // namespace corvane
