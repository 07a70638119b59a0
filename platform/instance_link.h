// Word between two starts of the program on one program folder. platform/desktop carries it over the session
// bus; without a bus nothing is heard and nothing is lost.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace corvane {

// What an instance does with directories that another start hands over.
enum class reception {
    none,    // nobody has heard
    taken,   // they are selected
    waits,   // they will be, when the task that runs has ended
    refused  // the instance is about to end
};

// What an instance does when another start asks, within the event loop.
struct instance_services {
    // True when the window has come to the front.
    std::function<bool()> raise;
    // Paths of the program's text, absolute.
    std::function<reception(const std::vector<std::string>& directories)> take;
};

class instance_link {
  public:
    virtual ~instance_link() = default;

    // From now on another start on this folder is answered; without `raise` none is any more. Without a bus
    // it does nothing.
    virtual void serve(const std::string& program_dir, instance_services services) = 0;
    // Asks the instance that serves this folder to bring its window to the front. True when it says that it
    // did; false after two seconds without an answer, too.
    virtual bool raise_other(const std::string& program_dir) = 0;
    // Hands directories over to it. `waits` after two seconds without an answer, too: they have been sent.
    virtual reception hand_over(const std::string& program_dir,
                                const std::vector<std::string>& directories) = 0;
};

}  // namespace corvane
