// Deleting files inside archives through an outside tool. Called once by each deletion run that has written
// names to archive_del_path.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <set>
#include <string>

#include "cleanup/archive_contents.h"

namespace corvane {

class Tavrel;

struct archive_deletion {
    // No tool fits an archive, or it could not be started.
    bool failed = false;
    // Entries that were not handed to a tool although there is one, by their number in the list from 0 on.
    std::set<std::size_t> left_alone;
    // What is still inside by the directories as they are now, also when it was handed to the tool.
    std::int32_t still_inside = 0;
    std::string first_inside;  // one of these
};

// Hands the entries listed in archive_del_path, which is closed, to the tool: a run for each archive, and one
// more when entries of another archive stand in between. A run begins with the names in delrarfile.txt and is
// waited for, yielding; a program that closes meanwhile waits no longer, starts no other run and leaves the
// list as it is, while the tool comes to its end by itself. `may_go` is asked right before a run for each
// entry by its number; what it refuses, what the tool cannot take literally and what is not there is left
// alone. archive_del_count grows by the entries handed over.
archive_deletion delete_archive_entries(
    Tavrel& form, const std::function<bool(std::size_t, const archive_member&)>& may_go);

}  // namespace corvane
