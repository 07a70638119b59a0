// What the readers of archive directories share from one archive to the next. A slice of the run state.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace corvane {

class file_system;
class text_encoding;

struct archive_state {
    // The archive whose directory was read last. What a read at a file's end does not fill of entry_buffer
    // stays from the read before it.
    std::array<std::byte, 4097> entry_buffer{};
    std::string archive_path;
    std::int64_t archive_length = 0;  // bytes
    std::int16_t archive_damaged = 0;
};

// What a reader works with. All outlive the reading.
struct archive_context {
    file_system& files;
    text_encoding& encodings;
    archive_state& state;
};

}  // namespace corvane
