// The owner of one open file of the system. Every file that platform/linux opens is opened and closed here.
#pragma once

#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <string>
#include <utility>

namespace corvane {

class descriptor {
  public:
    descriptor() = default;
    descriptor(descriptor&& other) noexcept : number_(std::exchange(other.number_, none)) {}
    descriptor& operator=(descriptor&& other) noexcept {
        if (this != &other) {
            close();
            number_ = std::exchange(other.number_, none);
        }
        return *this;
    }
    ~descriptor() { close(); }

    // No process that is started inherits it. Holds nothing, with the cause in errno, on failure.
    static descriptor open(const char* raw_path, int flags) { return open_at(AT_FDCWD, raw_path, flags); }
    static descriptor open_at(int directory, const char* raw_path, int flags) {
        return descriptor(::openat(directory, raw_path, flags | O_CLOEXEC, 0666));
    }
    // Makes a new file; `raw_path` ends in "XXXXXX", in whose place its own name is written.
    static descriptor open_new(std::string& raw_path) {
        return descriptor(mkostemp(raw_path.data(), O_CLOEXEC));
    }

    explicit operator bool() const { return number_ != none; }
    int number() const { return number_; }

    // False, with the cause in errno, when what was written could not be kept. Holds nothing afterwards.
    bool close() {
        const int number = std::exchange(number_, none);
        return number == none || ::close(number) == 0;
    }

  private:
    static constexpr int none = -1;
    explicit descriptor(int number) : number_(number) {}

    int number_ = none;
};

}  // namespace corvane
