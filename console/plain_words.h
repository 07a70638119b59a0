// What the console says in sentences of its own, on standard error: one line each, whatever stands in a name.
#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

namespace corvane {

class plain_words {
  public:
    // The stream outlives the object. Quiet: failures alone are said.
    plain_words(std::FILE* stream, bool quiet) : stream_(stream), quiet_(quiet) {}

    // Called before each line, to make room for it.
    void set_before(std::function<void()> before) { before_ = std::move(before); }

    void say(std::string_view sentence);
    void say_failure(std::string_view sentence);

  private:
    void line(std::string_view prefix, std::string_view sentence);

    std::FILE* stream_;
    bool quiet_;
    std::function<void()> before_;
};

}  // namespace corvane
