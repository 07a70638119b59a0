// Byte-for-byte comparison of many files of one length at once. Every byte that matters is read once: the
// files go side by side, and a file that stands alone is read no further.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

struct content_candidate {
    std::string_view path;
    // Bytes from the start of the file that are held already; may be empty.
    std::span<const std::byte> head;
};

constexpr std::int32_t unreadable_content = -1;

// One number a candidate: equal numbers are equal contents. unreadable_content for a file that cannot be read
// or is no longer `length` bytes long; it equals nothing. `keep_going` is asked between blocks; when it
// answers false the rest counts as unreadable. `before_read`, unless empty, is told the path of a file before
// it is opened or read on after another one; `has_read`, how many bytes came from the disk. `length` is above
// 0.
std::vector<std::int32_t> classify_contents(file_system& files, std::span<const content_candidate> candidates,
                                            std::int64_t length, const std::function<bool()>& keep_going,
                                            const std::function<void(std::string_view)>& before_read = {},
                                            bool fetches = true,
                                            const std::function<void(std::int64_t)>& has_read = {});

}  // namespace corvane
