// How an act that the machine was asked for ended. What every port answers that can fail; each task turns it
// into what is stated for that failure.
#pragma once

#include <memory>
#include <string>
#include <utility>

namespace corvane {

struct outcome {
    bool ok = false;
    std::string reason;    // the system's words when not ok
    bool lacking = false;  // not done because the machine has nothing that does it
    int number = 0;        // the system's number of the failure, where it has one

    explicit operator bool() const { return ok; }

    static outcome success() { return {true, {}}; }
    static outcome failure(std::string why) { return {false, std::move(why)}; }
    static outcome lack(std::string why) { return {false, std::move(why), true}; }
};

// The outcome of an act that hands something over: an open file, a started process.
template <class Object>
struct outcome_with : outcome {
    std::unique_ptr<Object> object;  // null when not ok

    outcome_with(outcome failure) : outcome(std::move(failure)) {}
    template <class Kind>
    outcome_with(std::unique_ptr<Kind> made) : outcome(success()), object(std::move(made)) {}

    Object* operator->() const { return object.get(); }
    Object& operator*() const { return *object; }
};

}  // namespace corvane
