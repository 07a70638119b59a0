#include "core/text/text_file.h"

#include <algorithm>
#include <cstring>

#include "core/text/text_format.h"

namespace corvane {

namespace {
constexpr std::size_t read_block = 256 * std::size_t{1024};
}

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char unit) { return static_cast<unsigned char>(unit) < 0x80; });
}

line_reader::line_reader(file_system& files, const std::string& path, std::int64_t offset)
    : file_(files.open_file(path)), encoding_(files.data_files()), offset_(offset), position_(offset) {}

std::string_view line_reader::decoded(std::string_view line) {
    if (encoding_ == nullptr || is_ascii(line)) return line;
    text_.clear();
    encoding_->append_text(text_, line);
    return text_;
}

bool line_reader::fill() {
    if (at_end_ || !file_) return false;
    if (begin_ > 0) {
        std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
    }
    if (buffer_.size() - end_ < read_block) buffer_.resize(buffer_.empty() ? read_block : buffer_.size() * 2);
    const std::int64_t count = file_->read_at(
        offset_, std::as_writable_bytes(std::span<char>(buffer_.data() + end_, buffer_.size() - end_)));
    if (count <= 0) {
        at_end_ = true;
        failed_ = count < 0;
        return false;
    }
    offset_ += count;
    end_ += static_cast<std::size_t>(count);
    return true;
}

bool line_reader::next(std::string_view& line) {
    std::size_t searched = 0;
    for (;;) {
        const char* start = buffer_.data() + begin_;
        const std::size_t held = end_ - begin_;
        if (held > searched) {
            const void* found = std::memchr(start + searched, '\n', held - searched);
            if (found != nullptr) {
                std::size_t length = static_cast<std::size_t>(static_cast<const char*>(found) - start);
                begin_ += length + 1;
                position_ += static_cast<std::int64_t>(length) + 1;
                if (length > 0 && start[length - 1] == '\r') --length;
                line = decoded({start, length});
                return true;
            }
            searched = held;
        }
        if (held > longest_line + 1) {
            begin_ = end_;
            at_end_ = true;
            failed_ = true;
            return false;
        }
        if (!fill()) break;
    }
    const std::size_t held = end_ - begin_;
    if (held == 0) return false;
    line = {buffer_.data() + begin_, held};
    begin_ = end_;
    position_ += static_cast<std::int64_t>(held);
    if (line.back() == '\r') line.remove_suffix(1);
    line = decoded(line);
    return true;
}

line_writer::line_writer(outcome_with<file_writer> file, const data_encoding* encoding)
    : file_(std::move(file.object)), encoding_(encoding), state_(std::move(file)) {
    buffer_.reserve(block);
}

line_writer::line_writer(file_system& files, const std::string& path)
    : line_writer(files.replace_file(path), files.data_files()) {}

void line_writer::number(std::int64_t number) {
    line(number_line(number));
}

void line_writer::take(outcome written) {
    if (!written) state_ = std::move(written);
}

void line_writer::flush() {
    if (!failed() && !buffer_.empty()) take(file_->write(buffer_));
    buffer_.clear();
}

void line_writer::patch(std::int64_t offset, std::string_view text) {
    flush();
    if (!failed()) take(file_->write_at(offset, text));
}

bool line_writer::finish() {
    flush();
    if (!failed()) take(file_->commit());
    return !failed();
}

}  // namespace corvane
