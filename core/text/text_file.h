// Line-oriented data files: a reader that takes CR LF and LF, a writer that ends lines with CR LF and puts
// the file in its place only when it is whole. Texts stand in them as file_system::data_files says.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

// True where an encoding changes nothing.
bool is_ascii(std::string_view text);

class line_reader {
  public:
    static constexpr std::size_t longest_line = 1024 * std::size_t{1024};

    // Reads from byte `offset` on.
    line_reader(file_system& files, const std::string& path, std::int64_t offset = 0);

    // False: the file is missing or cannot be opened.
    bool is_open() const { return file_.ok; }
    // Why is_open() is false, in the system's words.
    const std::string& error() const { return file_.reason; }
    // The next line without its end; the text behind the last line end is a line unless it is empty. The view
    // is valid until the next call. A read error ends the file, and so does a line above longest_line bytes,
    // which no file of the program has.
    bool next(std::string_view& line);
    // Whether such an end has come: what was read is not the whole file.
    bool failed() const { return failed_; }
    // Byte position behind the last line that next() gave.
    std::int64_t position() const { return position_; }

  private:
    bool fill();
    // The line as a text.
    std::string_view decoded(std::string_view line);

    outcome_with<file_reader> file_;
    const data_encoding* encoding_;
    std::string text_;
    std::vector<char> buffer_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::int64_t offset_ = 0;
    std::int64_t position_ = 0;
    bool at_end_ = false;
    bool failed_ = false;
};

// Collects into blocks. After a failure every call does nothing and finish() tells it.
class line_writer {
  public:
    // Without an encoding what is added is written as it is.
    explicit line_writer(outcome_with<file_writer> file, const data_encoding* encoding = nullptr);
    // The usual form: the file at `path` is replaced at finish().
    line_writer(file_system& files, const std::string& path);

    void line(std::string_view text) {
        add(text);
        add("\r\n");
    }
    void number(std::int64_t number);
    void add(std::string_view text) {
        if (buffer_.size() + text.size() > block) flush();
        if (encoding_ == nullptr || is_ascii(text))
            buffer_ += text;
        else
            encoding_->append_bytes(buffer_, text);
    }
    // Hands on what is collected, for a file that is looked at while it grows.
    void flush();
    // Overwrites bytes that were written before, at `offset` from the start of the file.
    void patch(std::int64_t offset, std::string_view text);
    bool failed() const { return !state_; }
    // Makes durable what has been flushed; takes as long as the disk does, and finish() then less. Another
    // thread may call it while nobody else uses the writer.
    void settle() {
        if (!failed()) file_->settle();
    }
    // False: the old file is whole and error() says why.
    bool finish();
    const std::string& error() const { return state_.reason; }
    // The first failure, or success.
    const outcome& result() const { return state_; }

  private:
    static constexpr std::size_t block = 256 * std::size_t{1024};
    void take(outcome written);

    std::unique_ptr<file_writer> file_;
    const data_encoding* encoding_;
    outcome state_;  // the first failure
    std::string buffer_;
};

}  // namespace corvane
