// The recycle bin as a place to take things back from: where what has gone there lies, whether it still does,
// and the way back. platform/linux implements it; a machine without one hands the program none.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

// What a path is right before it goes to the recycle bin.
struct recycled_item {
    std::string path;
    std::string folder;  // where the links above it lead to, without the closing separator; "" for the root
    bool directory = false;
    file_identity identity;
    std::int64_t length = 0;  // of a directory 0
    std::int64_t modified_ns = 0;
};

// One entry of one recycle bin; a machine has several.
struct trash_entry {
    std::string place;  // the bin's own folder
    std::string name;   // empty: not known

    bool is_known() const { return !name.empty(); }
};

enum class trash_state {
    there,
    gone,         // emptied, or taken back by another program
    other,        // the entry is another one now
    out_of_reach  // the bin is not there: its volume is not mounted
};

enum class obstacle {
    none,
    gone,
    other,
    out_of_reach,
    strange_place,  // what is noted lies in no recycle bin of this user, or leads out of it
    strange_note,   // the bin's own note of the entry speaks of another path, or there is none
    link_in_way,    // a folder above the old place is a link now
    file_in_way,    // a folder above the old place is a file now
    other_device,   // the old place is on another device than the bin
    no_name,        // no free name was found
    system          // the system's words tell
};

struct restoring {
    obstacle why = obstacle::system;
    std::string reason;  // the system's words, for obstacle::system
    std::string path;    // where it stands now; another name than before where that one is taken

    bool ok() const { return why == obstacle::none; }
};

class trash {
  public:
    virtual ~trash() = default;

    // Nothing when the path is neither a regular file nor a directory.
    virtual std::optional<recycled_item> look(const std::string& path) = 0;
    // Where items that have gone to the bin lie: as many answers, in their order. Meant for many at once: a
    // bin is read at most once a call.
    virtual std::vector<trash_entry> find(std::span<const recycled_item> gone) = 0;
    virtual trash_state state(const recycled_item& item, const trash_entry& entry) = 0;
    // True when the item stands at that path.
    virtual bool stands_at(const recycled_item& item, const std::string& path) = 0;
    // Moves an entry back to its old place, whose folders are made where they are missing. What stands there
    // is never overwritten: the item then gets a name beside it. What fails leaves the entry in the bin.
    virtual restoring restore(const recycled_item& item, const trash_entry& entry) = 0;
};

}  // namespace corvane
