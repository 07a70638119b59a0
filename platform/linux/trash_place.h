// The folders of the recycle bins of this user, as the freedesktop rules name them: one at home, two possible
// ones at the top of each volume. Used by linux_trash. All texts are raw bytes.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/descriptor.h"

namespace corvane {

// The bin at home, by XDG_DATA_HOME and HOME.
std::string home_trash();

// The bins that a path in this folder may go to: at home, and at the top of the folder's volume. A folder
// that is missing counts as the nearest one above it.
std::vector<std::string> trash_places_for(const std::string& folder);

// One bin, held open: what stands in it is reached through these two folders and no link.
struct open_trash {
    std::string top;  // what relative paths of its notes start from; empty for the bin at home
    descriptor files;
    descriptor info;
};

enum class opened_trash { yes, missing, strange };

// Opens a bin. `strange`: the folder is none of this user's bins by its name and place, belongs to somebody
// else, or one of its parts is a link. `missing`: it is not there.
opened_trash open_trash_place(const std::string& place, open_trash& bin);

}  // namespace corvane
