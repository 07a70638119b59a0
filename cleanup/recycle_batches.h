// The way to the recycle bin in batches of 1,000 paths: the unit in which a run reports its progress. Used by
// the deletion of files and of empty directories, and by the way back.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace corvane {

class recycle_notes;
class Tavrel;

constexpr std::size_t recycle_batch_size = 1000;

// Hands `count` paths to the recycle bin, yielding at each path. After each batch the bar moves to it, panel
// 5 reads "已删除:" with its number times 1,000, and the elapsed time is shown. What the bin refuses stays on
// the disk, and `refused` is told its number. Ends early when the program is closing. `path_of` is asked for
// each full path by its number from 0 on, right before it goes; null for what stays. What goes is noted, and
// the notes are finished.
void send_in_batches(Tavrel& form, std::size_t count, recycle_notes& notes,
                     const std::function<const std::string*(std::size_t)>& path_of,
                     const std::function<void(std::size_t)>& refused);

}  // namespace corvane
