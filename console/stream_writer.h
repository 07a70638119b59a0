// Standard output as a file that is written: for what the reports write.
#pragma once

#include <cstdio>
#include <functional>
#include <utility>

#include "platform/file_system.h"

namespace corvane {

class stream_writer : public file_writer {
  public:
    // Stream and flag outlive the writer. `ended` is asked before each write, which then fails.
    // `nobody_reads` is set when the other end of a pipe is closed.
    stream_writer(std::FILE* stream, std::function<bool()> ended, bool& nobody_reads)
        : stream_(stream), ended_(std::move(ended)), nobody_reads_(nobody_reads) {}

    outcome write(std::string_view bytes) override;
    // A stream cannot go back.
    outcome write_at(std::int64_t offset, std::string_view bytes) override;
    outcome commit() override;

  private:
    outcome failure();

    std::FILE* stream_;
    std::function<bool()> ended_;
    bool& nobody_reads_;
};

}  // namespace corvane
