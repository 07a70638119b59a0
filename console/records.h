// Output of the console: one record a line, fields parted by TAB, with TAB, CR, LF and backslash written \t,
// \r, \n and \\ in a field.
#pragma once

#include <cstdio>
#include <initializer_list>
#include <string>
#include <string_view>

namespace corvane {

void append_field(std::string& line, std::string_view field);

class record_output {
  public:
    // The stream outlives the output.
    explicit record_output(std::FILE* stream) : stream_(stream) {}

    void record(std::initializer_list<std::string_view> fields);
    // A record that was put together field by field.
    void line(const std::string& text);
    void flush() { std::fflush(stream_); }

  private:
    std::FILE* stream_;
};

}  // namespace corvane
