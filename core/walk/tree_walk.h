// The walk over directories, one for every task that lists the disk: breadth first from the selected
// directories, links to directories last and each place once. A task brings a visitor, and by name the rules
// in which its walk differs.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/text/column.h"
#include "platform/file_system.h"

namespace corvane {

// What a visitor answers, and how a walk has ended. Anything but go_on ends the walk at once.
enum class walk_course { go_on, finished, cancelled, quit };

enum class directory_reading {
    whole,       // to its end, or to the entry at which ends_at_repeat ended it
    cut_short,   // by a read error: there may be entries that nobody has seen
    unreadable,  // not opened at all
};

// How a selected directory becomes the path that is opened. Folding is to upper case, and only where the disk
// ignores case; everywhere else the text stays as it is, blanks at its ends included.
enum class root_text { as_selected, folded, trimmed_and_folded };

struct walk_rules {
    // exclude_dir_text. A reference, because it is looked at again for each directory.
    const std::string& excluded;
    // The most directories that the queue takes, those passed over included. What does not fit is left out.
    std::int32_t limit;
    root_text roots = root_text::as_selected;
    // A reader that gives one name twice running is broken off: it may never end.
    bool ends_at_repeat = false;
    // At its end, however it ends, the queue holds the directories entered and nothing else: none that was
    // passed over and none that is left unread. Meanwhile those read stand at its start.
    bool queue_keeps_entered = false;
};

// Directories end in the separator; texts are valid during the call.
class walk_visitor {
  public:
    virtual ~walk_visitor() = default;
    // Its turn has come; it may yet be passed over.
    virtual void reached(const std::string& /*directory*/) {}
    // It is no directory to be passed over, and is opened next.
    virtual walk_course enter(const std::string& /*directory*/) { return walk_course::go_on; }
    // An entry of the directory entered last, of any kind. A directory stands in the queue by now, if there
    // was room.
    virtual walk_course entry(const std::string& directory, std::string_view name, entry_kind kind) = 0;
    // Follows each enter that went on, unless an entry ended the walk. `last_name` is that of the last entry
    // given, empty if there was none.
    virtual walk_course leave(const std::string& /*directory*/, directory_reading /*reading*/,
                              const std::string& /*last_name*/) {
        return walk_course::go_on;
    }
    // Everything that is reached without a link has been left, and a link is to be followed. Once a walk.
    virtual void links_begin() {}
};

struct walk_result {
    walk_course ending = walk_course::finished;  // finished, too, when nothing is left
    bool limit_reached = false;                  // directories were left out
};

// Empties `queue` and fills it with the directories in the order of their discovery, each closed by the
// separator. Blank roots are passed over, as is whatever skip_directory names, with all that lies below.
// Nothing is made out about roots that lie in one another: such a tree is walked twice.
walk_result walk_tree(file_system& files, std::span<const std::string> roots, column<std::string>& queue,
                      const walk_rules& rules, walk_visitor& visitor);

}  // namespace corvane
