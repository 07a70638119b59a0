// The owner of one open object of Windows, and the failure of a call in the system's words.
#pragma once

#include <windows.h>

#include <utility>

#include "platform/outcome.h"

namespace corvane {

class handle {
  public:
    handle() = default;
    explicit handle(HANDLE object) : object_(object == nullptr ? INVALID_HANDLE_VALUE : object) {}
    handle(handle&& other) noexcept : object_(std::exchange(other.object_, INVALID_HANDLE_VALUE)) {}
    handle& operator=(handle&& other) noexcept {
        if (this != &other) {
            close();
            object_ = std::exchange(other.object_, INVALID_HANDLE_VALUE);
        }
        return *this;
    }
    ~handle() { close(); }

    explicit operator bool() const { return object_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return object_; }
    // False, with the cause in GetLastError, when it could not be closed. Holds nothing afterwards.
    bool close() {
        const HANDLE object = std::exchange(object_, INVALID_HANDLE_VALUE);
        return object == INVALID_HANDLE_VALUE || CloseHandle(object) != 0;
    }

  private:
    HANDLE object_ = INVALID_HANDLE_VALUE;
};

// Of GetLastError(), or of a number of the same kind.
outcome system_failure(DWORD error = GetLastError());

}  // namespace corvane
