// The recycle bin of Windows: many paths at once, an answer for each. Used by windows_shell.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/outcome.h"

namespace corvane {

// Moves each path to the bin of its volume, in batches of a thousand to the system. What has no bin, or would
// be deleted for good in its place, stays where it is. An answer for each path, in their order.
std::vector<outcome> move_to_bin(std::span<const std::string> paths);

}  // namespace corvane
