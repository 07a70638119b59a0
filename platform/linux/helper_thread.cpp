#include "platform/helper_thread.h"

#include <signal.h>

#include <utility>

namespace corvane {

namespace {

// Signals are the first thread's: what handles one counts on that.
class signals_held {
  public:
    signals_held() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~signals_held() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    signals_held(const signals_held&) = delete;
    signals_held& operator=(const signals_held&) = delete;

  private:
    sigset_t before_;
};

}  // namespace

std::thread start_helper(std::function<void()> work) {
    const signals_held held;
    return std::thread(std::move(work));
}

}  // namespace corvane
