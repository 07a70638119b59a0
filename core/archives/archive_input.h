// An archive that is being read: its records, one after the other, in the entry buffer of the run state, and
// the fields of a record by their index in that buffer. Used by the ZIP and the RAR reader.
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "core/archives/archive_state.h"

namespace corvane {

class file_reader;

class archive_input {
  public:
    // Opens the archive, and sets archive_path and archive_length. The file is closed with the input.
    archive_input(const archive_context& context, const std::string& path);
    ~archive_input();
    archive_input(const archive_input&) = delete;
    archive_input& operator=(const archive_input&) = delete;

    bool is_open() const { return file_ != nullptr; }
    std::int64_t length() const { return length_; }

    // Puts 4,097 bytes of the file into the buffer: index 0 takes the byte before file offset `position`, so
    // that a record at that offset starts at index 1. At the file's end the rest of the buffer keeps what the
    // read before had there, be it of another archive. False: position below 1, or a read error.
    bool read(std::int64_t position);
    // Reads outside the buffer, up to buffer.size() bytes at a file offset. The number read, or -1.
    std::int64_t read_beside(std::int64_t offset, std::span<std::byte> buffer);

    // Fields that start at index i of the buffer, which they must not leave.
    std::uint16_t u16_at(std::size_t i) const;
    std::uint32_t u32_at(std::size_t i) const;
    // Hexadecimal digits, upper case. The forward form takes the bytes as they stand, the others a number of
    // low to high bytes.
    std::string hex32_forward_at(std::size_t i) const;
    std::string hex32_at(std::size_t i) const;
    std::string hex16_at(std::size_t i) const;
    std::string hex8_at(std::size_t i) const;  // without padding

    // The name of at most `length` bytes: up to a zero byte, a byte below 161 one character, else two bytes
    // one of code page 936, also when the second lies behind the length. Line breaks, other control
    // characters and "*" become U+F000 + byte, which no name can hold otherwise. False: it leaves the buffer.
    bool name_at(std::size_t i, std::size_t length, std::string& name) const;

    // The same of a name in UTF-8, of which no byte behind the length is taken. What is no UTF-8 becomes
    // U+FFFD, and a character U+F000 to U+F0FF follows a U+F000, so that no two names become one.
    bool utf8_name_at(std::size_t i, std::size_t length, std::string& name) const;

    // The bytes as they stand, fewer at the buffer's end. Valid until the next read.
    std::string_view bytes_at(std::size_t i, std::size_t length) const;

    static constexpr std::size_t buffer_size = 4097;

  private:
    bool load(std::int64_t offset);
    void keep();
    unsigned byte_at(std::size_t i) const {
        assert(i < buffer_size);
        return static_cast<unsigned>(view_[i]);
    }

    archive_state& state_;
    text_encoding& encoding_;
    std::unique_ptr<file_reader> file_;
    std::int64_t length_ = 0;
    // What the buffer holds now: either the buffer itself or, uncopied, a place in the block.
    const std::byte* view_;
    // A part of the file, larger than one record.
    std::unique_ptr<std::byte[]> block_;
    std::size_t block_capacity_ = 0;
    std::int64_t block_start_ = 0;
    std::int64_t block_end_ = 0;
    std::size_t next_block_;
};

}  // namespace corvane
