// Whether paths exist, many at once: where many names of one directory are asked for, the directory is read
// instead of asking for each. Used by linux_file_system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/linux/linux_attributes.h"
#include "platform/request_pool.h"

namespace corvane {

// Answers the paths first to end - 1 in their order with 1 or 0, until the limit has passed but always the
// first of them; returns where it stopped. The answers are those of `attributes`.
std::size_t answer_existence(const linux_attributes& attributes, std::span<const std::string_view> paths,
                             std::span<std::uint8_t> answers, std::size_t first, std::size_t end,
                             const time_limit& limit);

}  // namespace corvane
