// Lists the files of a RAR archive of the generations 1.5 to 4 by walking over its blocks. Called by the
// walk.
#pragma once

#include <cstdint>
#include <string>

namespace corvane {

class Tavrel;
class archive_input;
class walk_output;

// Adds a member for each file of the archive, under state.current_path; `path` is opened and named in the
// report. Nothing is unpacked.
void read_rar(Tavrel& form, const std::string& path, walk_output& output);

// Reads the block at `position`, a file offset, and adds its member if it has one; every block is taken for a
// file's but for sub-blocks and directories. `next` is then the place behind it, always further on. False
// when the reading of the archive ends here: a read error, a name that leaves the buffer, or a full list.
bool read_rar_block(Tavrel& form, archive_input& archive, walk_output& output, std::int64_t position,
                    std::int64_t& next);

}  // namespace corvane
