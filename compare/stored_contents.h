// run_contents.txt: what comparisons have found out about contents, so that files that have not changed since
// are not read again to be compared. Beside the signatures of history.h, and for the same lists: a signature
// tells most files apart, this file those that have equal ones.
//
// A file is known by a number of its path and its state: which file of the disk it is, how long it is, when
// it was written and when anything of it changed. Kept is only what a disk can tell from a later change: with
// a change time of its own, in fine steps, that lies long enough before the look. It is no proof before a
// deletion: that compares anew.
#pragma once

#include <cstdint>
#include <string>

#include "core/state/file_columns.h"
#include "platform/file_system.h"

namespace corvane {

// Nanoseconds between a change and the look at it. What is written through a mapping, or by one long call, is
// dated when that begins, and may go on until the system has put it on the disk: half a minute by default.
constexpr std::int64_t least_age_ns = 120'000'000'000;

// Gives the files of the columns, with their facts, the numbers that they had; from now on numbers are kept.
// A missing or broken file gives none.
void read_contents(file_system& disk, const std::string& path, file_columns& files);

// Stores the numbers of the listed files, in place of what the file held; nothing where none are kept. One
// that holds them already is not written again. On failure the old file is whole.
outcome write_contents(file_system& disk, const std::string& path, const file_columns& files);

}  // namespace corvane
