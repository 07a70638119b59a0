// The facts of one regular file, and the reading of its start, from a directory or the root on. Used by
// linux_file_system, for one path and for many.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/file_system.h"
#include "platform/linux/held_directory.h"
#include "platform/linux/stacked_devices.h"

namespace corvane {

// `path` is the whole of what `place` reaches.
file_facts linux_facts(const held_directory::place& place, std::string_view path, stacked_devices& stacked);

// As file_system::read_start.
std::int64_t read_linux_start(const held_directory::place& place, std::span<std::byte> buffer,
                              std::size_t expected);

// True where the file lies on another machine, which is not to be asked by too many at once.
bool is_on_network(std::string_view path);

}  // namespace corvane
