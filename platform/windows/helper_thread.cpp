#include "platform/helper_thread.h"

#include <utility>

namespace corvane {

// The system starts a thread of its own for what it has to tell.
std::thread start_helper(std::function<void()> work) {
    return std::thread(std::move(work));
}

}  // namespace corvane
