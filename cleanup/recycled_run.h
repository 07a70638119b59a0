// The notes of a run to the recycle bin, read back. Used by what restores from the bin and by its window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/trash.h"

namespace corvane {

struct recycled_file {
    recycled_item item;
    trash_entry entry;          // not known: the run ended before it was found
    bool stayed = false;        // the bin did not take it
    std::string restored_path;  // empty: not restored
};

struct recycled_pair {
    std::int64_t length = 0;
    std::string first;
    std::string second;
};

struct recycled_run {
    std::string path;                      // of the notes
    std::string time;                      // "2026-11-22 09:30:01"; empty: cut before it
    bool known = false;                    // notes of this version
    bool complete = false;                 // to their end, and every line is understood
    std::vector<std::string> directories;  // of the result; none in older notes
    std::vector<recycled_file> files;
    std::vector<recycled_pair> pairs;

    // Of the files that have gone.
    std::size_t count() const;
    double bytes() const;
};

// The paths of all notes, the newest first. Empty where there are none.
std::vector<std::string> recycled_runs(file_system& files, const std::string& folder);

// What of the notes is whole. A line that is cut or no line of notes is passed over, and `complete` is false.
recycled_run read_recycled_run(file_system& files, const std::string& path);

// Adds lines to notes, which keep all that they hold. On failure they stay as they were.
outcome add_to_recycled_run(file_system& files, const std::string& path,
                            const std::vector<std::string>& lines);
// Where a file of that number lies, and where it has been restored to.
std::string entry_line(std::size_t number, const trash_entry& entry);
std::string restored_line(std::size_t number, const std::string& path);

}  // namespace corvane
