// Finding in the recycle bins what has just gone there. Used by linux_trash.
#pragma once

#include <sys/stat.h>

#include <map>
#include <span>
#include <string>
#include <vector>

#include "platform/linux/trash_place.h"
#include "platform/trash.h"

namespace corvane {

// True when what stands there is what was noted: kind, length and time of the last change, which a move
// keeps.
bool is_same_item(const recycled_item& item, const struct stat& facts);

// True when the bin's note of the entry speaks of the item's old path.
bool info_names(const open_trash& bin, const std::string& name, const recycled_item& item);

// Answers as trash::find. `numbers` is how far the numbers of each base name have come; it is carried on.
std::vector<trash_entry> search_trash(std::span<const recycled_item> gone,
                                      std::map<std::string, int>& numbers);

}  // namespace corvane
