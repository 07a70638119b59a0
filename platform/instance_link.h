// Word between two starts of the program on one program folder. platform/desktop carries it over the session
// bus; without a bus nothing is heard and nothing is lost.
#pragma once

#include <functional>
#include <string>

namespace corvane {

class instance_link {
  public:
    virtual ~instance_link() = default;

    // From now on another start on this folder is answered by `on_raise`, within the event loop: true when
    // the window has come to the front. An empty procedure ends it. Without a bus it does nothing.
    virtual void serve(const std::string& program_dir, std::function<bool()> on_raise) = 0;
    // Asks the instance that serves this folder to bring its window to the front. True when it says that it
    // did; false after two seconds without an answer, too.
    virtual bool raise_other(const std::string& program_dir) = 0;
};

}  // namespace corvane
