// The way of one entry of a recycle bin back to its old place. Used by linux_trash.
#pragma once

#include <string>

#include "platform/linux/trash_place.h"
#include "platform/trash.h"

namespace corvane {

// Moves the entry, of which the caller knows that it is the item, to the item's old folder, made where it is
// missing, under its old name or one beside it. The bin's note of it goes afterwards.
restoring return_entry(const open_trash& bin, const std::string& name, const recycled_item& item);

}  // namespace corvane
