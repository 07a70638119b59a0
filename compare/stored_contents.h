// run_contents.txt: what comparisons have found out about contents, so that files that have not changed since
// are not read again to be compared. Beside the signatures of history.h, and for the same lists: a signature
// tells most files apart, this file those that have equal ones.
//
// A file is known by a number of its state: where it lies, how long it is, when it was written and when
// anything of it changed, which nobody can set back. What has changed too short a time before it was looked
// at to be told from a later change is not kept. No proof before a deletion: that compares anew.
#pragma once

#include <cstdint>
#include <string>

#include "core/state/file_columns.h"
#include "platform/file_system.h"

namespace corvane {

// Nanoseconds between a change and the look at it, above the steps in which file systems tell times.
constexpr std::int64_t least_age_ns = 3'000'000'000;

// Gives the files of the columns, with their facts, the numbers that they had; from now on numbers are kept.
// A missing or broken file gives none.
void read_contents(file_system& disk, const std::string& path, file_columns& files);

// Stores the numbers of the listed files, in place of what the file held. One that holds them already is not
// written again. False, with the system's words in `error`, when it could not be written; the old file is
// then whole.
bool write_contents(file_system& disk, const std::string& path, const file_columns& files,
                    std::string& error);

}  // namespace corvane
