// How a library of the program starts a thread of its own, so that it is in nobody's way. Used by
// request_pool; written once for each system.
#pragma once

#include <functional>
#include <thread>

namespace corvane {

// What the system tells the process (a signal) is told to other threads. Throws std::system_error where the
// system refuses a thread.
std::thread start_helper(std::function<void()> work);

}  // namespace corvane
